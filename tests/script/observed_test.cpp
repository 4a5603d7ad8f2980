#include "observed.h"

#include <gtest/gtest.h>

#include "script_error.h"

namespace pelkscript {
namespace {

using pelkedit::Date;
using pelkedit::Variant;

TEST(Expect, ExpectedIsReadAsTheActualType) {
  const Observed longValue = Variant(std::int32_t{2});
  EXPECT_TRUE(Matches(longValue, "2"));
  EXPECT_FALSE(Matches(longValue, "2.0"));
  EXPECT_FALSE(Matches(longValue, "\"2\""));
  EXPECT_FALSE(Matches(longValue, "True"));

  const Observed doubleValue = Variant(3.0);
  EXPECT_TRUE(Matches(doubleValue, "3"));
  EXPECT_TRUE(Matches(doubleValue, "3.0"));
  EXPECT_FALSE(Matches(doubleValue, "3.0000001"));

  EXPECT_TRUE(Matches(Variant(true), "true"));
  EXPECT_FALSE(Matches(Variant(true), "1"));

  const Observed date = Variant(Date::FromCivil(2004, 4, 1));
  EXPECT_TRUE(Matches(date, "2004-04-01"));
  EXPECT_FALSE(Matches(date, "2004-04-01T00:00:01"));
}

TEST(Expect, StringsCompareExactly) {
  const Observed text = Variant("Open");
  EXPECT_TRUE(Matches(text, "\"Open\""));
  EXPECT_FALSE(Matches(text, "\"open\""));
  EXPECT_FALSE(Matches(text, "\"Open \""));
  EXPECT_TRUE(Matches(Variant("12"), "\"12\""));
}

TEST(Expect, BareNamesAndEmpty) {
  EXPECT_TRUE(Matches(BareName{"none"}, "none"));
  EXPECT_TRUE(Matches(BareName{"txtNote"}, "txtNote"));
  EXPECT_FALSE(Matches(BareName{"txtNote"}, "none"));
  EXPECT_TRUE(Matches(Variant(), "Empty"));
  EXPECT_FALSE(Matches(Variant(), "0"));
  // An expected word that is not a value at all cannot be compared.
  EXPECT_THROW(Matches(Variant("x"), "\"unterminated"), ScriptError);
}

TEST(Expect, DisplayOfValuesAndPositions) {
  EXPECT_EQ(Display(Variant("a\"b")), "\"a\\\"b\"");
  EXPECT_EQ(Display(BareName{"none"}), "none");
  EXPECT_EQ(Display(Variant(Date::FromCivil(2026, 1, 15, 10, 0, 0))), "2026-01-15T10:00:00");
  // A float position prints as its own shortest text, not the double widening of it.
  EXPECT_EQ(Display(Variant(PositionValue(0.1F))), "0.1");
  EXPECT_EQ(Display(Variant(PositionValue(1234.5F))), "1234.5");
  EXPECT_TRUE(Matches(Variant(PositionValue(37.35F)), "37.35"));
}

}  // namespace
}  // namespace pelkscript
