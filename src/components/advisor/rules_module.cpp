// The rule engine as a module the desktop editor loads when it first opens a deal, so that a
// pipeline that opens none starts without the expression parser and the libraries it brings.
#include "advisor/rule_engine.h"

extern "C" __attribute__((visibility("default"))) pelkor::RuleEngineMaker pelkor_rule_engines() {
  return &pelkor::CreateRuleEngine;
}
