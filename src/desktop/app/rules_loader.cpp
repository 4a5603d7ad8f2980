#include "app/rules_loader.h"

#include "app/module_loader.h"

namespace pelkor::desktop {
namespace {

constexpr const char* kModuleFile = "pelkor-rules.so";
constexpr const char* kEntry = "pelkor_rule_engines";

using Entry = RuleEngineMaker (*)();

RuleEngineMaker LoadModule() {
  const auto entry = reinterpret_cast<Entry>(
      ModuleEntry(kModuleFile, kEntry, [](const std::string& path, const std::string& why) {
        throw RuleFileError("The rule engine (" + path + ") cannot be loaded: " + why + ".");
      }));
  return entry();
}

}  // namespace

std::shared_ptr<RuleEngine> LoadedRuleEngine(const std::string& path, RuleEngine::Clock today) {
  static const RuleEngineMaker maker = LoadModule();
  return maker(path, std::move(today));
}

}  // namespace pelkor::desktop
