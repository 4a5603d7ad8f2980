#pragma once

#include <cstddef>
#include <string>

namespace pelkedit {

// Lengths and cuts of UTF-8 text count code points, never bytes, and never split one.
std::size_t CharCount(const std::string& utf8);
// The first `count` characters.
std::string CharLeft(const std::string& utf8, std::size_t count);
// `count` characters starting at character `start` (0-based).
std::string CharMid(const std::string& utf8, std::size_t start, std::size_t count);
// Byte offset of character `index` (the byte length when index is past the end).
std::size_t ByteOffsetOfChar(const std::string& utf8, std::size_t index);

}  // namespace pelkedit
