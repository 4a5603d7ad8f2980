#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "values/variant.h"

namespace pelkscript {

// One blank-separated word of a line, as written (quotes and escapes still in place).
struct Word {
  std::string raw;
  bool Quoted() const { return !raw.empty() && raw.front() == '"'; }
};

// Splits a line into words; `#` outside quotes starts a comment. ScriptError on an
// unterminated string.
std::vector<Word> SplitWords(const std::string& line);

// Decodes a quoted string word: escapes \" \\ \r \n \t and \uXXXX (to UTF-8).
std::string DecodeString(const std::string& raw);

// Reads a value word: True/False (any case), integer, double (point or exponent), date,
// date and time, or quoted string. ScriptError for anything else.
pelkedit::Variant ParseValue(const std::string& raw);

// A 32-bit integer word; ScriptError otherwise.
std::int32_t ParseInt(const std::string& raw);
// A double word (integers too); ScriptError otherwise.
double ParseDouble(const std::string& raw);

// `NAME=VALUE` or `NAME(I)=VALUE` as one word.
struct Assignment {
  std::string name;
  int index = -1;  // -1: not indexed
  pelkedit::Variant value;
};
Assignment ParseAssignment(const std::string& raw);

// `NAME` or `NAME(I)`: the name and the index (-1 when there is none).
struct IndexedName {
  std::string name;
  int index = -1;
};
IndexedName ParseIndexedName(const std::string& text);

}  // namespace pelkscript
