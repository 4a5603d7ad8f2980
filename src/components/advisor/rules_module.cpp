// The rule engine as a module the desktop editor loads when it first opens a deal, so that a
// pipeline that opens none starts without the expression parser and the libraries it brings.
#include "advisor/rule_engine.h"

namespace {

std::shared_ptr<pelkedit::IAdvisor> MakeRuleEngine(const std::string& path,
                                                   pelkor::RuleEngine::Clock today) {
  return pelkor::CreateRuleEngine(path, std::move(today));
}

}  // namespace

extern "C" __attribute__((visibility("default"))) pelkor::RuleEngineMaker pelkor_rule_engines() {
  return &MakeRuleEngine;
}
