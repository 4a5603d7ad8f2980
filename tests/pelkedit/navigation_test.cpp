#include "editor_fixture.h"

namespace pelkedit::testing {
namespace {

struct Hit {
  float x;
  std::int32_t tab;
};

const char* const kMainFrames[] = {"fraMainEssentials", "fraMainSalesAdvisor",
                                   "fraMainSalesEnvironment", "fraMainIBOInfo", "fraMainIBONote"};

class NavigationTest : public EditorTest {
 protected:
  void ExpectMainTab(float x, std::int32_t tab, std::int32_t picture) {
    PressMainTab(x);
    EXPECT_EQ(edit->State().mainTab, tab) << "x=" << x;
    EXPECT_EQ(Widget<PictureBox>("picMainTab").Picture(), picture) << "x=" << x;
    for (std::int32_t i = 0; i < 5; ++i) {
      EXPECT_EQ(Visible(kMainFrames[i]), i == tab) << "x=" << x << " frame " << kMainFrames[i];
    }
  }
};

TEST_F(NavigationTest, ExpertStripBandsRoundHalvesToEven) {
  world.record->props["ExpertMode"] = true;
  Load();
  EXPECT_EQ(Widget<PictureBox>("picMainTab").Width(), 405 * kTwipsPerPixel);
  for (const Hit hit :
       {Hit{0, 0}, Hit{81, 0}, Hit{81.5F, 1}, Hit{82, 1}, Hit{82.5F, 1}, Hit{162, 1}, Hit{163, 2},
        Hit{263, 2}, Hit{264, 3}, Hit{347, 3}, Hit{348, 4}, Hit{404, 4}}) {
    ExpectMainTab(hit.x, hit.tab, 101 + hit.tab);
  }
}

TEST_F(NavigationTest, NormalStripHasNoSalesEnvironmentTab) {
  Load();
  EXPECT_EQ(Widget<PictureBox>("picMainTab").Width(), 305 * kTwipsPerPixel);
  const std::int32_t pictures[] = {106, 107, 0, 108, 109};
  for (const Hit hit : {Hit{82, 0}, Hit{81.5F, 0}, Hit{82.5F, 0}, Hit{83, 1}, Hit{163, 1},
                        Hit{164, 3}, Hit{200, 3}, Hit{247, 3}, Hit{248, 4}, Hit{304, 4}}) {
    ExpectMainTab(hit.x, hit.tab, pictures[hit.tab]);
  }
}

TEST_F(NavigationTest, SubTabBandsSwitchPhasesAndSurviveALoad) {
  world.record->props["ExpertMode"] = true;
  Load();
  PressMainTab(200);
  const char* const frames[] = {"fraMainSEnvProbe", "fraMainSEnvProve", "fraMainSEnvClose"};
  for (const Hit hit : {Hit{43, 0}, Hit{43.5F, 1}, Hit{44, 1}, Hit{88, 1}, Hit{88.5F, 1},
                        Hit{89, 2}, Hit{127, 2}}) {
    Widget<PictureBox>("picSEnvTab").UserMouseDown(2, 0, hit.x, 3);
    EXPECT_EQ(edit->State().sEnvTab, hit.tab) << "x=" << hit.x;
    EXPECT_EQ(Widget<PictureBox>("picSEnvTab").Picture(), 110 + hit.tab) << "x=" << hit.x;
    for (std::int32_t i = 0; i < 3; ++i) EXPECT_EQ(Visible(frames[i]), i == hit.tab);
  }
  Load();
  EXPECT_EQ(edit->State().mainTab, 0);
  EXPECT_EQ(edit->State().sEnvTab, 2);
  EXPECT_EQ(Widget<PictureBox>("picMainTab").Picture(), 101);
}

TEST_F(NavigationTest, LeavingEssentialsCollectsNothingAndPressingTheCurrentTabSwitchesAgain) {
  Load();
  const Date typed = Date::FromCivil(2024, 8, 1);
  ASSERT_TRUE(Widget<DateEdit>("deWwih").UserSetDay(typed.DayNumber()));
  PressMainTab(100);
  EXPECT_EQ(Rec("WwihDate"), Variant(Date::FromCivil(2024, 6, 30)));
  EXPECT_EQ(world.Advisor().evaluations, 2);  // one at the load, one entering the tab
  PressMainTab(100);
  EXPECT_EQ(world.Advisor().evaluations, 3);
  EXPECT_EQ(world.trace->Of(FakeTrace::Kind::kReport).size(), 0u);

  world.record->props["WIH"] = std::int32_t{0};  // entering Essentials redraws the matrix
  PressMainTab(10);
  EXPECT_EQ(Widget<PictureBox>("picPmUserSqr").Left(), 25);
  EXPECT_EQ(Widget<DateEdit>("deWwih").Day(), typed.DayNumber());
  EXPECT_FALSE(edit->IboChanged());
}

// Records when the editor fills and collects it, in the trace's order of events.
class JournalPage : public TabPage {
 public:
  JournalPage(std::string name, FakeTrace& trace) : name_(std::move(name)), trace_(trace) {}
  void Init() override { trace_.EnterProc("page " + name_ + " Init"); }
  void Save() override { trace_.EnterProc("page " + name_ + " Save"); }
  void Refresh() override { trace_.EnterProc("page " + name_ + " Refresh"); }

 private:
  std::string name_;
  FakeTrace& trace_;
};

TEST_F(NavigationTest, LeavingATabCollectsItBeforeTheNextTabIsPrepared) {
  Create();
  for (auto [id, name] : {std::pair{TabPageId::kProbe, "Probe"},
                          {TabPageId::kClose, "Close"},
                          {TabPageId::kInfo, "Info"},
                          {TabPageId::kNote, "Note"}}) {
    edit->InstallPage(id, std::make_unique<JournalPage>(name, *world.trace));
  }
  world.record->props["ExpertMode"] = true;
  Load();
  const auto order = [&](const std::string& first, const std::string& second) {
    const auto& calls = world.trace->calls;
    const auto find = [&](const std::string& what) {
      return std::find_if(calls.begin(), calls.end(),
                          [&](const auto& call) { return call.proc == what; });
    };
    const auto a = find(first);
    const auto b = find(second);
    return a != calls.end() && b != calls.end() && a < b;
  };

  PressMainTab(390);  // IBO Note
  Forget();
  PressMainTab(10);
  EXPECT_TRUE(order("page Note Save", Proc("InitEssentialsTab")));

  PressMainTab(300);  // IBO Info
  Forget();
  PressMainTab(100);
  EXPECT_TRUE(order("page Info Save", Proc("InitSalesAdvisorTab")));

  // The Sales Environment collects the phase shown: Probe, nothing for Prove, Close.
  PressMainTab(200);
  Forget();
  PressMainTab(10);
  EXPECT_TRUE(order("page Probe Save", Proc("InitEssentialsTab")));
  PressMainTab(200);
  Widget<PictureBox>("picSEnvTab").UserMouseDown(1, 0, 110, 5);  // Close
  Forget();
  PressMainTab(100);
  EXPECT_TRUE(order("page Close Save", Proc("InitSalesAdvisorTab")));
  PressMainTab(200);
  Widget<PictureBox>("picSEnvTab").UserMouseDown(1, 0, 60, 5);  // Prove
  Forget();
  PressMainTab(10);
  EXPECT_TRUE(std::none_of(world.trace->calls.begin(), world.trace->calls.end(),
                           [](const auto& call) { return call.proc.rfind("page", 0) == 0; }));
}

}  // namespace
}  // namespace pelkedit::testing
