#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contracts/advisor.h"
#include "platform/object_factory.h"
#include "values/variant.h"

namespace pelkor {

// Results every scripted engine of one world reports instead of its own, set from outside
// (the scenario runner's engine results). Engines read them at each call, so a change reaches
// engines that already exist.
struct ScriptedResults {
  // Error 438 for a name that is not a result, 13 for a value of the wrong type; a Long is
  // accepted for the Double result.
  void Set(const std::string& name, const pelkedit::Variant& value);
  void Clear(const std::string& name) { values_.erase(name); }
  void ClearAll() { values_.clear(); }
  std::optional<pelkedit::Variant> Find(const std::string& name) const;
  const std::map<std::string, pelkedit::Variant>& Values() const { return values_; }

 private:
  std::map<std::string, pelkedit::Variant> values_;
};

// An engine without rules: it keeps the facts set on it and, for results nobody scripted,
// answers both priorities 3, assessments equal to the WIH and WWGI facts of its last
// evaluation, no extra result, position 0 and empty texts.
class ScriptedEngine : public pelkedit::IAdvisor {
 public:
  explicit ScriptedEngine(std::shared_ptr<ScriptedResults> results);

  pelkedit::Variant Get(const std::string& name) override;
  void Set(const std::string& name, const pelkedit::Variant& value) override;
  void Evaluate() override;

  // How many times Evaluate has run on this engine.
  int EvaluationCount() const { return evaluations_; }

 private:
  pelkedit::Variant UnscriptedResult(const std::string& name) const;
  void KeepAssessments();

  std::shared_ptr<ScriptedResults> results_;
  // Indexed like AdvisorNames(); results keep an empty slot.
  std::vector<pelkedit::Variant> facts_;
  std::int32_t evaluatedWih_ = 0;
  std::int32_t evaluatedWwgi_ = 0;
  int evaluations_ = 0;
};

std::shared_ptr<pelkedit::IAdvisor> CreateScriptedEngine(std::shared_ptr<ScriptedResults> results);

// Makes scripted engines creatable by both of the advisor's programmatic identifiers.
void RegisterScriptedAdvisor(pelkedit::ObjectFactory& factory,
                             std::shared_ptr<ScriptedResults> results);

}  // namespace pelkor
