#include "trace/trace_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "fake_platform.h"
#include "trace/error_paths.h"
#include "trace/mod_init.h"
#include "values/error.h"

namespace pelkor {
namespace {

namespace fs = std::filesystem;
using pelkedit::Err;
using pelkedit::PelkError;
using ::testing::ElementsAre;

struct LogLine {
  std::string stamp;
  int depth;
  std::string marker;
  std::string text;
  friend bool operator==(const LogLine&, const LogLine&) = default;
};

// What a reader of the log needs from each line: when, how deep, what kind, which procedure.
LogLine Parsed(int depth, std::string marker, std::string text) {
  return {"2024-03-05 14:07:09", depth, std::move(marker), std::move(text)};
}

std::vector<LogLine> ReadLog(const fs::path& path) {
  static const std::regex kLine(R"(^(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d) +(\d+) ( *)(->|<-|!!) (.*)$)");
  std::vector<LogLine> lines;
  std::ifstream in(path);
  for (std::string line; std::getline(in, line);) {
    std::smatch m;
    if (!std::regex_match(line, m, kLine)) {
      ADD_FAILURE() << "malformed log line: " << line;
      continue;
    }
    const int depth = std::stoi(m[2]);
    EXPECT_EQ(m[3].length(), static_cast<long>(2 * depth)) << "indentation of: " << line;
    lines.push_back({m[1], depth, m[4], m[5]});
  }
  return lines;
}

class TraceLogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() /
           ("pelk_trace_" + std::to_string(::getpid()) + "_" +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(dir_);
    Err().Clear();
  }
  void TearDown() override {
    pelkedit::UnloadLibrary();
    fs::remove_all(dir_);
  }

