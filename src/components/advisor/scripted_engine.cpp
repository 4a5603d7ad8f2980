#include "advisor/scripted_engine.h"

#include "advisor/advisor_names.h"
#include "values/error.h"

namespace pelkor {
namespace {

using pelkedit::Variant;

constexpr std::int32_t kMiddlePriority = 3;

const AdvisorName& RequireResult(const std::string& name) {
  const AdvisorName& entry = AdvisorNames()[RequireAdvisorName(name)];
  if (entry.kind != AdvisorNameKind::kResult) {
    pelkedit::Raise(pelkedit::errnum::kNotSupported, kAdvisorSource,
                    "'" + name + "' is a fact of the advisor, not a result.");
  }
  return entry;
}

}  // namespace

void ScriptedResults::Set(const std::string& name, const Variant& value) {
  values_[name] = ConvertForName(RequireResult(name), value);
}

std::optional<Variant> ScriptedResults::Find(const std::string& name) const {
  const auto it = values_.find(name);
  if (it == values_.end()) return std::nullopt;
  return it->second;
}

ScriptedEngine::ScriptedEngine(std::shared_ptr<ScriptedResults> results)
    : results_(results ? std::move(results) : std::make_shared<ScriptedResults>()) {
  for (const AdvisorName& entry : AdvisorNames()) {
    facts_.push_back(entry.kind == AdvisorNameKind::kFact ? DefaultFactValue(entry) : Variant());
  }
  KeepAssessments();
}

// Without rules the engine's own view of WIH and WWGI is the user's, as of this evaluation.
void ScriptedEngine::KeepAssessments() {
  static const std::size_t wih = RequireAdvisorName("WIH");
  static const std::size_t wwgi = RequireAdvisorName("WWGI");
  evaluatedWih_ = facts_[wih].AsLong();
  evaluatedWwgi_ = facts_[wwgi].AsLong();
}

Variant ScriptedEngine::Get(const std::string& name) {
  const std::size_t index = RequireAdvisorName(name);
  if (AdvisorNames()[index].kind == AdvisorNameKind::kFact) return facts_[index];
  if (auto scripted = results_->Find(name)) return *scripted;
  return UnscriptedResult(name);
}

Variant ScriptedEngine::UnscriptedResult(const std::string& name) const {
  if (name == "UserPriority" || name == "AdvisorPriority") return kMiddlePriority;
  if (name == "AdvisorWih") return evaluatedWih_;
  if (name == "AdvisorWwgi") return evaluatedWwgi_;
  if (name == "AdvisorExtraResult") return std::int32_t{0};
  if (name == "SalesCyclePosition") return 0.0;
  return std::string();
}

void ScriptedEngine::Set(const std::string& name, const Variant& value) {
  const std::size_t index = RequireAdvisorName(name);
  const AdvisorName& entry = AdvisorNames()[index];
  if (entry.kind != AdvisorNameKind::kFact) {
    pelkedit::Raise(pelkedit::errnum::kNotSupported, kAdvisorSource,
                    "'" + name + "' is a result of the advisor and cannot be set.");
  }
  facts_[index] = ConvertForName(entry, value);
}

void ScriptedEngine::Evaluate() {
  ++evaluations_;
  KeepAssessments();
}

std::shared_ptr<pelkedit::IAdvisor> CreateScriptedEngine(std::shared_ptr<ScriptedResults> results) {
  return std::make_shared<ScriptedEngine>(std::move(results));
}

void RegisterScriptedAdvisor(pelkedit::ObjectFactory& factory,
                             std::shared_ptr<ScriptedResults> results) {
  auto create = [results] { return pelkedit::ObjectPtr(CreateScriptedEngine(results)); };
  factory.Register(pelkedit::kAdvisorProgId, create);
  factory.Register(pelkedit::kAdvisorProgIdAtCreate, create);
}

}  // namespace pelkor
