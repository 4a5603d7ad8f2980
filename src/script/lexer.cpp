#include "lexer.h"

#include <cctype>
#include <charconv>
#include <cstdint>
#include <optional>

#include "script_error.h"

namespace pelkscript {
namespace {

constexpr int kHexDigitsPerEscape = 4;
constexpr std::uint32_t kHighSurrogateFirst = 0xD800;
constexpr std::uint32_t kLowSurrogateFirst = 0xDC00;
constexpr std::uint32_t kSurrogateEnd = 0xE000;
constexpr std::uint32_t kSupplementaryBase = 0x10000;
constexpr int kSurrogateShift = 10;

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

void AppendUtf8(std::string& out, std::uint32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// Reads the four hex digits of a \u escape starting at `pos`.
std::uint32_t ReadHex4(const std::string& raw, std::size_t pos) {
  if (pos + kHexDigitsPerEscape > raw.size()) {
    throw ScriptError("bad value " + raw + ": \\u needs four hex digits");
  }
  std::uint32_t value = 0;
  const char* first = raw.data() + pos;
  const auto [end, ec] = std::from_chars(first, first + kHexDigitsPerEscape, value, 16);
  if (ec != std::errc() || end != first + kHexDigitsPerEscape) {
    throw ScriptError("bad value " + raw + ": \\u needs four hex digits");
  }
  return value;
}

bool IsHigh(std::uint32_t u) {
  return u >= kHighSurrogateFirst && u < kLowSurrogateFirst;
}
bool IsLow(std::uint32_t u) {
  return u >= kLowSurrogateFirst && u < kSurrogateEnd;
}

// Decodes \uXXXX (and a following low surrogate) at raw[pos] == 'u'; returns the index
// of the last character consumed.
std::size_t DecodeUnicode(const std::string& raw, std::size_t pos, std::string& out) {
  const std::uint32_t unit = ReadHex4(raw, pos + 1);
  std::size_t last = pos + kHexDigitsPerEscape;
  if (IsLow(unit)) throw ScriptError("bad value " + raw + ": lone low surrogate");
  if (!IsHigh(unit)) {
    AppendUtf8(out, unit);
    return last;
  }
  if (raw.compare(last + 1, 2, "\\u") != 0) {
    throw ScriptError("bad value " + raw + ": high surrogate without its low half");
  }
  const std::uint32_t low = ReadHex4(raw, last + 3);
  if (!IsLow(low)) throw ScriptError("bad value " + raw + ": high surrogate without its low half");
  AppendUtf8(out, kSupplementaryBase + ((unit - kHighSurrogateFirst) << kSurrogateShift) +
                      (low - kLowSurrogateFirst));
  return last + 2 + kHexDigitsPerEscape;
}

template <typename T>
std::optional<T> ParseWhole(const std::string& raw) {
  T value{};
  const char* first = raw.data();
  const char* last = raw.data() + raw.size();
  const auto [end, ec] = std::from_chars(first, last, value);
  if (ec != std::errc() || end != last || raw.empty()) return std::nullopt;
  return value;
}

bool LooksLikeDouble(const std::string& raw) {
  return raw.find_first_of(".eE") != std::string::npos &&
         raw.find_first_of("0123456789") != std::string::npos;
}

}  // namespace

std::vector<Word> SplitWords(const std::string& line) {
  std::vector<Word> words;
  std::string current;
  bool inWord = false;
  bool inQuotes = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (inQuotes) {
      current += c;
      if (c == '\\' && i + 1 < line.size()) {
        current += line[++i];
      } else if (c == '"') {
        inQuotes = false;
      }
      continue;
    }
    if (c == '#') break;
    if (IsBlank(c)) {
      if (inWord) words.push_back({std::move(current)});
      current.clear();
      inWord = false;
      continue;
    }
    inWord = true;
    current += c;
    if (c == '"') inQuotes = true;
  }
  if (inQuotes) throw ScriptError("unterminated string");
  if (inWord) words.push_back({std::move(current)});
  return words;
}

std::string DecodeString(const std::string& raw) {
  if (raw.size() < 2 || raw.front() != '"' || raw.back() != '"') {
    throw ScriptError("bad value " + raw + ": not a quoted string");
  }
  std::string out;
  const std::size_t end = raw.size() - 1;
  for (std::size_t i = 1; i < end; ++i) {
    const char c = raw[i];
    if (c == '"') throw ScriptError("bad value " + raw + ": text after the closing quote");
    if (c != '\\') {
      out += c;
      continue;
    }
    if (++i >= end) throw ScriptError("bad value " + raw + ": escape at the end");
    switch (raw[i]) {
      case '"':
        out += '"';
        break;
      case '\\':
        out += '\\';
        break;
      case 'r':
        out += '\r';
        break;
      case 'n':
        out += '\n';
        break;
      case 't':
        out += '\t';
        break;
      case 'u':
        if (i + kHexDigitsPerEscape >= end) {
          throw ScriptError("bad value " + raw + ": \\u needs four hex digits");
        }
        i = DecodeUnicode(raw.substr(0, end), i, out);
        break;
      default:
        throw ScriptError("bad value " + raw + ": unknown escape \\" + std::string(1, raw[i]));
    }
  }
  return out;
}

pelkedit::Variant ParseValue(const std::string& raw) {
  if (raw.empty()) throw ScriptError("missing value");
  if (raw.front() == '"') return DecodeString(raw);
  const std::string lower = Lower(raw);
  if (lower == "true") return true;
  if (lower == "false") return false;
  if (const auto date = pelkedit::Date::Parse(raw)) return *date;
  if (const auto integer = ParseWhole<std::int32_t>(raw)) return *integer;
  if (LooksLikeDouble(raw)) {
    if (const auto real = ParseWhole<double>(raw)) return *real;
  }
  throw ScriptError("bad value " + raw);
}

std::int32_t ParseInt(const std::string& raw) {
  if (const auto integer = ParseWhole<std::int32_t>(raw)) return *integer;
  throw ScriptError("bad value " + raw + ": an integer was expected");
}

double ParseDouble(const std::string& raw) {
  if (const auto real = ParseWhole<double>(raw)) return *real;
  throw ScriptError("bad value " + raw + ": a number was expected");
}

IndexedName ParseIndexedName(const std::string& text) {
  const auto open = text.find('(');
  if (open == std::string::npos) {
    if (text.empty()) throw ScriptError("missing name");
    return {text, -1};
  }
  if (open == 0 || text.back() != ')') throw ScriptError("bad name " + text);
  const std::int32_t index = ParseInt(text.substr(open + 1, text.size() - open - 2));
  if (index < 0) throw ScriptError("bad name " + text + ": negative index");
  return {text.substr(0, open), index};
}

Assignment ParseAssignment(const std::string& raw) {
  const auto eq = raw.find('=');
  if (eq == std::string::npos || raw.front() == '"') {
    throw ScriptError("expected NAME=VALUE, found " + raw);
  }
  const IndexedName target = ParseIndexedName(raw.substr(0, eq));
  return {target.name, target.index, ParseValue(raw.substr(eq + 1))};
}

}  // namespace pelkscript
