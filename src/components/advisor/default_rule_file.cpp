// Where the rule file is, apart from reading it: a program that loads the rule engine as a
// module names the file without linking the reader.
#include <cstdlib>

#include "advisor/rule_file.h"
#include "config/install_layout.h"

namespace pelkor {
namespace {

constexpr const char* kRuleFileName = "advisor.rules";

}  // namespace

std::string DefaultRuleFile() {
  if (const char* chosen = std::getenv("PELKOR_ADVISOR_RULES");
      chosen != nullptr && *chosen != '\0') {
    return chosen;
  }
  return (FindDataPlaces().dataFolder / kRuleFileName).string();
}

}  // namespace pelkor