  fs::path dir_;
  testing::FakePlatform platform_;
};

TEST_F(TraceLogTest, FailureBelowAHandlerIsLoggedOncePerLevelAndShownOnce) {
  const fs::path log = dir_ / "logs" / "pelkor.log";
  RegisterTraceComponent(platform_.factory, platform_, log.string());
  pelkedit::Main(platform_);

  const auto method = [](const char* name, auto body) {
    return [name, body] { pelkedit::RunMethod(name, body); };
  };
  pelkedit::RunHandler("Edit::cmdSave_Click", platform_,
                       method("Edit::SaveIBO", method("Edit::SaveAllTabs", [] {
                                pelkedit::Raise(9, "Edit::SaveAllTabs", "no such tab");
                              })));
  pelkedit::RunHandler("Edit::cmdCancel_Click", platform_, [] {});
  pelkedit::UnloadLibrary();

  EXPECT_THAT(
      ReadLog(log),
      ElementsAre(
          Parsed(0, "->", "Edit::cmdSave_Click"), Parsed(1, "->", "Edit::SaveIBO"),
          Parsed(2, "->", "Edit::SaveAllTabs"),
          Parsed(2, "!!", "Edit::SaveAllTabs reports error 9 from Edit::SaveAllTabs: no such tab"),
          Parsed(1, "!!", "Edit::SaveIBO reports error 9 from Edit::SaveAllTabs: no such tab"),
          Parsed(0, "!!",
                 "Edit::cmdSave_Click reports error 9 from Edit::SaveAllTabs: no such tab"),
          Parsed(0, "->", "Edit::cmdCancel_Click"), Parsed(0, "<-", "Edit::cmdCancel_Click")));
  ASSERT_EQ(platform_.boxes.size(), 1u);
  EXPECT_EQ(platform_.boxes[0].text, "no such tab\nError 9 in Edit::SaveAllTabs");
  EXPECT_EQ(platform_.boxes[0].icon, pelkedit::MsgIcon::kCritical);
  EXPECT_EQ(platform_.boxes[0].buttons, pelkedit::MsgButtons::kOk);
  EXPECT_EQ(platform_.boxes[0].title, "Pelkor");
}

TEST_F(TraceLogTest, ProcedureThatReportsAndGoesOnReturnsToItsLevel) {
  const fs::path log = dir_ / "resume.log";
  auto trace = CreateTraceLog(platform_, log.string());
  auto& traceLog = static_cast<TraceLog&>(*trace);

  trace->EnterProc("Edit::UserControl_Initialize");
  trace->EnterProc("Edit::InitAdvisor");
  Err().Set(PelkError(429, "PelkInrt.Advisor", "cannot create"));
  trace->ReportError("");             // InitAdvisor gives up
  trace->ReportError("extra words");  // Initialize reports and goes on
  EXPECT_EQ(traceLog.Depth(), 0);
  trace->EnterProc("Edit::InitTabs");
  trace->LeaveProc("Edit::InitTabs");
  trace->LeaveProc("Edit::UserControl_Initialize");
  trace->EnterProc("Edit::ShowIbo");
  EXPECT_EQ(traceLog.Depth(), 1);
  trace->LeaveProc("Edit::ShowIbo");
  trace.reset();

  const auto lines = ReadLog(log);
  ASSERT_EQ(lines.size(), 9u);
  EXPECT_EQ(lines[3], Parsed(0, "!!",
                             "Edit::UserControl_Initialize reports error 429 from "
                             "PelkInrt.Advisor: cannot create [extra words]"));
  EXPECT_EQ(lines[6], Parsed(0, "<-", "Edit::UserControl_Initialize"));
  EXPECT_EQ(lines[7], Parsed(0, "->", "Edit::ShowIbo"));
}

TEST_F(TraceLogTest, LeavingAnOuterProcedureClosesInnerOnesThatSkippedTheirExit) {
  auto trace = CreateTraceLog(platform_, (dir_ / "skip.log").string());
  auto& traceLog = static_cast<TraceLog&>(*trace);
  trace->EnterProc("Outer");
  trace->EnterProc("Inner");
  trace->EnterProc("Innermost");
  trace->LeaveProc("Outer");
  EXPECT_EQ(traceLog.Depth(), 0);
}

TEST_F(TraceLogTest, LastErrorNumberFollowsTheLastReport) {
  auto trace = CreateTraceLog(platform_, (dir_ / "numbers.log").string());
  EXPECT_EQ(trace->InvalidArgumentErrorNumber(), 5);
  Err().Set(PelkError(13, "a", "first"));
  trace->ReportError("");
  EXPECT_EQ(trace->LastErrorNumber(), 13);
  Err().Set(PelkError(380, "b", "second"));
  trace->ReportError("");
  EXPECT_EQ(trace->LastErrorNumber(), 380);
}

TEST_F(TraceLogTest, EachSessionAppendsToTheSameFile) {
  const fs::path log = dir_ / "shared.log";
  CreateTraceLog(platform_, log.string())->EnterProc("First");
  CreateTraceLog(platform_, log.string())->EnterProc("Second");
  EXPECT_THAT(ReadLog(log), ElementsAre(Parsed(0, "->", "First"), Parsed(0, "->", "Second")));
}

// The log names customers and their deals' errors: it and the folders made for it are private,
// the first file and a rotated one alike.
TEST_F(TraceLogTest, TheLogIsTheUsersAlone) {
  const fs::path log = dir_ / "state" / "pelkor" / "private.log";
  TraceLog trace(platform_, log.string(), 100);
  for (int i = 0; i < 5; ++i) {
    trace.EnterProc("Action" + std::to_string(i));
    trace.LeaveProc("Action" + std::to_string(i));
  }
  for (const fs::path& file : {log, fs::path(log.string() + ".1")}) {
    ASSERT_TRUE(fs::exists(file)) << file;
    EXPECT_EQ(fs::status(file).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write)
        << file;
  }
  for (const fs::path& folder : {dir_ / "state", dir_ / "state" / "pelkor"}) {
    EXPECT_EQ(fs::status(folder).permissions() & fs::perms::all, fs::perms::owner_all) << folder;
  }
}

// A full log is kept as PATH.1 between two user actions, never in the middle of one.
TEST_F(TraceLogTest, AFullLogIsKeptOnceAndANewOneStarts) {
  const fs::path log = dir_ / "rotating.log";
  constexpr std::uintmax_t kLimit = 200;
  TraceLog trace(platform_, log.string(), kLimit);
  const auto action = [&](const std::string& name) {
    trace.EnterProc(name);
    trace.EnterProc(name + "Inner");
    trace.LeaveProc(name + "Inner");
    trace.LeaveProc(name);
  };
  for (int i = 0; i < 5; ++i) action("Action" + std::to_string(i));
  ASSERT_TRUE(fs::exists(log.string() + ".1"));
  EXPECT_LT(fs::file_size(log), kLimit);
  // Each file holds whole actions: four lines apiece, from the outermost entry on.
  for (const fs::path& file : {log, fs::path(log.string() + ".1")}) {
    const auto lines = ReadLog(file);
    ASSERT_EQ(lines.size() % 4, 0u) << file;
    ASSERT_FALSE(lines.empty()) << file;
    EXPECT_EQ(lines.front().depth, 0);
  }
  EXPECT_FALSE(fs::exists(log.string() + ".2"));
}

TEST_F(TraceLogTest, UnwritableLogKeepsTracingWithoutTheFile) {
  fs::create_directories(dir_);
  std::ofstream(dir_ / "blocker") << "a file where a folder should be";
  const fs::path log = dir_ / "blocker" / "sub" / "pelkor.log";

  auto trace = CreateTraceLog(platform_, log.string());
  EXPECT_FALSE(static_cast<TraceLog&>(*trace).Writing());
  EXPECT_NO_THROW({
    trace->EnterProc("Edit::ShowIbo");
    Err().Set(PelkError(5, "Edit::ShowIbo", "Invalid DB view specifier passed."));
    trace->ReportError("");
    trace->LeaveProc("Edit::ShowIbo");
  });
  EXPECT_EQ(trace->LastErrorNumber(), 5);
  EXPECT_FALSE(fs::exists(log));
  EXPECT_NO_THROW(CreateTraceLog(platform_, "")->EnterProc("Nowhere"));
}

TEST_F(TraceLogTest, OwnedAndUnownedErrorsShowTheCurrentError) {
  auto trace = CreateTraceLog(platform_, (dir_ / "show.log").string());
  Err().Set(PelkError(5, "PelkEdit.PelkIboEdit::ShowIbo", "Invalid DB view specifier passed."));
  trace->ShowErrorOwned(testing::FakePlatform::kHostWindow);
  Err().Set(PelkError(13, "", ""));
  trace->ShowError();

  ASSERT_EQ(platform_.boxes.size(), 2u);
  EXPECT_EQ(platform_.boxes[0].text,
            "Invalid DB view specifier passed.\nError 5 in PelkEdit.PelkIboEdit::ShowIbo");
  // Without a description or source the user still reads what kind of error it was.
  EXPECT_EQ(platform_.boxes[1].text, "Type mismatch\nError 13");
  for (const auto& box : platform_.boxes) {
    EXPECT_EQ(box.icon, pelkedit::MsgIcon::kCritical);
    EXPECT_EQ(box.buttons, pelkedit::MsgButtons::kOk);
    EXPECT_EQ(box.title, "Pelkor");
  }
}

}  // namespace
}  // namespace pelkor
