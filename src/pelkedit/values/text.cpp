#include "values/text.h"

namespace pelkedit {
namespace {
bool IsContinuation(unsigned char c) {
  return (c & 0xC0) == 0x80;
}
}  // namespace

std::size_t CharCount(const std::string& utf8) {
  std::size_t n = 0;
  for (const char c : utf8) {
    if (!IsContinuation(static_cast<unsigned char>(c))) ++n;
  }
  return n;
}

std::size_t ByteOffsetOfChar(const std::string& utf8, std::size_t index) {
  std::size_t chars = 0;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    if (IsContinuation(static_cast<unsigned char>(utf8[i]))) continue;
    if (chars == index) return i;
    ++chars;
  }
  return utf8.size();
}

std::string CharLeft(const std::string& utf8, std::size_t count) {
  return utf8.substr(0, ByteOffsetOfChar(utf8, count));
}

std::string CharMid(const std::string& utf8, std::size_t start, std::size_t count) {
  const std::size_t from = ByteOffsetOfChar(utf8, start);
  const std::size_t to = ByteOffsetOfChar(utf8, start + count);
  return utf8.substr(from, to - from);
}

}  // namespace pelkedit
