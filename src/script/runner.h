#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "world.h"

namespace pelkscript {

// Exit statuses of a run.
enum ExitStatus : int { kAllHeld = 0, kExpectationsFailed = 1, kScriptUnrunnable = 2 };

// Runs scenario files one after another, each in a fresh world, and ends with the line
// "N passed, M failed". "-" reads standard input.
class ScenarioRunner {
 public:
  ScenarioRunner(WorldOptions options, std::ostream& out)
      : options_(std::move(options)), out_(out) {}

  void RunFile(const std::string& path, std::istream& stdinStream);
  void RunStream(std::istream& in, const std::string& name);
  void PrintSummary();
  int ExitCode() const;

 private:
  void ScriptErrorOutsideFile(const std::string& message);

  WorldOptions options_;
  std::ostream& out_;
  int passed_ = 0;
  int failed_ = 0;
  bool scriptFailed_ = false;
};

// The whole command line's work: every file (standard input when there is none).
int RunScenarios(const std::vector<std::string>& files, const WorldOptions& options,
                 std::istream& in, std::ostream& out);

}  // namespace pelkscript
