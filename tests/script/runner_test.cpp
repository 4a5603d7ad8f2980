#include "runner.h"

#include "contracts/names.h"
#include "trace/mod_init.h"
#include "world.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace pelkscript {
namespace {

struct Outcome {
  int status;
  std::string output;
};

Outcome RunText(const std::string& script, const WorldOptions& options = {}) {
  std::istringstream in(script);
  std::ostringstream out;
  const int status = RunScenarios({}, options, in, out);
  return {status, out.str()};
}

std::string LastLine(const std::string& output) {
  const auto end = output.find_last_not_of('\n');
  const auto start = output.rfind('\n', end);
  return output.substr(start == std::string::npos ? 0 : start + 1, end - start);
}

TEST(Runner, ExpectationsAreCountedAndFailuresNamed) {
  const Outcome run = RunText(
      "ibo 7 0 Status=2 ContactCompany=\"Acme\"\n"
      "create\n"
      "show 7 0\n"
      "expect control.IboStatus = 2\n"
      "expect record.ContactCompany = \"Acme\"\n"
      "expect record.ContactCompany != \"acme\"\n"
      "expect db.7.3.Status = none   # not in the archive\n"
      "expect control.IboChanged = True\n");
  EXPECT_EQ(run.status, kExpectationsFailed);
  EXPECT_NE(run.output.find("FAILED -:8: expect control.IboChanged = True (actual False)"),
            std::string::npos)
      << run.output;
  EXPECT_EQ(LastLine(run.output), "4 passed, 1 failed");
}

TEST(Runner, ScriptErrorsNameTheLineAndStopTheFile) {
  for (const char* bad :
       {"frobnicate\n", "expect control.NoSuchField = 1\n", "click noSuchWidget\n",
        "engine fuzzy\n", "config InstallPath\n", "competitors-dialog maybe\n",
        "fail lookup.Show\n", "fail record.Nope\n", "ibo 7 5\n", "expect record.Status 1\n",
        "type txtIboNote \"open\n", "fill record.IboNote 2000000000\n"}) {
    const Outcome run = RunText(std::string("create\n") + bad + "expect focus = none\n");
    EXPECT_EQ(run.status, kScriptUnrunnable) << bad;
    EXPECT_NE(run.output.find("-:2: script error:"), std::string::npos) << bad << run.output;
    EXPECT_EQ(LastLine(run.output), "0 passed, 0 failed") << bad;
  }
  const Outcome engine = RunText("engine fuzzy\n");
  EXPECT_NE(engine.output.find("unknown engine fuzzy"), std::string::npos);
  const Outcome config = RunText("config InstallPath\n");
  EXPECT_NE(config.output.find("usage: config KEY VALUE"), std::string::npos);
}

TEST(Runner, ObservingWhatTheComponentCannotGiveIsAScriptErrorOnItsLine) {
  // Without a record object the component cannot say its status.
  const Outcome run = RunText(
      "fail-create PelkComn.IboProperties\n"
      "create\n"
      "expect record.Status = 1\n"
      "print control.IboStatus\n");
  EXPECT_EQ(run.status, kScriptUnrunnable);
  EXPECT_NE(run.output.find("-:4: script error: print: error 91"), std::string::npos) << run.output;
  EXPECT_EQ(LastLine(run.output), "0 passed, 1 failed");
}

TEST(Runner, UnansweredOrMisfitSavePromptCountsAsFailureAndCancels) {
  const Outcome run = RunText(
      "ibo 7 0\n"
      "create\n"
      "show 7 0\n"
      "call IboChangeStatus 2\n"
      "call FormClose\n"
      "answer OK\n"
      "call FormClose\n"
      "expect control.IboChanged = True\n");
  EXPECT_EQ(run.status, kExpectationsFailed);
  EXPECT_NE(run.output.find("FAILED -:5: unanswered message box"), std::string::npos);
  EXPECT_NE(run.output.find("FAILED -:7: answer OK does not fit message box"), std::string::npos)
      << run.output;
  EXPECT_EQ(LastLine(run.output), "1 passed, 2 failed");
}

// Hosts and pages reach these widgets by name; the editor must build every one of them.
TEST(Runner, EveryWidgetTheEditorAndItsHostsNameIsBuilt) {
  World world{WorldOptions{}};
  pelkedit::Main(world.platform);
  world.component = std::make_unique<pelkedit::PelkIboEdit>(world.platform, world.events);
  for (const char* name : pelkedit::widget::kAll) {
    EXPECT_NE(world.component->Widgets().Find(name), nullptr) << name;
  }
}

TEST(Runner, EachFileRunsInAFreshWorldUnlessADatabaseFileIsShared) {
  const auto dir = MakeTempDir();
  const auto first = dir / "first.pelk";
  const auto second = dir / "second.pelk";
  std::ofstream(first) << "ibo 9 0 IboNumber=1042\nexpect db.9.0.IboNumber = 1042\n";
  std::ofstream(second) << "expect db.9.0.IboNumber = none\n";
  std::istringstream noInput;
  std::ostringstream out;
  EXPECT_EQ(RunScenarios({first.string(), second.string()}, {}, noInput, out), kAllHeld);
  EXPECT_EQ(LastLine(out.str()), "2 passed, 0 failed");

  WorldOptions shared;
  shared.dbPath = (dir / "ibo.db").string();
  std::ostringstream sharedOut;
  EXPECT_EQ(RunScenarios({first.string(), second.string()}, shared, noInput, sharedOut),
            kExpectationsFailed);
  EXPECT_NE(sharedOut.str().find("(actual 1042)"), std::string::npos);

  std::ostringstream missing;
  EXPECT_EQ(RunScenarios({(dir / "nope.pelk").string()}, {}, noInput, missing), kScriptUnrunnable);
  std::filesystem::remove_all(dir);
}

TEST(Runner, FillReachesAnExactStorageSize) {
  const Outcome run = RunText(
      "ibo 7 0\n"
      "create\n"
      "show 7 0\n"
      "fill record.IboNote 60000\n"
      "expect size = 60000\n"
      "expect control.IboChanged = False\n"
      "fill record.IboNote 10\n");
  EXPECT_EQ(run.status, kScriptUnrunnable);
  EXPECT_NE(run.output.find("-:7: script error: fill record.IboNote: no text makes"),
            std::string::npos)
      << run.output;
  EXPECT_EQ(LastLine(run.output), "2 passed, 0 failed");
}

}  // namespace
}  // namespace pelkscript
