#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "advisor/rule_file.h"
#include "advisor/rule_program.h"
#include "contracts/advisor.h"
#include "values/date.h"
#include "values/variant.h"

namespace pelkor {

// The advisor that knows the sales methodology: it works out its ratings, priorities, place in
// the cycle and advice from the facts with the rules of a rule file (docs/ADVISOR.md). Results
// reflect the facts of the last Evaluate; a fresh engine has evaluated its default facts.
class RuleEngine : public pelkedit::IAdvisor {
 public:
  using Clock = std::function<pelkedit::Date()>;
  // RuleFileError when the rule file cannot be used.
  RuleEngine(const std::string& path, Clock today);
  ~RuleEngine() override;
  RuleEngine(const RuleEngine&) = delete;
  RuleEngine& operator=(const RuleEngine&) = delete;

  pelkedit::Variant Get(const std::string& name) override;
  void Set(const std::string& name, const pelkedit::Variant& value) override;
  void Evaluate() override;

  // The names of the facts and times the rules may use besides their own ratings.
  static const std::vector<std::string>& Inputs();

 private:
  void LoadFacts();
  void WorkOutResults();
  void ComposeAdvice(const std::vector<bool>& holding);

  std::shared_ptr<RuleProgram> program_;
  Clock today_;
  std::vector<pelkedit::Variant> facts_;
  std::map<std::string, pelkedit::Variant> results_;
};

// A rule engine over the rule file at `path` (loaded and checked, or shared while unchanged)
// with `today` as its clock; RuleFileError when the file cannot be used.
std::shared_ptr<RuleEngine> CreateRuleEngine(const std::string& path, RuleEngine::Clock today);

// What the pelkor-rules module hands the program that loads it (its entry point
// "pelkor_rule_engines" returns one): CreateRuleEngine.
using RuleEngineMaker = decltype(&CreateRuleEngine);

}  // namespace pelkor
