// pelkor-edit's start-up beside a bare Qt window: each iteration starts the program, waits
// until it has shown its window and quit, and records the wall time and the child's peak
// memory. Run: startup_bench --benchmark_counters_tabular=true (offscreen or under X).
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

extern char** environ;

namespace {

struct Run {
  double seconds;
  long peakKilobytes;
};

Run Start(std::vector<std::string> args) {
  std::vector<char*> argv;
  for (std::string& arg : args) argv.push_back(arg.data());
  argv.push_back(nullptr);
  const auto begin = std::chrono::steady_clock::now();
  pid_t child = 0;
  if (posix_spawn(&child, argv[0], nullptr, nullptr, argv.data(), environ) != 0) std::abort();
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::abort();
  }
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  return {took.count(), usage.ru_maxrss};
}

void Measure(benchmark::State& state, const std::vector<std::string>& command) {
  long peak = 0;
  for (auto _ : state) {
    const Run run = Start(command);
    state.SetIterationTime(run.seconds);
    peak = std::max(peak, run.peakKilobytes);
  }
  state.counters["peak_MB"] = static_cast<double>(peak) / 1024.0;
}

void BM_BareQtWindow(benchmark::State& state) {
  Measure(state, {PELK_BARE_WINDOW});
}
BENCHMARK(BM_BareQtWindow)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

void BM_PelkorEditShowsAnIbo(benchmark::State& state) {
  Measure(state, {PELK_EDITOR, "--db", PELK_DEMO_DB, "--ibo", "1001", "--measure-start"});
}
BENCHMARK(BM_PelkorEditShowsAnIbo)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

}  // namespace
