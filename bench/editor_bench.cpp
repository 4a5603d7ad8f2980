// How long the editor takes for what a user waits on: loading a record (every tab filled,
// the advisor set up and the advice built), answering a question, and saving.
#include <benchmark/benchmark.h>

#include <sstream>

#include "data/demo_seed.h"
#include "data/ibo_store.h"
#include "session.h"

namespace {

pelkscript::Session& SeededSession(std::ostringstream& out) {
  static pelkscript::Session* session = [&out] {
    auto* s = new pelkscript::Session({}, out, "bench");
    pelkor::SeedDemoData(*s->GetWorld().Db());
    s->RunLine(
        "engine-result ExpertAdviceTitle=\"Qualified\" ExpertAdviceAlert=\"No proof yet\" "
        "ExpertAdviceHeading=\"Next\" ExpertAdviceBody=\"Plan:\\r\\n*Pilot\\r\\n*Reference\"");
    s->RunLine("create");
    return s;
  }();
  return *session;
}

void BM_ShowExpertIbo(benchmark::State& state) {
  std::ostringstream out;
  auto& session = SeededSession(out);
  for (auto _ : state) session.RunLine("show 1001 0");
}
BENCHMARK(BM_ShowExpertIbo);

void BM_AnswerWillItHappen(benchmark::State& state) {
  std::ostringstream out;
  auto& session = SeededSession(out);
  session.RunLine("show 1001 0");
  bool high = false;
  for (auto _ : state) {
    session.RunLine(high ? "click optWihHigh" : "click optWihLow");
    high = !high;
  }
}
BENCHMARK(BM_AnswerWillItHappen);

void BM_SaveWithButton(benchmark::State& state) {
  std::ostringstream out;
  auto& session = SeededSession(out);
  session.RunLine("show 1002 0");
  for (auto _ : state) session.RunLine("click cmdSave");
}
BENCHMARK(BM_SaveWithButton);

// An undo rebuilds the record from the last whole copy and the writes after it, then fills the
// pages as a load does: measured with 10 and with 500 steps behind it.
void BM_UndoAndRedo(benchmark::State& state) {
  std::ostringstream out;
  auto& session = SeededSession(out);
  session.RunLine("show 1001 0");
  for (std::int64_t step = 0; step < state.range(0); ++step) {
    session.RunLine(step % 2 == 0 ? "click optWihLow" : "click optWihHigh");
  }
  for (auto _ : state) {
    session.RunLine("undo");
    session.RunLine("redo");
  }
  state.SetLabel("undo + redo, " + std::to_string(state.range(0)) + " steps");
}
BENCHMARK(BM_UndoAndRedo)->Arg(10)->Arg(500);

}  // namespace
