#include "editor_fixture.h"

namespace pelkedit::testing {
namespace {

TEST_F(EditorTest, CreationShowsTheEssentialsTabWithoutLoadingOrRaisingAnything) {
  Create();
  EXPECT_TRUE(events.raised.empty());
  EXPECT_TRUE(world.data->reads.empty());
  EXPECT_EQ(world.record->loads, 0);
  EXPECT_TRUE(world.journal.empty()) << world.journal.front();
  EXPECT_TRUE(world.trace->Of(FakeTrace::Kind::kReport).empty());
  EXPECT_TRUE(world.trace->Left(Proc("UserControl_Initialize")));

  const EditorState& s = edit->State();
  EXPECT_FALSE(s.loading || s.iboSaved || s.iboChanged || s.expertView || s.promptAnswered);
  EXPECT_EQ(s.mainTab, 0);
  EXPECT_EQ(s.sEnvTab, 0);
  EXPECT_TRUE(Visible("fraMainEssentials"));
  for (const char* hidden : {"fraMainSalesAdvisor", "fraMainSalesEnvironment", "fraMainIBOInfo",
                             "fraMainIBONote", "fraMainSEnvProve", "fraMainSEnvClose"}) {
    EXPECT_FALSE(Visible(hidden)) << hidden;
  }
  EXPECT_TRUE(Visible("fraMainSEnvProbe"));
}

TEST_F(EditorTest, LoadRaisesCaptionStatusAndModeFromTheRecord) {
  world.record->props["Status"] = std::int32_t{eEditStatusWon};
  Create();
  edit->ShowIbo(kIboId, 0);

  ASSERT_EQ(events.raised.size(), 3u);
  const std::string caption = "IBO#7     Status:   Won";
  EXPECT_EQ(caption.size(), 23u);
  EXPECT_EQ(events.raised[0], "SetFormCaption:" + caption);
  EXPECT_EQ(events.raised[1], "SetIBOStatus:2");
  EXPECT_EQ(events.raised[2], "SetExpertMode:False");
  EXPECT_EQ(world.record->loads, 1);
  EXPECT_EQ(world.record->storage, (Blob{'r', 'e', 'c', kIboId}));
  EXPECT_EQ(platform.pointerChanges,
            (std::vector<MousePointer>{MousePointer::kHourglass, MousePointer::kDefault}));
  EXPECT_FALSE(edit->State().loading);

  // The status property reads the record; the loaded status stays what the load saw.
  edit->IboChangeStatus(eEditStatusLost);
  EXPECT_EQ(edit->IboStatus(), eEditStatusLost);
  EXPECT_EQ(edit->State().loadedStatus, eEditStatusWon);
}

TEST_F(EditorTest, ViewCodesChooseTheRetrievalProcedureForLoadAndSave) {
  Load(2);
  Load(3);
  Widget<Button>("cmdSave").UserClick();
  ASSERT_EQ(world.data->reads.size(), 2u);
  EXPECT_EQ(world.data->reads[0].second, kProcMain);
  EXPECT_EQ(world.data->reads[1].second, kProcArchive);
  ASSERT_EQ(world.data->writes.size(), 1u);
  EXPECT_EQ(world.data->writes[0].second, kProcArchive);
}

TEST_F(EditorTest, SavedStaysTrueAcrossLoadsWhileChangedStartsCleanEachTime) {
  Load();
  Widget<OptionButton>("optWihHigh").UserClick();
  Widget<Button>("cmdSave").UserClick();
  EXPECT_TRUE(edit->IboSaved());
  EXPECT_TRUE(edit->IboChanged());  // a save does not clear it
  Load();
  EXPECT_TRUE(edit->IboSaved());
  EXPECT_FALSE(edit->IboChanged());
  EXPECT_TRUE(events.raised.empty());  // Load() forgets what it logged; nothing since
}

}  // namespace
}  // namespace pelkedit::testing
