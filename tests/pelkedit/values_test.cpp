#include "control/record_saving.h"
#include "editor_fixture.h"
#include "locale/mod_locale.h"
#include "values/error.h"

namespace pelkedit::testing {
namespace {

// Built during static initialisation, before any test runs.
const Date kEarlyDate = Date::FromCivil(2000, 1, 2);

TEST(DayNumbers, CountFrom1900WithoutALeapDayThatYear) {
  EXPECT_EQ(kEarlyDate.DayNumber(), 36525);
  EXPECT_EQ(GetDateFromLong(0).ToIso(), "1900-01-01");
  EXPECT_EQ(GetDateFromLong(1460).ToIso(), "1904-01-01");
  EXPECT_EQ(GetDateFromLong(36525).ToIso(), "2000-01-02");
  EXPECT_EQ(GetDateFromLong(48211).ToIso(), "2031-12-31");
  EXPECT_EQ(GetDateFromLong(-1).ToIso(), "1899-12-31");
  EXPECT_EQ(GetDateFromLong(-2).ToIso(), "1899-12-30");
  EXPECT_EQ(DayNumberOf(Date::FromCivil(1900, 3, 1)), 59);
  EXPECT_EQ(DayNumberOf(Date::FromCivil(1899, 12, 30)), -2);
  EXPECT_EQ(DayNumberOf(Date::FromCivil(2000, 1, 2, 23, 59, 59)), 36525);
}

TEST_F(EditorTest, UserDateOrderComesFromTheLocaleWithAHalfSizedBuffer) {
  platform.localeFails = true;
  EXPECT_EQ(GetUserDateOrder(platform), 0);
  platform.localeFails = false;
  platform.shortDateFormat = "d/M/yyyy";
  EXPECT_EQ(GetUserDateOrder(platform), 1);
  platform.shortDateFormat = "yyyy-MM-dd";
  EXPECT_EQ(GetUserDateOrder(platform), 2);
  EXPECT_EQ(platform.localeSizes, (std::vector<std::int32_t>{128, 128, 128}));

  platform.localeText = "x";
  try {
    GetUserDateOrder(platform);
    FAIL() << "non-numeric order accepted";
  } catch (const PelkError& e) {
    EXPECT_EQ(e.Number(), errnum::kTypeMismatch);
  }
}

TEST_F(EditorTest, DateFieldsTakeTheUserOrderAndABadAnswerIsReportedAtCreation) {
  platform.shortDateFormat = "d/M/yyyy";
  Create();
  EXPECT_EQ(Widget<DateEdit>("deWwih").DateOrder(), 1);
  EXPECT_EQ(Widget<DateEdit>("deCloseDateEdit").DateOrder(), 1);
  edit.reset();

  platform.localeText = "x";
  world.trace->calls.clear();
  Create();
  const auto reports = world.trace->Of(FakeTrace::Kind::kReport);
  ASSERT_EQ(reports.size(), 2u);
  EXPECT_EQ(reports[0].number, errnum::kTypeMismatch);
  EXPECT_EQ(reports[1].number, errnum::kTypeMismatch);
  EXPECT_EQ(Widget<DateEdit>("deWwih").DateOrder(), 0);
  EXPECT_TRUE(world.trace->Left(Proc("UserControl_Initialize")));
  EXPECT_TRUE(Visible("fraMainEssentials"));
}

TEST_F(EditorTest, ValidateFieldTurnsLineBreaksToBlanksFromTheEndThenTrimsAndCuts) {
  EXPECT_EQ(ValidateField("a\r\nb\r\nc", 4), "a b ");
  EXPECT_EQ(ValidateField("a\r\nb\r\nc", 7), "a\r\nb\r\nc");
  EXPECT_EQ(ValidateField("a\r\nb\r\nc", 6), "a\r\nb c");
  EXPECT_EQ(ValidateField("a\r\nb\r\nc\r\nd", 8), "a\r\nb c d");
  EXPECT_EQ(ValidateField("  ab  ", 6), "  ab  ");
  EXPECT_EQ(ValidateField("  ab  ", 5), "ab");
  EXPECT_EQ(ValidateField("\r\n\r\nab", 3), "ab");
  EXPECT_EQ(ValidateField("ab\rc\nd", 5), "ab\rc\n");  // lone CR and LF are not line breaks
  // Lengths count characters; a cut never splits one.
  EXPECT_EQ(ValidateField("\xC3\xA9\xC3\xA9\xC3\xA9", 3), "\xC3\xA9\xC3\xA9\xC3\xA9");
  EXPECT_EQ(ValidateField("\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", 3),
            "\xC3\xA9\xC3\xA9\xC3\xA9");
  EXPECT_EQ(ValidateField("\xE6\x97\xA5\xE6\x9C\xAC\r\n\xE8\xAA\x9E\xE8\xAA\x9E", 5),
            "\xE6\x97\xA5\xE6\x9C\xAC \xE8\xAA\x9E\xE8\xAA\x9E");
}

}  // namespace
}  // namespace pelkedit::testing
