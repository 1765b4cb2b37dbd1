// The inputs of an operation: files, and folders that stand for the files in them.
#pragma once

#include <string>
#include <string_view>

#include "tools/commands.h"

namespace zn::inspect {

// Without regard to case.
[[nodiscard]] bool HasExtension(std::string_view path, std::string_view extension);

// What is to be told of one file: that it cannot be used (answers kFailed), that it was written
// (answers kOk; JSON only).
int FailOnFile(const Output& out, const char* path, std::string_view message);
int TellWritten(const Output& out, const char* path);

// Adds what the file says to `record`; what is wrong with it, or an empty text.
using Describe = std::string (*)(const char* path, Json& record);

// Puts out what `describe` says of each file; of a folder, of those files in it that `understands`
// takes, in the order of their names. kMisused without any path or when one looks like an option.
int DescribeEach(Arguments paths, bool (*understands)(const std::string& path), Describe describe,
                 const Output& out);

}  // namespace zn::inspect
