#pragma once

#include <memory>
#include <string>

#include "advisor/rule_engine.h"

namespace pelkor::desktop {

// A rule engine over the rule file at `path`, made by the pelkor-rules module, loaded when the
// first deal is opened: the pipeline alone starts without the expression parser and the
// libraries it brings. RuleFileError when the file, or the module, cannot be used.
std::shared_ptr<RuleEngine> LoadedRuleEngine(const std::string& path, RuleEngine::Clock today);

}  // namespace pelkor::desktop
