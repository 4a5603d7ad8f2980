#include "editor_fixture.h"

namespace pelkedit::testing {
namespace {

const char* const kPrompt = "The IBO has been modified. Would you like to save the changes?";

class SavingTest : public EditorTest {
 protected:
  void Edit() { Widget<OptionButton>("optWwgiHigh").UserClick(); }
  void Click(const char* button) { Widget<Button>(button).UserClick(); }
  void ExpectClosePosted() {
    ASSERT_EQ(platform.posts.size(), 1u);
    EXPECT_EQ(platform.posts[0].hwnd, FakePlatform::kHostWindow);
    EXPECT_EQ(platform.posts[0].message, 0x10u);
    EXPECT_EQ(platform.posts[0].wparam, 0);
    EXPECT_EQ(platform.posts[0].lparam, 0);
    platform.posts.clear();
  }
  void ExpectPrompt(std::size_t index = 0) {
    ASSERT_GT(platform.boxes.size(), index);
    const auto& box = platform.boxes[index];
    EXPECT_EQ(box.text, kPrompt);
    EXPECT_EQ(box.buttons, MsgButtons::kYesNoCancel);
    EXPECT_EQ(box.icon, MsgIcon::kExclamation);
    EXPECT_EQ(box.title, "IBO modified");
  }
};

TEST_F(SavingTest, SaveButtonEnforcesTheHandheldRecordLimit) {
  Load();
  Edit();
  world.physicalSize = std::int32_t{65001};
  Click("cmdSave");
  ASSERT_EQ(platform.boxes.size(), 1u);
  EXPECT_EQ(platform.boxes[0].text,
            "The current IBO physical size exceeds single Palm record storage limits. Please "
            "remove some text from a product note field or IBO note field and try saving again.");
  EXPECT_EQ(platform.boxes[0].title, "Pelkor");
  EXPECT_EQ(platform.boxes[0].icon, MsgIcon::kExclamation);
  EXPECT_EQ(platform.boxes[0].buttons, MsgButtons::kOk);
  EXPECT_TRUE(world.data->writes.empty());
  EXPECT_TRUE(platform.posts.empty());
  EXPECT_FALSE(edit->IboSaved());
  EXPECT_TRUE(edit->IboChanged());

  // The helper's answer is converted to a whole number of bytes by rounding.
  world.physicalSize = 65000.6;
  Click("cmdSave");
  EXPECT_TRUE(world.data->writes.empty());

  world.physicalSize = 65000.4;
  Click("cmdSave");
  EXPECT_EQ(world.data->writes.size(), 1u);
  world.physicalSize = std::int32_t{65000};
  Click("cmdSave");
  ASSERT_EQ(world.data->writes.size(), 2u);
  EXPECT_EQ(world.data->writes[1].first, world.record->storage);
  EXPECT_EQ(world.data->writes[1].second, kProcMain);
  EXPECT_TRUE(edit->IboSaved());
  EXPECT_EQ(world.sizeChecks, 4);
  EXPECT_EQ(platform.posts.size(), 2u);
}

TEST_F(SavingTest, SaveCollectsADateTypedButNotYetCommitted) {
  Load();
  const Date typed = Date::FromCivil(2024, 7, 1);
  ASSERT_TRUE(Widget<DateEdit>("deWwih").UserSetDay(typed.DayNumber()));
  Click("cmdSave");
  EXPECT_EQ(Rec("WwihDate"), Variant(typed));
  EXPECT_EQ(world.data->writes.size(), 1u);
  ExpectClosePosted();
}

TEST_F(SavingTest, CancelAsksOnlyForAChangedRecordAndActsOnTheAnswer) {
  Load();
  Click("cmdCancel");
  EXPECT_TRUE(platform.boxes.empty());
  ExpectClosePosted();

  Edit();
  world.physicalSize = std::int32_t{70000};  // Yes on this path skips the size check
  platform.answers.push_back(MsgAnswer::kYes);
  Click("cmdCancel");
  ExpectPrompt();
  EXPECT_EQ(world.data->writes.size(), 1u);
  EXPECT_EQ(world.sizeChecks, 0);
  EXPECT_TRUE(edit->IboSaved());
  ExpectClosePosted();

  Load();
  Edit();
  platform.answers.push_back(MsgAnswer::kNo);
  Click("cmdCancel");
  ExpectPrompt();
  EXPECT_FALSE(edit->IboChanged());
  EXPECT_EQ(world.data->writes.size(), 1u);
  ExpectClosePosted();
  edit->FormClose();
  EXPECT_EQ(platform.boxes.size(), 1u);
}

TEST_F(SavingTest, CancelAnsweredCancelKeepsTheWindowOpenAndTheClosingQuiet) {
  Load();
  Edit();
  platform.answers.push_back(MsgAnswer::kCancel);
  Click("cmdCancel");
  ExpectPrompt();
  EXPECT_TRUE(platform.posts.empty());
  EXPECT_TRUE(world.data->writes.empty());
  EXPECT_TRUE(edit->State().promptAnswered);
  edit->FormClose();
  EXPECT_EQ(platform.boxes.size(), 1u);
  EXPECT_TRUE(edit->IboChanged());
}

TEST_F(SavingTest, FormCloseSavesOnlyWithinTheLimitAndNeverClaimsASave) {
  Load();
  edit->FormClose();
  EXPECT_TRUE(platform.boxes.empty());

  Edit();
  world.physicalSize = std::int32_t{65001};
  platform.answers.push_back(MsgAnswer::kYes);
  edit->FormClose();
  ExpectPrompt();
  ASSERT_EQ(platform.boxes.size(), 2u);
  EXPECT_EQ(platform.boxes[1].text,
            "The current IBO physical size exceeds single Palm record storage limits.");
  EXPECT_EQ(platform.boxes[1].title, "Pelkor");
  EXPECT_TRUE(world.data->writes.empty());
  EXPECT_TRUE(edit->IboChanged());

  world.physicalSize = std::int32_t{100};
  platform.answers = {MsgAnswer::kCancel, MsgAnswer::kYes, MsgAnswer::kNo};
  edit->FormClose();
  EXPECT_TRUE(world.data->writes.empty());
  EXPECT_TRUE(edit->IboChanged());
  edit->FormClose();
  EXPECT_EQ(world.data->writes.size(), 1u);
  EXPECT_FALSE(edit->IboSaved());
  EXPECT_TRUE(edit->IboChanged());
  edit->FormClose();
  EXPECT_FALSE(edit->IboChanged());
  EXPECT_EQ(world.data->writes.size(), 1u);
  EXPECT_TRUE(platform.posts.empty());
}

}  // namespace
}  // namespace pelkedit::testing
