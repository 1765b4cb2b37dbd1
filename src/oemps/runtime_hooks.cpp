// Replacements for the C++ library's own error reporting, which make the DLL 120 KB smaller. The
// originals build texts (exception messages, demangled names) and bring an older string class and
// formatted output along; here nobody reads the text of an exception, the boundaries tell only
// std::bad_alloc apart, and the host has no console. The linker takes these instead of the
// library's object file that holds all of them. Should it report one as defined twice, the code
// has begun to use another function of that file: give it a line here.
#include <cstdlib>
#include <exception>
#include <new>
#include <string>  // declares the functions of namespace std

namespace __gnu_cxx {

void __verbose_terminate_handler() {
  std::abort();
}

}  // namespace __gnu_cxx

namespace std {

void __throw_bad_alloc() {
  throw bad_alloc();
}
void __throw_bad_array_new_length() {
  throw bad_alloc();
}
void __throw_length_error(const char*) {
  throw exception();
}
void __throw_logic_error(const char*) {
  throw exception();
}
void __throw_out_of_range_fmt(const char*, ...) {
  throw exception();
}

}  // namespace std
