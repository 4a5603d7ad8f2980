#pragma once

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace pelkscript {

// What the scripted world records for the `print` logs; each log prints and then forgets
// what it holds.
class WorldLog {
 public:
  enum class Kind { kMessages, kEvents, kTrace, kCalls };

  void Add(Kind kind, std::string line) { logs_[kind].push_back(Masked(std::move(line))); }
  // The run's own temporary folder, printed as $TMP wherever it appears.
  void SetTempDir(std::string dir) { tempDir_ = std::move(dir); }
  std::string Masked(std::string text) const;
  // A path or value as a scenario writes it: $TMP stands for that folder.
  std::string Unmasked(std::string text) const;
  const std::vector<std::string>& Lines(Kind kind) { return logs_[kind]; }
  void PrintAndClear(Kind kind, std::ostream& out);
  void ClearAll() { logs_.clear(); }

 private:
  std::map<Kind, std::vector<std::string>> logs_;
  std::string tempDir_;
};

// Armed failures: `fail OBJECT.OPERATION` makes the next call of that operation raise
// error 5 "injected: OBJECT.OPERATION".
class FaultInjector {
 public:
  void Arm(const std::string& object, const std::string& operation);
  // Raises when a failure is armed for this operation, disarming it.
  void Check(const std::string& object, const std::string& operation, const std::string& source);
  bool Armed(const std::string& object, const std::string& operation) const;

 private:
  std::map<std::string, int> armed_;
};

}  // namespace pelkscript
