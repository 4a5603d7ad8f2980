#include "recording.h"

#include <gtest/gtest.h>

#include "advisor/scripted_engine.h"
#include "data/ibo_store.h"
#include "record/ibo_properties.h"
#include "values/error.h"

namespace pelkscript {
namespace {

using pelkedit::Variant;
using Kind = WorldLog::Kind;

// Runs `call` and returns the description of the PelkError it raised ("" when none).
template <typename Call>
std::string ErrorOf(Call&& call) {
  try {
    call();
  } catch (const pelkedit::PelkError& e) {
    return std::to_string(e.Number()) + " " + e.Description();
  }
  return "";
}

class RecordingTest : public ::testing::Test {
 protected:
  WorldLog log;
  FaultInjector faults;
  Recording rec{log, faults};
};

TEST_F(RecordingTest, RecordWritesAreLoggedReadsAreNot) {
  RecordingRecord record(rec, pelkor::CreateIboProperties());
  record.Set("ContactCompany", "Acme");
  record.SetAt("CloseBarriers", 3, "no budget");
  EXPECT_EQ(record.Get("ContactCompany"), Variant("Acme"));
  EXPECT_EQ(record.GetAt("CloseBarriers", 3), Variant("no budget"));
  const auto data = record.GetIboData();
  record.SetIboData(data);
  EXPECT_EQ(log.Lines(Kind::kCalls),
            (std::vector<std::string>{
                "record.ContactCompany = \"Acme\"", "record.CloseBarriers(3) = \"no budget\"",
                "record.IboData = <" + std::to_string(data.size()) + " bytes>"}));
  // The runner's own reads go past the decorator.
  EXPECT_EQ(Unwrapped(static_cast<pelkedit::IRecord&>(record)).Get("ContactCompany"),
            Variant("Acme"));
}

TEST_F(RecordingTest, InjectedFailureFiresOnceOnGetOrSetOfThatProperty) {
  RecordingRecord record(rec, pelkor::CreateIboProperties());
  faults.Arm("record", "Status");
  faults.Arm("record", "Status");
  EXPECT_EQ(ErrorOf([&] { record.Get("Status"); }), "5 injected: record.Status");
  EXPECT_EQ(ErrorOf([&] { record.Set("Status", std::int32_t{2}); }), "5 injected: record.Status");
  EXPECT_EQ(record.Get("Status"), Variant(std::int32_t{1}));  // the failed write changed nothing
  EXPECT_EQ(ErrorOf([&] { record.Set("Status", std::int32_t{2}); }), "");
  EXPECT_EQ(record.Get("Status"), Variant(std::int32_t{2}));
  // Other properties and the storage form are untouched by an armed property failure.
  faults.Arm("record", "IboData");
  EXPECT_EQ(ErrorOf([&] { record.Get("IboNumber"); }), "");
  EXPECT_EQ(ErrorOf([&] { record.GetIboData(); }), "5 injected: record.IboData");
  // The real object's own errors pass through unchanged.
  EXPECT_EQ(ErrorOf([&] { record.Get("NoSuchProperty"); }).substr(0, 3), "438");
}

TEST_F(RecordingTest, AdvisorDataAndSizeCallsAreLoggedAndFail) {
  auto results = std::make_shared<pelkor::ScriptedResults>();
  results->Set("AdvisorPriority", std::int32_t{5});
  RecordingAdvisor advisor(rec, pelkor::CreateScriptedEngine(results));
  advisor.Set("WIH", std::int32_t{2});
  advisor.Evaluate();
  EXPECT_EQ(advisor.Get("AdvisorPriority"), Variant(std::int32_t{5}));
  faults.Arm("advisor", "Evaluate");
  EXPECT_EQ(ErrorOf([&] { advisor.Evaluate(); }), "5 injected: advisor.Evaluate");

  auto db = pelkor::OpenIboStore(":memory:");
  RecordingData data(rec, pelkor::CreateDataAccess(db));
  auto record = pelkor::CreateIboProperties();
  record->Set("IboId", std::int32_t{7});
  db->Write(pelkor::IboTable::kMain, record->GetIboData());
  EXPECT_EQ(data.ReadIbo(7, pelkedit::kProcMain), record->GetIboData());
  data.WriteIbo(record->GetIboData(), pelkedit::kProcMain);
  faults.Arm("data", "ReadIbo");
  EXPECT_EQ(ErrorOf([&] { data.ReadIbo(7, pelkedit::kProcMain); }), "5 injected: data.ReadIbo");

  RecordingSize size(rec, pelkor::CreateIboSizeCalculator());
  EXPECT_EQ(size.GetPhysicalSize(record->GetIboData()),
            Variant(static_cast<std::int32_t>(record->GetIboData().size())));

  EXPECT_EQ(
      log.Lines(Kind::kCalls),
      (std::vector<std::string>{
          "advisor.WIH = 2", "advisor.Evaluate", "advisor.Evaluate",
          "data.ReadIbo 7 \"GetIboFromMainByIboID\"", "data.WriteIbo \"GetIboFromMainByIboID\"",
          "data.ReadIbo 7 \"GetIboFromMainByIboID\"", "size.GetPhysicalSize"}));
}

// Counts what reaches the real trace component.
class CountingTrace : public pelkedit::ITrace {
 public:
  std::int32_t LastErrorNumber() override { return 5; }
  void ReportError(const std::string&) override { ++forwarded; }
  void EnterProc(const std::string&) override { ++forwarded; }
  void LeaveProc(const std::string&) override { ++forwarded; }
  std::int32_t InvalidArgumentErrorNumber() override { return 5; }
  void ShowError() override { ++forwarded; }
  void ShowErrorOwned(std::int32_t) override { ++forwarded; }
  int forwarded = 0;
};

TEST_F(RecordingTest, TraceLinesFeedTheTraceLogAndReachTheRealTrace) {
  auto inner = std::make_shared<CountingTrace>();
  RecordingTrace trace(rec, inner);
  trace.EnterProc("PelkEdit.PelkIboEdit::ShowIbo");
  trace.ReportError("");
  trace.ShowErrorOwned(1);
  trace.ShowError();
  trace.LeaveProc("PelkEdit.PelkIboEdit::ShowIbo");
  EXPECT_EQ(trace.LastErrorNumber(), 5);
  EXPECT_EQ(inner->forwarded, 5);
  EXPECT_EQ(log.Lines(Kind::kTrace),
            (std::vector<std::string>{"EnterProc \"PelkEdit.PelkIboEdit::ShowIbo\"",
                                      "ReportError \"\"", "ShowErrorOwned", "ShowError",
                                      "LeaveProc \"PelkEdit.PelkIboEdit::ShowIbo\""}));
  faults.Arm("trace", "LastErrorNumber");
  EXPECT_EQ(ErrorOf([&] { trace.LastErrorNumber(); }), "5 injected: trace.LastErrorNumber");
}

TEST_F(RecordingTest, LogsPrintThenForget) {
  log.Add(Kind::kEvents, "event SetIBOStatus 1");
  log.Add(Kind::kTrace, "ShowError");
  std::ostringstream out;
  log.PrintAndClear(Kind::kEvents, out);
  log.PrintAndClear(Kind::kEvents, out);
  EXPECT_EQ(out.str(), "event SetIBOStatus 1\n");
  EXPECT_EQ(log.Lines(Kind::kTrace).size(), 1U);
}

}  // namespace
}  // namespace pelkscript
