#include "editor_fixture.h"

namespace pelkedit::testing {
namespace {

constexpr std::int32_t kRed = 255;
constexpr std::int32_t kIndent = 350;

class AdvisorTest : public EditorTest {
 protected:
  void Preset(const std::string& result, const Variant& value) {
    world.advisorResults[result] = value;
  }
  void AdvisorSays(bool down) {
    auto& button = Widget<Button>("cmdAdvisorSays");
    down ? button.UserMouseDown(1, 0, 5, 5) : button.UserMouseUp(1, 0, 5, 5);
  }
  void ExpectSquare(const char* square, bool visible, float left = 0, float top = 0) {
    const auto& picture = Widget<PictureBox>(square);
    EXPECT_EQ(picture.Visible(), visible) << square;
    if (!visible) return;
    EXPECT_EQ(picture.Left(), left) << square;
    EXPECT_EQ(picture.Top(), top) << square;
  }
  void ExpectFormat(std::int32_t from, std::int32_t to, const CharFormat& format) {
    const auto& box = Widget<RichTextBox>("rtfAdvisorMsg");
    for (std::int32_t i = from; i < to; ++i) {
      EXPECT_EQ(box.FormatAt(i), format) << "character " << i << " of " << box.Text();
    }
  }
  const std::string& AdviceText() { return Widget<RichTextBox>("rtfAdvisorMsg").Text(); }
  bool EngineAskedForAdvice() const {
    for (const auto& engine : world.advisors) {
      for (const std::string& name : engine->gets) {
        if (name.find("Advice") != std::string::npos) return true;
      }
    }
    return false;
  }
};

const CharFormat kPlain{};
const CharFormat kBold{true, false, 0, false, 0};

TEST_F(AdvisorTest, MatrixAndPriorityShowTheUserUntilAdvisorSaysIsHeld) {
  world.record->props["WIH"] = std::int32_t{2};
  world.record->props["WWGI"] = std::int32_t{0};
  Preset("AdvisorWih", std::int32_t{2});
  Preset("AdvisorWwgi", std::int32_t{0});
  Preset("UserPriority", std::int32_t{4});
  Preset("AdvisorPriority", std::int32_t{5});
  Load();
  ExpectSquare("picPmUserSqr", true, 101, 78);
  ExpectSquare("picPmAdvSqr", false);
  ExpectSquare("picPmCmnSqr", false);
  EXPECT_EQ(Widget<PictureBox>("picUserPriority").Picture(), 116);
  EXPECT_FALSE(Visible("picAdvPriority"));

  AdvisorSays(true);  // the advisor agrees
  ExpectSquare("picPmUserSqr", false);
  ExpectSquare("picPmAdvSqr", false);
  ExpectSquare("picPmCmnSqr", true, 101, 78);
  EXPECT_EQ(Widget<PictureBox>("picAdvPriority").Picture(), 122);
  EXPECT_TRUE(Visible("picAdvPriority"));
  EXPECT_FALSE(Visible("picUserPriority"));
  AdvisorSays(false);
  ExpectSquare("picPmUserSqr", true, 101, 78);
  ExpectSquare("picPmAdvSqr", false);
  ExpectSquare("picPmCmnSqr", false);
  EXPECT_TRUE(Visible("picUserPriority"));
  EXPECT_FALSE(Visible("picAdvPriority"));

  world.record->props["AdvisorWih"] = std::int32_t{0};  // now it disagrees
  world.record->props["AdvisorWwgi"] = std::int32_t{2};
  AdvisorSays(true);
  ExpectSquare("picPmUserSqr", true, 101, 78);
  ExpectSquare("picPmAdvSqr", true, 25, 2);
  ExpectSquare("picPmCmnSqr", false);
  EXPECT_TRUE(world.trace->Of(FakeTrace::Kind::kReport).empty());
}

TEST_F(AdvisorTest, LoadGivesAFreshEngineTheRecordsFactsAndLeavesTheRecordClean) {
  Load();
  const std::vector<std::string> basic = {"Status", "CloseDate", "ExpertMode", "WIH",
                                          "WWGI",   "StartDate", "WwihDate"};
  std::vector<std::string> names;
  for (const auto& [name, value] : world.Advisor().facts) names.push_back(name);
  EXPECT_EQ(names, basic);
  EXPECT_EQ(world.advisors.size(), 2u);  // one at creation, one for the record

  world.record->props["ExpertMode"] = true;
  world.record->props["DmTechKnown"] = true;
  world.record->props["SEnvFunding"] = std::int32_t{2};
  Preset("AdvisorPriority", std::int32_t{1});
  Load();
  const auto& facts = world.Advisor().facts;
  ASSERT_EQ(facts.size(), 31u);
  EXPECT_EQ(facts[7].first, "SEnvBudgetMatch");
  EXPECT_EQ(facts[8].first, "SEnvCompetitorsKnown");
  EXPECT_EQ(facts[17], (std::pair<std::string, Variant>{"SEnvDmTechNameKnown", true}));
  EXPECT_EQ(facts[27], (std::pair<std::string, Variant>{"SEnvFunding", std::int32_t{2}}));
  EXPECT_EQ(facts[30].first, "TrialCloseFact");
  EXPECT_EQ(Rec("AdvisorPriority"), Variant(std::int32_t{1}));
  EXPECT_EQ(Rec("DirtyFlag"), Variant(false));
  EXPECT_FALSE(edit->IboChanged());
}

TEST_F(AdvisorTest, ExpertAdviceWithoutAlertShowsAStarredListAsBullets) {
  world.record->props["ExpertMode"] = true;
  Preset("ExpertAdviceTitle", "Title");
  Preset("ExpertAdviceHeading", "Next");
  Preset("ExpertAdviceBody", "Intro\r\n*one\r\n*two");
  Load();
  ASSERT_EQ(AdviceText(), "Title\r\n\r\nNext\r\n\r\nIntro\r\n one\r\n two");
  EXPECT_TRUE(Visible("rtfAdvisorMsg"));
  EXPECT_EQ(Widget<RichTextBox>("rtfAdvisorMsg").FontName(), "Tahoma");
  ExpectFormat(0, 5, kBold);
  ExpectFormat(5, 9, kPlain);
  ExpectFormat(9, 13, CharFormat{true, true, 0, false, 0});
  ExpectFormat(13, 24, kPlain);
  ExpectFormat(24, 34, CharFormat{false, false, 0, true, kIndent});
}

TEST_F(AdvisorTest, ExpertAlertIsRedAndAnEmptyBodyDropsTheHeading) {
  world.record->props["ExpertMode"] = true;
  Preset("ExpertAdviceTitle", "T");
  Preset("ExpertAdviceAlert", "Watch out");
  Preset("ExpertAdviceHeading", "Heading");
  Load();
  ASSERT_EQ(AdviceText(), "T\r\n\r\nWatch out\r\n\r\n");
  ExpectFormat(0, 1, kBold);
  ExpectFormat(1, 5, kPlain);
  ExpectFormat(5, 14, CharFormat{true, false, kRed, false, 0});
  ExpectFormat(14, 18, kPlain);
}

TEST_F(AdvisorTest, StarEndingTheAdviceBulletsOnlyTheLastLine) {
  world.record->props["ExpertMode"] = true;
  Preset("ExpertAdviceTitle", "T");
  Preset("ExpertAdviceHeading", "H");
  Preset("ExpertAdviceBody", "Do this:\r\n*");
  Load();
  ASSERT_EQ(AdviceText(), "T\r\n\r\nH\r\n\r\nDo this:\r\n ");
  ExpectFormat(0, 1, kBold);
  ExpectFormat(10, 20, kPlain);
  ExpectFormat(20, 21, CharFormat{false, false, 0, true, kIndent});
}

TEST_F(AdvisorTest, BasicAdviceKeepsItsStarsAndBoldsOnlyTheTitle) {
  Preset("BasicAdviceTitle", "Basic*");
  Preset("BasicAdviceBody", "Do *this*");
  Load();
  ASSERT_EQ(AdviceText(), "Basic*\r\nDo *this*");
  ExpectFormat(0, 6, kBold);
  ExpectFormat(6, 17, kPlain);
}

TEST_F(AdvisorTest, ClosedRecordsShowAClosingLineWithoutAskingTheEngine) {
  world.record->props["Status"] = std::int32_t{eEditStatusWon};
  Preset("ExpertAdviceTitle", "never shown");
  Load();
  EXPECT_EQ(AdviceText(), "The sales cycle is complete.");
  EXPECT_TRUE(Visible("rtfAdvisorMsg"));

  PressMainTab(100);
  edit->IboChangeStatus(eEditStatusCancelled);
  EXPECT_EQ(AdviceText(), "The sales cycle has been cancelled.");
  edit->IboChangeStatus(eEditStatusLost);
  EXPECT_EQ(AdviceText(), "The sales cycle is complete.");
  EXPECT_FALSE(EngineAskedForAdvice());
}

TEST_F(AdvisorTest, SalesCycleMarkerStaysInsideTheGraph) {
  Preset("SalesCycleLine1", "Probe phase");
  const struct {
    double position;
    float leftPixels;
  } cases[] = {{-0.5, 0}, {0, 0}, {0.5, 120}, {1, 240}, {1.2, 240}};
  Create();
  const auto& graph = Widget<PictureBox>("picSalesCycle");
  const auto& marker = Widget<PictureBox>("picLine");
  for (const auto& c : cases) {
    Preset("SalesCyclePosition", c.position);
    Load();
    EXPECT_EQ(marker.Left(), graph.Left() + c.leftPixels * kTwipsPerPixel) << c.position;
  }
  EXPECT_EQ(marker.Top(), graph.Top() + 13 * kTwipsPerPixel);
  EXPECT_EQ(marker.Width(), 8 * kTwipsPerPixel);
  EXPECT_EQ(graph.Height(), 117 * kTwipsPerPixel);
  EXPECT_EQ(marker.Height(), 101 * kTwipsPerPixel);
  EXPECT_EQ(Widget<TextBox>("txtSalesCycle").Text(), "Probe phase\r\n");
}

}  // namespace
}  // namespace pelkedit::testing
