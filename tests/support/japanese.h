#pragma once

#include <string>

namespace zn::test {

// A UTF-8 text in code page 932, that of the plug-in's texts.
std::string Japanese(const char* utf8);

}  // namespace zn::test
