// SPDX-License-Identifier: MIT
//
// FileErrors: what the system says about a file, as the program's run-time errors.
#pragma once

#include <string>

namespace scenara {

// Raises the error that the number `error` of the system (errno) stands for, with the path in its
// text.
[[noreturn]] void Fail(int error, const std::string& path);

// Something is there that is no ordinary file.
[[noreturn]] void FailAsNoFile(const std::string& path);

[[nodiscard]] bool HasZeroByte(const std::string& path);

// The path itself. One with a zero byte in it is no file: the system would cut the name there and
// take another one.
[[nodiscard]] const std::string& CheckedName(const std::string& path);

}  // namespace scenara
