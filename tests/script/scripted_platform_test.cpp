#include "scripted_platform.h"

#include <gtest/gtest.h>

#include "platform/modal_dialog.h"
#include "values/error.h"
#include "widgets/controls.h"

namespace pelkscript {
namespace {

using pelkedit::MsgAnswer;
using pelkedit::MsgButtons;
using pelkedit::MsgIcon;

constexpr std::int32_t kBufferLength = 255;
constexpr std::int32_t kHalfBuffer = 128;

class ScriptedPlatformTest : public ::testing::Test {
 protected:
  ScriptedPlatformTest() {
    platform.onUnansweredBox = [this](const std::string& p) { problems.push_back(p); };
  }
  // The date-order text as the editor reads it: a 255-character buffer, half its size.
  std::string DateOrder() {
    std::string buffer(kBufferLength, ' ');
    const auto count = platform.GetLocaleInfoA(pelkedit::kLocaleUserDefault, pelkedit::kLocaleIDate,
                                               buffer, kHalfBuffer);
    if (count == 0) return "<failed>";
    return buffer.substr(0, static_cast<std::size_t>(count - 1));
  }

  WorldLog log;
  FaultInjector faults;
  pelkedit::ObjectFactory factory;
  ScriptedPlatform platform{log, faults, factory};
  std::vector<std::string> problems;
};

TEST_F(ScriptedPlatformTest, DateOrderFollowsTheShortDateFormat) {
  EXPECT_EQ(DateOrder(), "0");
  platform.SetShortDateFormat("d/M/yyyy");
  EXPECT_EQ(DateOrder(), "1");
  platform.SetShortDateFormat("yyyy-MM-dd");
  EXPECT_EQ(DateOrder(), "2");
  platform.SetShortDateFormat("dd.MM.yy");
  EXPECT_EQ(platform.ShortDateFormat(), "dd.MM.yy");
  EXPECT_EQ(DateOrder(), "1");
  platform.SetLocaleFails();
  EXPECT_EQ(DateOrder(), "<failed>");
  platform.SetLocaleAnswer("x1");
  EXPECT_EQ(DateOrder(), "x1");
  // A new format brings the derived answer back.
  platform.SetShortDateFormat("M/d/yyyy");
  EXPECT_EQ(DateOrder(), "0");
}

TEST_F(ScriptedPlatformTest, LocaleQueryHonoursTheSizeAndItsArguments) {
  std::string buffer(kBufferLength, ' ');
  // Room for the digit but not for the terminating zero: the query fails.
  EXPECT_EQ(
      platform.GetLocaleInfoA(pelkedit::kLocaleUserDefault, pelkedit::kLocaleIDate, buffer, 1), 0);
  // Size 0 asks how much room the answer needs.
  EXPECT_EQ(
      platform.GetLocaleInfoA(pelkedit::kLocaleUserDefault, pelkedit::kLocaleIDate, buffer, 0), 2);
  EXPECT_EQ(buffer, std::string(kBufferLength, ' '));
  EXPECT_EQ(platform.GetLocaleInfoA(pelkedit::kLocaleUserDefault, 0x1F, buffer, kHalfBuffer), 0);
  std::string empty;
  EXPECT_EQ(platform.GetLocaleInfoA(pelkedit::kLocaleUserDefault, pelkedit::kLocaleIDate, empty,
                                    kHalfBuffer),
            2);
  EXPECT_EQ(empty[0], '0');
}

TEST_F(ScriptedPlatformTest, ClockGivesNowAndToday) {
  EXPECT_EQ(platform.Now(), DefaultClock());
  platform.SetClock(pelkedit::Date::FromCivil(2026, 11, 22, 9, 30, 0));
  EXPECT_EQ(platform.Now().ToIso(), "2026-11-22T09:30:00");
  EXPECT_EQ(platform.Today().ToIso(), "2026-11-22");
}

TEST_F(ScriptedPlatformTest, AnswersAreTakenInOrderAndOkBoxesLeaveOthersQueued) {
  platform.QueueAnswer(MsgAnswer::kNo);
  platform.QueueAnswer(MsgAnswer::kYes);
  EXPECT_EQ(platform.MsgBox("Saved.", MsgIcon::kInformation, MsgButtons::kOk, "Info"),
            MsgAnswer::kOk);
  EXPECT_EQ(platform.MsgBox("Save?", MsgIcon::kQuestion, MsgButtons::kYesNoCancel, "Pelkor"),
            MsgAnswer::kNo);
  EXPECT_EQ(platform.MsgBox("Sure?", MsgIcon::kQuestion, MsgButtons::kYesNo, ""), MsgAnswer::kYes);
  EXPECT_TRUE(problems.empty());
  EXPECT_EQ(log.Lines(WorldLog::Kind::kMessages),
            (std::vector<std::string>{
                "msgbox \"Saved.\" title \"Info\" icon information buttons ok -> OK",
                "msgbox \"Save?\" title \"Pelkor\" icon question buttons yesnocancel -> No",
                "msgbox \"Sure?\" title \"\" icon question buttons yesno -> Yes"}));
}

TEST_F(ScriptedPlatformTest, UnansweredOrMisfitAnswersAreReportedAndCancel) {
  EXPECT_EQ(platform.MsgBox("Save?", MsgIcon::kQuestion, MsgButtons::kYesNoCancel, ""),
            MsgAnswer::kCancel);
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_NE(problems[0].find("unanswered"), std::string::npos);
  platform.QueueAnswer(MsgAnswer::kOk);
  EXPECT_EQ(platform.MsgBox("Sure?", MsgIcon::kQuestion, MsgButtons::kYesNo, ""), MsgAnswer::kNo);
  EXPECT_EQ(problems.size(), 2U);
}

// A dialog the runner knows nothing of: save closes it when the day is in bounds.
class DayDialog : public pelkedit::ModalDialog {
 public:
  DayDialog() {
    auto& day = Widgets().Make<pelkedit::DateField>("dteStartDate");
    day.SetMinDay(10);
    day.SetMaxDay(20);
    Widgets().Make<pelkedit::Button>("cmdSave").onClick = [this] {
      saved = true;
      Close();
    };
    Widgets().Make<pelkedit::Button>("cmdCancel").onClick = [this] { Close(); };
  }
  std::string Name() const override { return "dlgDay"; }
  std::string DefaultButton() const override { return "cmdSave"; }
  std::string CancelButton() const override { return "cmdCancel"; }
  std::vector<std::string> InputFields() const override { return {"dteStartDate"}; }
  std::string Caption() const override { return "Change Start Date"; }
  int WidthPixels() const override { return 1; }
  int HeightPixels() const override { return 1; }
  int Day() { return Widgets().Get<pelkedit::DateField>("dteStartDate").Day(); }
  bool loaded = false;
  bool saved = false;

