// Replacements for parts of the C++ library's error reporting, which make the DLL 130 KB smaller.
// The originals build texts (exception messages, demangled names) and bring the library's older
// string class and formatted output with them; in this module no text of an exception is ever
// read, every boundary catches all types alike, and the host has no console. When the linker
// reports one of these as defined twice, the code has begun to use one more of the same family:
// give it a line here.
#include <cstdlib>
#include <exception>
#include <new>

namespace {

struct LibraryFailure final : std::exception {};

}  // namespace

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
void __throw_invalid_argument(const char*) {
  throw LibraryFailure();
}
void __throw_length_error(const char*) {
  throw LibraryFailure();
}
void __throw_logic_error(const char*) {
  throw LibraryFailure();
}
void __throw_out_of_range(const char*) {
  throw LibraryFailure();
}
void __throw_out_of_range_fmt(const char*, ...) {
  throw LibraryFailure();
}

}  // namespace std
