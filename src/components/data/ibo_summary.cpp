#include <pwd.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "data/ibo_query.h"
#include "data/ibo_row.h"

namespace pelkor {
namespace {

constexpr std::array kColumnNames = {
    "id",       "number",           "company", "contact", "status",    "mode",
    "priority", "advisor_priority", "wih",     "wwgi",    "wwih_date", "close_date",
    "result",   "position",         "value",   "owner",   "saved_at",  "saved_by"};

// Base letters of U+0100 to U+017F (Latin Extended-A), one per code point; '1' stands for "ij"
// and '2' for "oe".
constexpr std::string_view kLatinExtendedA =
    "aaaaaa"
    "cccccccc"
    "dddd"
    "eeeeeeeeee"
    "gggggggg"
    "hhhh"
    "iiiiiiiiii"
    "11"
    "jj"
    "kkk"
    "llllllllll"
    "nnnnnnn"
    "nn"
    "oooooo"
    "22"
    "rrrrrr"
    "ssssssss"
    "tttttt"
    "uuuuuuuuuuuu"
    "ww"
    "yyy"
    "zzzzzz"
    "s";
static_assert(kLatinExtendedA.size() == 0x80);
constexpr char32_t kLatinExtendedAFirst = 0x100;

// Base letters of U+00C0 to U+00FF; '*' keeps the character (the multiplication and division
// signs), '3' is "ae", '4' "th" and '5' "ss".
constexpr std::string_view kLatin1Letters =
    "aaaaaa3ceeeeiiiidnooooo*ouuuuy45aaaaaa3ceeeeiiiidnooooo*ouuuuy4y";
static_assert(kLatin1Letters.size() == 0x40);
constexpr char32_t kLatin1First = 0xC0;

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (c >> 6)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  } else if (c < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (c >> 12)));
    out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (c >> 18)));
    out.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  }
}

void AppendBase(std::string& out, char base) {
  switch (base) {
    case '1':
      out += "ij";
      return;
    case '2':
      out += "oe";
      return;
    case '3':
      out += "ae";
      return;
    case '4':
      out += "th";
      return;
    case '5':
      out += "ss";
      return;
    default:
      out.push_back(base);
  }
}

// Greek and Cyrillic capitals have their small letters at fixed distances.
char32_t LowerNonLatin(char32_t c) {
  if (c >= 0x391 && c <= 0x3A9) return c + 0x20;
  if (c >= 0x410 && c <= 0x42F) return c + 0x20;
  if (c >= 0x400 && c <= 0x40F) return c + 0x50;
  return c;
}

void AppendFolded(std::string& out, char32_t c) {
  if (c >= 'A' && c <= 'Z') {
    out.push_back(static_cast<char>(c - 'A' + 'a'));
  } else if (c >= kLatin1First && c < kLatin1First + kLatin1Letters.size() &&
             kLatin1Letters[c - kLatin1First] != '*') {
    AppendBase(out, kLatin1Letters[c - kLatin1First]);
  } else if (c >= kLatinExtendedAFirst && c < kLatinExtendedAFirst + kLatinExtendedA.size()) {
    AppendBase(out, kLatinExtendedA[c - kLatinExtendedAFirst]);
  } else {
    AppendUtf8(out, LowerNonLatin(c));
  }
}

// The length of the UTF-8 sequence a lead byte starts, 0 for a byte that starts none.
int SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if ((lead & 0xE0) == 0xC0) return 2;
  if ((lead & 0xF0) == 0xE0) return 3;
  if ((lead & 0xF8) == 0xF0) return 4;
  return 0;
}

}  // namespace

const std::vector<SummaryColumn>& SummaryColumns() {
  static const std::vector<SummaryColumn> columns = [] {
    std::vector<SummaryColumn> all;
    for (std::size_t i = 0; i < kColumnNames.size(); ++i) {
      all.push_back(static_cast<SummaryColumn>(i));
    }
    return all;
  }();
  return columns;
}

const char* SummaryColumnName(SummaryColumn column) {
  return kColumnNames.at(static_cast<std::size_t>(column));
}

std::optional<SummaryColumn> SummaryColumnNamed(const std::string& name) {
  for (std::size_t i = 0; i < kColumnNames.size(); ++i) {
    if (name == kColumnNames[i]) return static_cast<SummaryColumn>(i);
  }
  return std::nullopt;
}

std::string FoldForSearch(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const auto lead = static_cast<unsigned char>(text[at]);
    const int length = SequenceLength(lead);
    if (length == 0 || at + static_cast<std::size_t>(length) > text.size()) {
      out.push_back(text[at++]);  // not UTF-8: kept as it is
      continue;
    }
    char32_t c = length == 1 ? lead : lead & (0x7F >> length);
    for (int i = 1; i < length; ++i) {
      c = (c << 6) | (static_cast<unsigned char>(text[at + static_cast<std::size_t>(i)]) & 0x3F);
    }
    AppendFolded(out, c);
    at += static_cast<std::size_t>(length);
  }
  return out;
}

std::string CurrentUserName() {
  if (const char* set = std::getenv("PELKOR_USER"); set != nullptr && *set != '\0') return set;
  if (const passwd* entry = ::getpwuid(::geteuid()); entry != nullptr) return entry->pw_name;
  if (const char* login = std::getenv("USER"); login != nullptr) return login;
  return "";
}

}  // namespace pelkor
