// pelkor-edit's start-up beside a bare Qt window: each iteration starts the program, waits
// until it has shown its window and quit, and records the wall time and the child's peak
// memory. Run: startup_bench --benchmark_counters_tabular=true (offscreen or under X).
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

extern char** environ;

namespace {

struct Run {
  double seconds;
  long peakKilobytes;
};

// Every run starts as a new user would: with settings, state and data folders of its own, made
// once for the whole benchmark, so that no window placement, trace log or changes kept from the
// user's own sessions (which would ask to be restored) meet it.
std::vector<char*> FreshUserEnvironment() {
  constexpr std::array<std::string_view, 3> kFolderVariables = {"XDG_CONFIG_HOME", "XDG_STATE_HOME",
                                                                "XDG_DATA_HOME"};
  // Removed when the benchmark ends.
  struct Folder {
    std::string path = std::filesystem::temp_directory_path() / "pelkor-startup-XXXXXX";
    Folder() {
      if (mkdtemp(path.data()) == nullptr) std::abort();
    }
    ~Folder() {
      std::error_code ignored;
      std::filesystem::remove_all(path, ignored);
    }
  };
  static const Folder base;
  static std::vector<std::string> fresh = [kFolderVariables] {
    std::vector<std::string> assignments;
    for (const std::string_view variable : kFolderVariables) {
      assignments.push_back(std::string(variable) + "=" + base.path + "/" + std::string(variable));
    }
    return assignments;
  }();
  const auto replaced = [kFolderVariables](std::string_view assignment) {
    return std::any_of(
        kFolderVariables.begin(), kFolderVariables.end(), [&](std::string_view name) {
          return assignment.starts_with(name) && assignment.substr(name.size()).starts_with("=");
        });
  };
  std::vector<char*> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    if (!replaced(*variable)) variables.push_back(*variable);
  }
  for (std::string& assignment : fresh) variables.push_back(assignment.data());
  variables.push_back(nullptr);
  return variables;
}

Run Start(std::vector<std::string> args) {
  std::vector<char*> argv;
  for (std::string& arg : args) argv.push_back(arg.data());
  argv.push_back(nullptr);
  std::vector<char*> environment = FreshUserEnvironment();
  const auto begin = std::chrono::steady_clock::now();
  pid_t child = 0;
  if (posix_spawn(&child, argv[0], nullptr, nullptr, argv.data(), environment.data()) != 0) {
    std::abort();
  }
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

// The same window at the pipeline's size (1280x720 for a new user, less on a small screen): at
// 1280x720 its backing store alone takes 2.6 MB more than the 600x440 window's.
void BM_BareQtWindowAtThePipelinesSize(benchmark::State& state) {
  Measure(state, {PELK_BARE_WINDOW, "pipeline"});
}
BENCHMARK(BM_BareQtWindowAtThePipelinesSize)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20);

void BM_PelkorEditShowsAnIbo(benchmark::State& state) {
  Measure(state, {PELK_EDITOR, "--db", PELK_DEMO_DB, "--ibo", "1001", "--measure-start"});
}
BENCHMARK(BM_PelkorEditShowsAnIbo)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

// The home a salesperson starts on: the pipeline's first page, the matrix and the forecast.
void BM_PelkorEditShowsThePipeline(benchmark::State& state) {
  Measure(state, {PELK_EDITOR, "--db", PELK_DEMO_DB, "--measure-start"});
}
BENCHMARK(BM_PelkorEditShowsThePipeline)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20);

// The same on a database of 100,000 IBOs ($PELKOR_BENCH_LARGE_DB, made by store_bench): start-up
// must not grow with the database.
void StartOnLargeDatabase(benchmark::State& state, const std::vector<std::string>& extra) {
  const char* large = std::getenv("PELKOR_BENCH_LARGE_DB");
  if (large == nullptr) {
    state.SkipWithError("set PELKOR_BENCH_LARGE_DB to a database of 100,000 IBOs");
    return;
  }
  std::vector<std::string> command = {PELK_EDITOR, "--db", large, "--measure-start"};
  command.insert(command.end(), extra.begin(), extra.end());
  Measure(state, command);
}
void BM_PelkorEditShowsThePipelineOfALargeDatabase(benchmark::State& state) {
  StartOnLargeDatabase(state, {});
}
BENCHMARK(BM_PelkorEditShowsThePipelineOfALargeDatabase)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10);
void BM_PelkorEditShowsAnIboOfALargeDatabase(benchmark::State& state) {
  StartOnLargeDatabase(state, {"--ibo", "1001"});
}
BENCHMARK(BM_PelkorEditShowsAnIboOfALargeDatabase)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10);

}  // namespace
