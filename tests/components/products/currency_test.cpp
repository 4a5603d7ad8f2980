// The fixed-point money type: conversions round half to even at the fourth decimal, sums are
// exact, and the parts the record stores truncate toward zero.
#include "values/currency.h"

#include <gtest/gtest.h>

#include <limits>

#include "values/error.h"

namespace pelkedit {
namespace {

std::int32_t ErrorOf(void (*body)()) {
  try {
    body();
  } catch (const PelkError& error) {
    return error.Number();
  }
  return 0;
}

TEST(Currency, UnitsAndHundredthsTruncateTowardZeroWithTheSignOfTheValue) {
  struct Case {
    const char* text;
    std::int64_t units;
    std::int64_t hundredths;
  };
  for (const Case& c : {Case{"1234.5678", 1234, 56}, Case{"0.999", 0, 99},
                        Case{"-12.345", -12, -34}, Case{"-0.5", 0, -50}, Case{"100.00", 100, 0}}) {
    const Currency value = Currency::Parse(c.text);
    EXPECT_EQ(value.WholeUnits(), c.units) << c.text;
    EXPECT_EQ(value.Hundredths(), c.hundredths) << c.text;
  }
}

TEST(Currency, TextAndNumbersRoundHalfToEvenAtTheFourthDecimal) {
  EXPECT_EQ(Currency::Parse("1.23455").Scaled(), 12346);
  EXPECT_EQ(Currency::Parse("1.23445").Scaled(), 12344);
  EXPECT_EQ(Currency::Parse("1.234450001").Scaled(), 12345);
  EXPECT_EQ(Currency::Parse("-0.00005").Scaled(), 0);
  EXPECT_EQ(Currency::Parse("+.5").Scaled(), 5000);
  EXPECT_EQ(Currency::FromNumber(0.1 + 0.2).Scaled(), 3000);
  EXPECT_EQ(Currency::FromNumber(-2.00005).Scaled(), -20000);
  EXPECT_EQ(Currency::Parse("-922337203685477.5808").Scaled(),
            std::numeric_limits<std::int64_t>::min());
}

TEST(Currency, PrintsWithoutTrailingZerosAndReadsBackTheSame) {
  for (const char* text :
       {"0", "12", "-0.5", "1234.5678", "922337203685477.5807", "-922337203685477.5808"}) {
    EXPECT_EQ(Currency::Parse(text).ToString(), text);
  }
  EXPECT_EQ(Currency::Parse("7.2500").ToString(), "7.25");
}

TEST(Currency, ItsRangeAndItsNumbersAreEnforced) {
  EXPECT_EQ(ErrorOf([] { Currency::Parse("922337203685477.5808"); }), errnum::kOverflow);
  EXPECT_EQ(ErrorOf([] { Currency::Parse("922337203685477.58075"); }), errnum::kOverflow);
  EXPECT_EQ(ErrorOf([] { Currency::FromNumber(1e300); }), errnum::kOverflow);
  EXPECT_EQ(ErrorOf([] { Currency::FromNumber(std::numeric_limits<double>::quiet_NaN()); }),
            errnum::kOverflow);
  EXPECT_EQ(ErrorOf([] { Currency::Parse("12,5"); }), errnum::kTypeMismatch);
  EXPECT_EQ(ErrorOf([] { Currency::Parse("-"); }), errnum::kTypeMismatch);
  EXPECT_EQ(ErrorOf([] { Currency::Parse("1.2.3"); }), errnum::kTypeMismatch);
  EXPECT_EQ(ErrorOf([] { Currency::Parse("1e3"); }), errnum::kTypeMismatch);
  const Currency most = Currency::FromScaled(std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(ErrorOf([] {
              (void)(Currency::FromScaled(std::numeric_limits<std::int64_t>::max()) +
                     Currency::FromScaled(1));
            }),
            errnum::kOverflow);
  EXPECT_EQ((most - most).Scaled(), 0);
}

}  // namespace
}  // namespace pelkedit
