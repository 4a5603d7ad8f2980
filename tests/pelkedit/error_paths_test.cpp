#include "trace/error_paths.h"
#include "editor_fixture.h"
#include "values/error.h"

namespace pelkedit::testing {
namespace {

using Kind = FakeTrace::Kind;

// The same failure inside each of the four kinds of procedure.
TEST_F(EditorTest, EachKindOfProcedureEndsAFailureItsOwnWay) {
  const auto fail = [] { throw PelkError(kInjectedError, "source", "broken"); };
  const FakeTrace& trace = *world.trace;

  // A method reports and raises again, keeping source and description.
  try {
    RunMethod("method", fail);
    FAIL() << "the method swallowed its error";
  } catch (const PelkError& error) {
    EXPECT_EQ(error.Number(), kInjectedError);
    EXPECT_EQ(error.Source(), "source");
    EXPECT_EQ(error.Description(), "broken");
  }
  EXPECT_FALSE(trace.Left("method"));

  // A widget handler shows it owned by the host window; a help handler without an owner.
  RunHandler("handler", platform, fail);
  RunHelpHandler("help", fail);
  const auto owned = trace.Of(Kind::kShowOwned);
  ASSERT_EQ(owned.size(), 1u);
  EXPECT_EQ(owned[0].hwnd, FakePlatform::kHostWindow);
  EXPECT_EQ(trace.Of(Kind::kShow).size(), 1u);
  EXPECT_EQ(trace.calls.back().kind, Kind::kShow);

  // A lifecycle procedure goes on with the next statement and ends normally.
  int after = 0;
  ResumeNext statement("lifecycle");
  statement(fail);
  statement([&] { ++after; });
  statement.Leave();
  EXPECT_EQ(after, 1);
  EXPECT_TRUE(trace.Left("lifecycle"));
  EXPECT_EQ(trace.Of(Kind::kReport).size(), 4u);
}

TEST_F(EditorTest, FailureThreeLevelsBelowAHandlerIsReportedPerLevelAndShownOnce) {
  Load();
  world.record->failSet.insert("DirtyFlag");
  Widget<OptionButton>("optWihHigh").UserClick();  // click -> UpdateUserWIH -> MarkIboAsDirty

  const FakeTrace& trace = *world.trace;
  const auto reports = trace.Of(Kind::kReport);
  ASSERT_EQ(reports.size(), 3u);
  for (const auto& report : reports) {
    EXPECT_EQ(report.number, kInjectedError);
    EXPECT_EQ(report.proc, "rec.Set DirtyFlag");
  }
  const auto shown = trace.Of(Kind::kShowOwned);
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0].hwnd, FakePlatform::kHostWindow);
  EXPECT_EQ(trace.calls.back().kind, Kind::kShowOwned);
  for (const char* proc : {"optWihHigh_Click", "UpdateUserWIH", "MarkIboAsDirty"}) {
    EXPECT_TRUE(trace.Entered(Proc(proc))) << proc;
    EXPECT_FALSE(trace.Left(Proc(proc))) << proc;
  }
  // The procedure ended at the failing call: what was written stays, nothing after it ran.
  EXPECT_EQ(Rec("WIH"), Variant(std::int32_t{2}));
  EXPECT_FALSE(trace.Entered(Proc("RefreshMatrixInfo")));
  EXPECT_FALSE(edit->IboChanged());
  EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(EditorTest, EngineFailureEndsTheAnswerBeforeTheRecordIsWritten) {
  Load();
  world.Advisor().failEvaluate = true;
  Widget<OptionButton>("optWwgiLow").UserClick();
  EXPECT_EQ(world.trace->Of(Kind::kReport).size(), 2u);
  EXPECT_EQ(world.trace->Of(Kind::kShowOwned).size(), 1u);
  EXPECT_EQ(world.journal, Journal{"adv.Set WWGI=0"});
  EXPECT_FALSE(edit->IboChanged());
}

TEST_F(EditorTest, FailedWriteKeepsTheWindowOpenAndOnlyCancelClaimsASave) {
  Load();
  world.data->failWrite = true;
  Widget<Button>("cmdSave").UserClick();  // cmdSave_Click -> SaveIBO -> WriteIbo
  EXPECT_EQ(world.trace->Of(Kind::kReport).size(), 2u);
  EXPECT_EQ(world.trace->Of(Kind::kShowOwned).size(), 1u);
  EXPECT_FALSE(edit->IboSaved());
  EXPECT_TRUE(platform.posts.empty());

  Widget<OptionButton>("optWihLow").UserClick();
  platform.answers.push_back(MsgAnswer::kYes);
  Widget<Button>("cmdCancel").UserClick();
  EXPECT_TRUE(edit->IboSaved());
  EXPECT_TRUE(platform.posts.empty());
  EXPECT_FALSE(world.trace->Left(Proc("cmdCancel_Click")));
}

TEST_F(EditorTest, MainWithoutTraceObjectTellsTheUserAndRaisesTheCreationError) {
  UnloadLibrary();
  platform.factory.FailCreate(kTraceProgId);
  try {
    Main(platform);
    FAIL() << "Main succeeded without a trace object";
  } catch (const PelkError& e) {
    EXPECT_EQ(e.Number(), errnum::kCannotCreateObject);
  }
  ASSERT_EQ(platform.boxes.size(), 1u);
  EXPECT_EQ(platform.boxes[0].text, "Could not create trace object. Module:PelkEdit.modInit::Main");
  EXPECT_EQ(platform.boxes[0].title, "Automation error");
  EXPECT_EQ(platform.boxes[0].icon, MsgIcon::kExclamation);
  EXPECT_EQ(platform.boxes[0].buttons, MsgButtons::kOk);
  EXPECT_FALSE(LibraryStarted());
}

TEST_F(EditorTest, MissingCollaboratorIsReportedAndCreationGoesOn) {
  platform.factory.FailCreate(kDataProgId);
  Create();
  const auto reports = world.trace->Of(Kind::kReport);
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_EQ(reports[0].number, errnum::kCannotCreateObject);
  EXPECT_TRUE(world.trace->Left(Proc("UserControl_Initialize")));
  EXPECT_TRUE(world.trace->Of(Kind::kShowOwned).empty());
  // The Essentials tab is still drawn from the (empty) record and the first engine.
  EXPECT_TRUE(Visible("fraMainEssentials"));
  EXPECT_FALSE(Visible("fraMainSalesAdvisor"));
  EXPECT_EQ(Widget<PictureBox>("picUserPriority").Picture(), 115);
  EXPECT_EQ(Widget<PictureBox>("picPmUserSqr").Left(), 63);

  // Later calls that need it fail towards the host.
  EXPECT_THROW(edit->ShowIbo(kIboId, 0), PelkError);
}

TEST_F(EditorTest, InvalidViewReachesTheHostAfterBeingReported) {
  Create();
  Forget();
  try {
    edit->ShowIbo(kIboId, 7);
    FAIL() << "view 7 accepted";
  } catch (const PelkError& e) {
    EXPECT_EQ(e.Number(), FakeTrace::kInvalidArgument);
    EXPECT_EQ(e.Source(), Proc("ShowIbo"));
    EXPECT_EQ(e.Description(), "Invalid DB view specifier passed.");
  }
  const auto reports = world.trace->Of(Kind::kReport);
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_EQ(reports[0].proc, Proc("ShowIbo"));
  EXPECT_EQ(reports[0].description, "Invalid DB view specifier passed.");
  EXPECT_FALSE(world.trace->Left(Proc("ShowIbo")));
  EXPECT_TRUE(world.data->reads.empty());
  EXPECT_TRUE(events.raised.empty());
  EXPECT_EQ(platform.pointer, MousePointer::kDefault);
}

TEST_F(EditorTest, SaveAfterAFailedLoadRefusesTheRememberedInvalidView) {
  Load();
  EXPECT_THROW(edit->ShowIbo(kIboId, -1), PelkError);
  world.trace->calls.clear();
  Widget<Button>("cmdSave").UserClick();
  const auto reports = world.trace->Of(Kind::kReport);
  ASSERT_EQ(reports.size(), 2u);  // SaveIBO, then the button
  EXPECT_EQ(reports[0].proc, Proc("SaveIBO"));
  EXPECT_EQ(reports[0].number, FakeTrace::kInvalidArgument);
  EXPECT_EQ(reports[0].description, "Invalid DB view specifier passed.");
  EXPECT_EQ(world.trace->Of(Kind::kShowOwned).size(), 1u);
  EXPECT_TRUE(world.data->writes.empty());
  EXPECT_FALSE(edit->IboSaved());
}

}  // namespace
}  // namespace pelkedit::testing
