#include "editor_fixture.h"

namespace pelkedit::testing {
namespace {

const Date kStart = Date::FromCivil(2024, 1, 10);
const Date kWwih = Date::FromCivil(2024, 6, 30);
const char* const kDirtyLines[] = {"rec.Set DirtyFlag=True", "rec.Set CleanFlag=False",
                                   "rec.Set ModifiedDate=2024-03-05T14:07:09"};

class EssentialsTest : public EditorTest {
 protected:
  bool Selected(const std::string& option) { return Widget<OptionButton>(option).Value(); }
  void TypeDate(const Date& date) {
    auto& field = Widget<DateEdit>("deWwih");
    field.SetFocus();
    ASSERT_TRUE(field.UserSetDay(date.DayNumber()));
    edit->Widgets().MoveFocus(nullptr);
  }
  void ExpectInvalidDateMessage() {
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].text, "WWIH date must be greater or equal to Start Date.");
    EXPECT_EQ(platform.boxes[0].title, "Invalid date");
    EXPECT_EQ(platform.boxes[0].icon, MsgIcon::kExclamation);
    EXPECT_EQ(platform.boxes[0].buttons, MsgButtons::kOk);
  }
  // The record lines an accepted WWIH date writes, in order.
  static Journal DateCommit(const Date& date) {
    const std::string iso = date.ToIso();
    Journal lines = {"adv.Set WwihDate=" + iso,      "adv.Evaluate",
                     "rec.Set WwihDate=" + iso,      "rec.Set AdvisorPriority=3",
                     "rec.Set AdvisorWih=1",         "rec.Set AdvisorWwgi=1",
                     "rec.Set AdvisorExtraResult=0", "rec.Set UserPriority=3"};
    lines.insert(lines.end(), std::begin(kDirtyLines), std::end(kDirtyLines));
    return lines;
  }
};

TEST_F(EssentialsTest, LoadSelectsTheStoredAnswersAndWritesNothingBack) {
  world.record->props["WWGI"] = std::int32_t{2};
  Create();
  Forget();
  edit->ShowIbo(kIboId, 0);
  EXPECT_TRUE(Selected("optWihMedium"));
  EXPECT_FALSE(Selected("optWihLow") || Selected("optWihHigh"));
  EXPECT_TRUE(Selected("optWwgiHigh"));
  EXPECT_FALSE(Selected("optWwgiLow") || Selected("optWwgiMedium"));
  // The selections fire the click handlers, which write nothing while loading.
  EXPECT_TRUE(world.trace->Entered(Proc("optWwgiHigh_Click")));
  EXPECT_FALSE(world.trace->Entered(Proc("UpdateUserWWGI")));
  for (const std::string& line : world.journal) {
    EXPECT_TRUE(line.rfind("adv.", 0) == 0 || line == "rec.Set AdvisorWih=1" ||
                line == "rec.Set AdvisorWwgi=1" || line == "rec.Set AdvisorPriority=3")
        << line;
  }
  EXPECT_EQ(Rec("DirtyFlag"), Variant(false));
  EXPECT_FALSE(edit->IboChanged());
  const auto& field = Widget<DateEdit>("deWwih");
  EXPECT_EQ(field.MinDay(), 1460);
  EXPECT_EQ(field.MaxDay(), 48211);
  EXPECT_EQ(field.Day(), kWwih.DayNumber());
  EXPECT_EQ(Widget<PictureBox>("picPmUserSqr").Left(), 63);
  EXPECT_EQ(Widget<PictureBox>("picPmUserSqr").Top(), 2);
}

TEST_F(EssentialsTest, CodesOutsideTheScaleLeaveTheButtonsAsTheyWere) {
  world.record->props["WIH"] = std::int32_t{2};
  world.record->props["WWGI"] = std::int32_t{0};
  Load();
  world.record->props["WIH"] = std::int32_t{3};
  world.record->props["WWGI"] = std::int32_t{-1};
  Load();
  EXPECT_TRUE(Selected("optWihHigh"));
  EXPECT_TRUE(Selected("optWwgiLow"));
  EXPECT_FALSE(Selected("optWihLow") || Selected("optWihMedium"));
  EXPECT_FALSE(edit->IboChanged());
}

