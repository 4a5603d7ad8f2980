#include "world_log.h"

#include "values/error.h"

namespace pelkscript {
namespace {
constexpr const char* kTempMark = "$TMP";
std::string Key(const std::string& object, const std::string& operation) {
  return object + "." + operation;
}

std::string ReplaceAll(std::string text, const std::string& from, const std::string& to) {
  if (from.empty()) return text;
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

}  // namespace

std::string WorldLog::Masked(std::string text) const {
  return ReplaceAll(std::move(text), tempDir_, kTempMark);
}

std::string WorldLog::Unmasked(std::string text) const {
  return ReplaceAll(std::move(text), kTempMark, tempDir_);
}

void WorldLog::PrintAndClear(Kind kind, std::ostream& out) {
  auto& lines = logs_[kind];
  for (const auto& line : lines) out << line << '\n';
  lines.clear();
}

void FaultInjector::Arm(const std::string& object, const std::string& operation) {
  ++armed_[Key(object, operation)];
}

bool FaultInjector::Armed(const std::string& object, const std::string& operation) const {
  const auto it = armed_.find(Key(object, operation));
  return it != armed_.end() && it->second > 0;
}

void FaultInjector::Check(const std::string& object, const std::string& operation,
                          const std::string& source) {
  const std::string key = Key(object, operation);
  const auto it = armed_.find(key);
  if (it == armed_.end() || it->second == 0) return;
  if (--it->second == 0) armed_.erase(it);
  throw pelkedit::PelkError(pelkedit::errnum::kInvalidProcedureCall, source, "injected: " + key);
}

}  // namespace pelkscript