 protected:
  void OnLoad() override { loaded = true; }
};

TEST_F(ScriptedPlatformTest, AnyDialogRunsItsQueuedStepsWhileOpen) {
  using Kind = DialogStep::Kind;
  platform.QueueDialog("dlgDay", {DialogStep(0, 15), DialogStep(0, 99), DialogStep(Kind::kAccept),
                                  DialogStep(0, 11)});
  DayDialog first;
  platform.ShowModal(first);
  EXPECT_TRUE(first.loaded);
  EXPECT_TRUE(first.saved);
  // 99 is outside the bounds and refused; the step after the dialog closed never runs.
  EXPECT_EQ(first.Day(), 15);
  EXPECT_FALSE(first.IsOpen());

  DayDialog second;  // nothing queued: closed with the close box at once
  platform.ShowModal(second);
  EXPECT_TRUE(second.loaded);
  EXPECT_FALSE(second.saved);
  EXPECT_FALSE(second.IsOpen());
  EXPECT_EQ(log.Lines(WorldLog::Kind::kCalls),
            (std::vector<std::string>{"dialog dlgDay shown", "dialog dlgDay shown"}));
}

TEST_F(ScriptedPlatformTest, HostCallsAreRecordedAndCanBeMadeToFail) {
  platform.PostMessage(kScriptedHostWindow, pelkedit::kWmClose, 0, 0);
  platform.StartProcess("keyhh.exe -#mapid 12 \"C:\\help.chm\"");
  EXPECT_EQ(log.Lines(WorldLog::Kind::kCalls),
            (std::vector<std::string>{"platform.PostMessage 16 0 0",
                                      "platform.StartProcess \"keyhh.exe -#mapid 12 "
                                      "\\\"C:\\\\help.chm\\\"\""}));
  faults.Arm("platform", "MsgBox");
  try {
    platform.MsgBox("x", MsgIcon::kNone, MsgButtons::kOk, "");
    FAIL() << "the armed failure did not fire";
  } catch (const pelkedit::PelkError& e) {
    EXPECT_EQ(e.Number(), 5);
    EXPECT_EQ(e.Description(), "injected: platform.MsgBox");
  }
  EXPECT_EQ(platform.MsgBox("x", MsgIcon::kNone, MsgButtons::kOk, ""), MsgAnswer::kOk);

  factory.Register("Test.Object", [] { return std::make_shared<pelkedit::ComObject>(); });
  EXPECT_NE(platform.CreateObject("Test.Object"), nullptr);
  factory.FailCreate("Test.Object");
  try {
    platform.CreateObject("Test.Object");
    FAIL() << "creation did not fail";
  } catch (const pelkedit::PelkError& e) {
    EXPECT_EQ(e.Number(), 429);
  }
}

}  // namespace
}  // namespace pelkscript
