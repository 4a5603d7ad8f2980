#include "runner.h"

#include <exception>
#include <fstream>

#include "session.h"

namespace pelkscript {

constexpr const char* kStandardInput = "-";

void ScenarioRunner::ScriptErrorOutsideFile(const std::string& message) {
  out_ << message << '\n';
  scriptFailed_ = true;
}

void ScenarioRunner::RunFile(const std::string& path, std::istream& stdinStream) {
  if (path == kStandardInput) {
    RunStream(stdinStream, path);
    return;
  }
  std::ifstream file(path);
  if (!file) {
    ScriptErrorOutsideFile(path + ": script error: cannot open the file");
    return;
  }
  RunStream(file, path);
}

void ScenarioRunner::RunStream(std::istream& in, const std::string& name) {
  try {
    Session session(options_, out_, name);
    session.Run(in);
    passed_ += session.Passed();
    failed_ += session.Failed();
    scriptFailed_ = scriptFailed_ || session.ScriptFailed();
  } catch (const pelkedit::PelkError& error) {
    // The world itself could not be set up (database, temporary folder).
    ScriptErrorOutsideFile(name + ": script error: " + error.Description());
  } catch (const std::exception& error) {
    ScriptErrorOutsideFile(name + ": script error: " + error.what());
  }
}

void ScenarioRunner::PrintSummary() {
  out_ << passed_ << " passed, " << failed_ << " failed\n";
  out_.flush();
}

int ScenarioRunner::ExitCode() const {
  if (scriptFailed_) return kScriptUnrunnable;
  return failed_ > 0 ? kExpectationsFailed : kAllHeld;
}

int RunScenarios(const std::vector<std::string>& files, const WorldOptions& options,
                 std::istream& in, std::ostream& out) {
  ScenarioRunner runner(options, out);
  if (files.empty()) {
    runner.RunFile(kStandardInput, in);
  } else {
    for (const auto& file : files) runner.RunFile(file, in);
  }
  runner.PrintSummary();
  return runner.ExitCode();
}

}  // namespace pelkscript
