#include "editor_fixture.h"
#include "locale/mod_locale.h"

namespace pelkedit::testing {
namespace {

const Date kStart = Date::FromCivil(2024, 1, 10);
const Date kWwih = Date::FromCivil(2024, 6, 30);

class HostChangesTest : public EditorTest {
 protected:
  // Queues what the user does in the start-date dialog.
  void InDialog(std::function<void(ModalDialog&)> script) {
    platform.dialogScripts.push_back(std::move(script));
  }
  static void Enter(ModalDialog& dialog, const Date& date) {
    ASSERT_TRUE(dialog.Widgets().Get<DateField>("dteStartDate").UserSetDay(date.DayNumber()));
  }
  static void Click(ModalDialog& dialog, const char* button) {
    dialog.Widgets().Get<Button>(button).UserClick();
  }
  void ExpectNoChange() {
    EXPECT_TRUE(world.journal.empty()) << world.journal.front();
    EXPECT_TRUE(events.raised.empty());
    EXPECT_FALSE(edit->IboChanged());
    EXPECT_EQ(Rec("StartDate"), Variant(kStart));
  }
};

TEST_F(HostChangesTest, StartDateDialogCancelledOrUnchangedChangesNothing) {
  Load();
  std::int32_t shown = 0;
  InDialog([&](ModalDialog& d) { shown = d.Widgets().Get<DateField>("dteStartDate").Day(); });
  edit->IboChangeStartDate();  // closed by the window's close box
  EXPECT_EQ(shown, kStart.DayNumber());
  ExpectNoChange();

  InDialog([](ModalDialog& d) { Click(d, "cmdSave"); });
  edit->IboChangeStartDate();
  ExpectNoChange();

  InDialog([](ModalDialog& d) {
    Enter(d, kWwih);
    Click(d, "cmdCancel");
  });
  edit->IboChangeStartDate();
  ExpectNoChange();
  EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(HostChangesTest, StartDateMayReachButNotPassTheWwihDate) {
  Load();
  bool stayedOpen = false;
  InDialog([&](ModalDialog& d) {
    Enter(d, GetDateFromLong(kWwih.DayNumber() + 1));
    Click(d, "cmdSave");
    stayedOpen = d.IsOpen();
    Click(d, "cmdCancel");
  });
  edit->IboChangeStartDate();
  EXPECT_TRUE(stayedOpen);
  ASSERT_EQ(platform.boxes.size(), 1u);
  EXPECT_EQ(platform.boxes[0].text, "IBO start date must be less or equal to WWIH date.");
  EXPECT_EQ(platform.boxes[0].title, "Invalid date entered");
  EXPECT_EQ(platform.boxes[0].icon, MsgIcon::kExclamation);
  EXPECT_EQ(platform.boxes[0].buttons, MsgButtons::kOk);
  ExpectNoChange();

  world.Advisor().values["UserPriority"] = std::int32_t{2};
  InDialog([](ModalDialog& d) {
    Enter(d, kWwih);
    Click(d, "cmdSave");
  });
  edit->IboChangeStartDate();
  const Journal expected = {"adv.Set StartDate=2024-06-30",
                            "adv.Evaluate",
                            "rec.Set StartDate=2024-06-30",
                            "rec.Set UserPriority=2",
                            "rec.Set AdvisorPriority=3",
                            "rec.Set AdvisorWih=1",
                            "rec.Set AdvisorWwgi=1",
                            "rec.Set AdvisorExtraResult=0",
                            "rec.Set DirtyFlag=True",
                            "rec.Set CleanFlag=False",
                            "rec.Set ModifiedDate=2024-03-05T14:07:09"};
  EXPECT_EQ(world.journal, expected);
  EXPECT_TRUE(edit->IboChanged());
  EXPECT_TRUE(events.raised.empty());
  EXPECT_EQ(Widget<PictureBox>("picUserPriority").Picture(), 114);  // Essentials redrawn
}

TEST_F(HostChangesTest, StatusChangeRepeatsEverythingAndTellsTheHost) {
  Load();
  const int evaluated = world.Advisor().evaluations;
  edit->IboChangeStatus(eEditStatusWon);
  const Journal first = {"adv.Set Status=2",
                         "adv.Set CloseDate=2024-03-05T14:07:09",
                         "rec.Set CloseDate=2024-03-05T14:07:09",
                         "adv.Evaluate",
                         "rec.Set Status=2",
                         "rec.Set AdvisorPriority=3",
                         "rec.Set AdvisorWih=1",
                         "rec.Set AdvisorWwgi=1",
                         "rec.Set AdvisorExtraResult=0",
                         "rec.Set DirtyFlag=True",
                         "rec.Set CleanFlag=False",
                         "rec.Set ModifiedDate=2024-03-05T14:07:09"};
  EXPECT_EQ(world.journal, first);
  platform.now = Date::FromCivil(2024, 3, 6, 9, 0, 0);
  edit->IboChangeStatus(eEditStatusWon);
  EXPECT_EQ(world.Advisor().evaluations, evaluated + 2);
  EXPECT_EQ(Count("rec.Set CloseDate=2024-03-06T09:00:00"), 1);
  const std::vector<std::string> raisedOnce = {"SetFormCaption:IBO#7     Status:   Won",
                                               "SetIBOStatus:2"};
  std::vector<std::string> twice = raisedOnce;
  twice.insert(twice.end(), raisedOnce.begin(), raisedOnce.end());
  EXPECT_EQ(events.raised, twice);
}

TEST_F(HostChangesTest, UpgradeToExpertAddsTheSalesEnvironmentTab) {
  Load();
  PressMainTab(200);
  ASSERT_EQ(edit->State().mainTab, 3);
  EXPECT_EQ(Widget<PictureBox>("picMainTab").Picture(), 108);
  edit->IboUpgradeToExpert();
  EXPECT_EQ(Widget<PictureBox>("picMainTab").Picture(), 104);
  EXPECT_EQ(events.raised, std::vector<std::string>{"SetExpertMode:True"});
  EXPECT_EQ(world.journal.at(0), "adv.Set ExpertMode=True");
  EXPECT_EQ(world.journal.at(2), "rec.Set ExpertMode=True");
  EXPECT_EQ(Count("rec.Set UserPriority=3"), 0);
  EXPECT_TRUE(Visible("cmdAdvisorSays"));
  EXPECT_TRUE(edit->IboChanged());
  PressMainTab(200);
  EXPECT_EQ(edit->State().mainTab, 2);
  EXPECT_EQ(Widget<PictureBox>("picMainTab").Picture(), 103);
  EXPECT_TRUE(Visible("fraMainSalesEnvironment"));

  Forget();
  edit->IboUpgradeToExpert();
  ASSERT_EQ(platform.boxes.size(), 1u);
  EXPECT_EQ(platform.boxes[0].text, "The current IBO record is already in Expert Advisor mode.");
  EXPECT_EQ(platform.boxes[0].title, "Expert Mode");
  EXPECT_EQ(platform.boxes[0].icon, MsgIcon::kInformation);
  EXPECT_EQ(platform.boxes[0].buttons, MsgButtons::kOk);
  EXPECT_TRUE(events.raised.empty());
  EXPECT_TRUE(world.journal.empty());
}

TEST_F(HostChangesTest, UpgradeOnTheSalesAdvisorTabRebuildsTheAdviceForExperts) {
  world.advisorResults["BasicAdviceTitle"] = "Basic";
  world.advisorResults["ExpertAdviceTitle"] = "Expert";
  Load();
  PressMainTab(100);
  EXPECT_EQ(Widget<RichTextBox>("rtfAdvisorMsg").Text(), "Basic\r\n");
  edit->IboUpgradeToExpert();
  EXPECT_EQ(Widget<RichTextBox>("rtfAdvisorMsg").Text(), "Expert\r\n\r\n");
}

}  // namespace
}  // namespace pelkedit::testing
