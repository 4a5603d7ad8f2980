// The text of an address-book export: its encoding, its check, and the tally of what was
// skipped.
#include <algorithm>
#include <fstream>

#include "data/contact_import.h"
#include "data/data_error.h"
#include "record/utf8.h"

namespace pelkor {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";
constexpr std::size_t kUtf16Unit = 2;
constexpr char32_t kHighSurrogateFirst = 0xD800;
constexpr char32_t kLowSurrogateFirst = 0xDC00;
constexpr char32_t kSurrogateEnd = 0xE000;
constexpr char32_t kSurrogateBits = 10;
constexpr char32_t kSupplementaryFirst = 0x10000;
constexpr int kByteBits = 8;

[[noreturn]] void RaiseNotText(int line, const std::string& what) {
  data_detail::RaiseDataError("The contacts cannot be imported: line " + std::to_string(line) +
                              " " + what +
                              ". Save the file as UTF-8 (or UTF-16) text and import it again.");
}

void AppendUtf8(std::string& out, char32_t c) {
  constexpr char32_t kOneByte = 0x80;
  constexpr char32_t kTwoBytes = 0x800;
  constexpr char32_t kThreeBytes = 0x10000;
  constexpr int kSix = 6;
  constexpr char32_t kLowSix = 0x3F;
  const auto byte = [&out](char32_t value) { out += static_cast<char>(value); };
  if (c < kOneByte) return byte(c);
  if (c < kTwoBytes) {
    byte(0xC0 | (c >> kSix));
  } else if (c < kThreeBytes) {
    byte(0xE0 | (c >> (2 * kSix)));
    byte(0x80 | ((c >> kSix) & kLowSix));
  } else {
    byte(0xF0 | (c >> (3 * kSix)));
    byte(0x80 | ((c >> (2 * kSix)) & kLowSix));
    byte(0x80 | ((c >> kSix) & kLowSix));
  }
  byte(0x80 | (c & kLowSix));
}

// UTF-16 after its byte order mark, as UTF-8; a broken surrogate pair is named by its line.
std::string FromUtf16(std::string_view bytes, bool bigEndian) {
  std::string out;
  out.reserve(bytes.size());
  int line = 1;
  const auto unitAt = [&](std::size_t at) {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<char32_t>(bigEndian ? (first << kByteBits) | second
                                           : (second << kByteBits) | first);
  };
  if (bytes.size() % kUtf16Unit != 0) RaiseNotText(1, "ends in half a UTF-16 character");
  for (std::size_t at = 0; at < bytes.size(); at += kUtf16Unit) {
    char32_t c = unitAt(at);
    if (c >= kHighSurrogateFirst && c < kSurrogateEnd) {
      const bool high = c < kLowSurrogateFirst;
      const bool paired = high && at + 2 * kUtf16Unit <= bytes.size() &&
                          unitAt(at + kUtf16Unit) >= kLowSurrogateFirst &&
                          unitAt(at + kUtf16Unit) < kSurrogateEnd;
      if (!paired) RaiseNotText(line, "holds a broken UTF-16 character");
      at += kUtf16Unit;
      c = kSupplementaryFirst + ((c - kHighSurrogateFirst) << kSurrogateBits) +
          (unitAt(at) - kLowSurrogateFirst);
    }
    if (c == '\n') ++line;
    AppendUtf8(out, c);
  }
  return out;
}

}  // namespace

std::string_view WithoutMark(std::string_view text) {
  if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark)
    text.remove_prefix(kByteOrderMark.size());
  return text;
}

void ForEachLine(std::string_view text, const std::function<void(int, std::string_view)>& take) {
  int number = 0;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size() - 1);
    take(++number, text.substr(start, end - start + 1));
    start = end + 1;
  }
}

void RequireContactText(std::string_view text) {
  ForEachLine(text, [](int number, std::string_view line) {
    if (line.find('\0') != std::string_view::npos) RaiseNotText(number, "holds a NUL character");
    if (!detail::IsValidUtf8(line)) RaiseNotText(number, "is not UTF-8 text");
  });
}

void ContactImport::Skip(int line, const std::string& why, const std::string& kind) {
  const std::string& key = kind.empty() ? why : kind;
  const auto more = std::find_if(moreSkipped.begin(), moreSkipped.end(),
                                 [&key](const auto& entry) { return entry.first == key; });
  if (more != moreSkipped.end()) {
    ++more->second;
    return;
  }
  const auto kept =
      std::count_if(skipped.begin(), skipped.end(),
                    [&key](const ImportProblem& problem) { return problem.kind == key; });
  if (static_cast<std::size_t>(kept) < kKeptPerReason) {
    skipped.push_back({line, why, key});
    return;
  }
  moreSkipped.emplace_back(key, 1);
}

std::size_t ContactImport::SkippedCount() const {
  std::size_t count = skipped.size();
  for (const auto& [why, more] : moreSkipped) count += more;
  return count;
}

std::string ReadContactText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) data_detail::RaiseDataError("Cannot read the contacts file '" + path + "'.");
  std::string content{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (content.starts_with(kUtf16LittleMark) || content.starts_with(kUtf16BigMark)) {
    const bool bigEndian = content.starts_with(kUtf16BigMark);
    return FromUtf16(std::string_view(content).substr(kUtf16Unit), bigEndian);
  }
  return content;
}

}  // namespace pelkor