TEST_F(EssentialsTest, AnswerGoesToTheEngineFirstThenTheRecordAndRedrawsTheTab) {
  Load();
  FakeAdvisor& engine = world.Advisor();
  engine.values["AdvisorWih"] = std::int32_t{2};
  engine.values["AdvisorWwgi"] = std::int32_t{0};
  engine.values["AdvisorPriority"] = std::int32_t{5};
  engine.values["UserPriority"] = std::int32_t{4};
  Widget<OptionButton>("optWihHigh").UserClick();
  Journal expected = {"adv.Set WIH=2",         "adv.Evaluate",          "rec.Set WIH=2",
                      "rec.Set AdvisorWih=2",  "rec.Set AdvisorWwgi=0", "rec.Set AdvisorPriority=5",
                      "rec.Set UserPriority=4"};
  expected.insert(expected.end(), std::begin(kDirtyLines), std::end(kDirtyLines));
  EXPECT_EQ(world.journal, expected);
  EXPECT_TRUE(edit->IboChanged());
  EXPECT_EQ(Widget<PictureBox>("picPmUserSqr").Left(), 101);
  EXPECT_EQ(Widget<PictureBox>("picPmUserSqr").Top(), 40);
  EXPECT_EQ(Widget<PictureBox>("picUserPriority").Picture(), 116);

  // An exempt record keeps its flags but still records the change.
  world.record->props["DirtyExempt"] = true;
  world.journal.clear();
  Widget<OptionButton>("optWwgiLow").UserClick();
  EXPECT_EQ(Count("rec.Set DirtyFlag=True"), 0);
  EXPECT_EQ(Count("rec.Set ModifiedDate=2024-03-05T14:07:09"), 1);
  EXPECT_EQ(Widget<PictureBox>("picPmUserSqr").Top(), 78);
}

TEST_F(EssentialsTest, TypedDateIsCheckedAgainstTheStartAndStoredOnlyWhenChanged) {
  Load();
  TypeDate(kWwih);
  EXPECT_TRUE(world.journal.empty());
  EXPECT_FALSE(edit->IboChanged());

  TypeDate(Date::FromCivil(2024, 1, 9));
  ExpectInvalidDateMessage();
  EXPECT_EQ(Widget<DateEdit>("deWwih").Day(), kWwih.DayNumber());
  EXPECT_TRUE(world.journal.empty());
  EXPECT_FALSE(edit->IboChanged());

  TypeDate(kStart);
  EXPECT_EQ(world.journal, DateCommit(kStart));
  EXPECT_TRUE(edit->IboChanged());
}

TEST_F(EssentialsTest, CalendarPickIsAppliedEvenWhenTheDateIsUnchanged) {
  Load();
  auto& calendar = Widget<Calendar>("dtWwih");
  Widget<DateEdit>("deWwih").UserDrop();
  EXPECT_TRUE(calendar.Visible());
  EXPECT_EQ(calendar.Day(), kWwih.DayNumber());
  calendar.UserDateClick(2024, 6, 30);
  EXPECT_FALSE(calendar.Visible());
  EXPECT_EQ(world.journal, DateCommit(kWwih));
  EXPECT_TRUE(edit->IboChanged());

  world.journal.clear();
  Widget<DateEdit>("deWwih").UserDrop();
  calendar.UserDateClick(2024, 1, 9);
  ExpectInvalidDateMessage();
  EXPECT_FALSE(calendar.Visible());
  EXPECT_TRUE(world.journal.empty());
  EXPECT_EQ(Widget<DateEdit>("deWwih").Day(), kWwih.DayNumber());

  Widget<DateEdit>("deWwih").UserDrop();
  edit->Widgets().MoveFocus(nullptr);
  EXPECT_FALSE(calendar.Visible());
}

}  // namespace
}  // namespace pelkedit::testing
