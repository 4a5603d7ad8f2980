#include "lexer.h"

#include <gtest/gtest.h>

#include "script_error.h"

namespace pelkscript {
namespace {

using pelkedit::Date;
using pelkedit::Variant;

std::vector<std::string> Raw(const std::string& line) {
  std::vector<std::string> out;
  for (const auto& word : SplitWords(line)) out.push_back(word.raw);
  return out;
}

TEST(Lexer, WordsCommentsAndQuotedBlanks) {
  EXPECT_EQ(Raw("  type   txtNote \"a # b\"  # the note"),
            (std::vector<std::string>{"type", "txtNote", "\"a # b\""}));
  EXPECT_EQ(
      Raw("ibo 7 0 CloseBarriers(3)=\"no budget\" Status=1"),
      (std::vector<std::string>{"ibo", "7", "0", "CloseBarriers(3)=\"no budget\"", "Status=1"}));
  EXPECT_EQ(Raw("type t \"say \\\"hi\\\" # not a comment\""),
            (std::vector<std::string>{"type", "t", "\"say \\\"hi\\\" # not a comment\""}));
  EXPECT_TRUE(Raw("# only a comment").empty());
  EXPECT_TRUE(Raw("   \t").empty());
  EXPECT_THROW(SplitWords("type t \"open"), ScriptError);
}

TEST(Lexer, EveryValueKind) {
  EXPECT_EQ(ParseValue("True"), Variant(true));
  EXPECT_EQ(ParseValue("fALSE"), Variant(false));
  EXPECT_EQ(ParseValue("-12"), Variant(std::int32_t{-12}));
  EXPECT_EQ(ParseValue("0.7625"), Variant(0.7625));
  EXPECT_EQ(ParseValue("1e3"), Variant(1000.0));
  EXPECT_EQ(ParseValue("2004-04-01"), Variant(Date::FromCivil(2004, 4, 1)));
  EXPECT_EQ(ParseValue("2004-04-01T13:05:00"), Variant(Date::FromCivil(2004, 4, 1, 13, 5, 0)));
  EXPECT_EQ(ParseValue("\"text\""), Variant("text"));
  EXPECT_EQ(ParseValue("\"\""), Variant(""));
}

TEST(Lexer, StringEscapesDecodeToUtf8) {
  EXPECT_EQ(DecodeString(R"("a\"b\\c\r\n\t")"), "a\"b\\c\r\n\t");
  EXPECT_EQ(DecodeString(R"("caf\u00e9")"), "caf\xC3\xA9");
  EXPECT_EQ(DecodeString(R"("\u20AC")"), "\xE2\x82\xAC");
  // A surrogate pair is one character outside the basic plane.
  EXPECT_EQ(DecodeString(R"("\uD83D\uDE00")"), "\xF0\x9F\x98\x80");
}

TEST(Lexer, BadValuesAreScriptErrors) {
  for (const char* bad :
       {"12abc", "2147483648", "2004-02-30", "yes", "\"a\\q\"", "\"\\u12\"", "\"\\u12G4\"",
        "\"\\uDE00\"", "\"\\uD83Dx\"", "\"a\"b\"", "\"abc", "1.2.3"}) {
    EXPECT_THROW(ParseValue(bad), ScriptError) << bad;
  }
  EXPECT_THROW(ParseInt("1.5"), ScriptError);
  EXPECT_THROW(ParseDouble("x"), ScriptError);
}

TEST(Lexer, AssignmentsAndIndexedNames) {
  const Assignment plain = ParseAssignment("Status=2");
  EXPECT_EQ(plain.name, "Status");
  EXPECT_EQ(plain.index, -1);
  EXPECT_EQ(plain.value, Variant(std::int32_t{2}));

  const Assignment indexed = ParseAssignment("CloseBarriers(3)=\"no = budget\"");
  EXPECT_EQ(indexed.name, "CloseBarriers");
  EXPECT_EQ(indexed.index, 3);
  EXPECT_EQ(indexed.value, Variant("no = budget"));

  EXPECT_THROW(ParseAssignment("Status"), ScriptError);
  EXPECT_THROW(ParseAssignment("Status="), ScriptError);
  EXPECT_THROW(ParseIndexedName("CloseBarriers(x)"), ScriptError);
  EXPECT_THROW(ParseIndexedName("CloseBarriers(-1)"), ScriptError);
  EXPECT_THROW(ParseIndexedName("(3)"), ScriptError);
}

}  // namespace
}  // namespace pelkscript
