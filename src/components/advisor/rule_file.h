#pragma once

#include <array>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace pelkor {

// Why a rule file cannot be used: the file, the part of it (a rule, a rating, a section) and
// the problem, in one sentence.
class RuleFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  // "Advisor rule file "PATH", WHERE: WHY"
  RuleFileError(const std::string& path, const std::string& where, const std::string& why)
      : std::runtime_error("Advisor rule file \"" + path + "\", " + where + ": " + why) {}
};

// A value worked out from the facts and the values before it.
struct Rating {
  std::string name;
  std::string expression;
  // Where it starts in the file, for messages.
  int line = 0;
};

enum class RuleKind { kAlert, kAction, kBasic };

// One piece of advice: shown when its condition holds; among those that hold, a higher rank
// comes first (an alert: only the highest is shown).
struct AdviceRule {
  std::string name;
  RuleKind kind = RuleKind::kAction;
  int rank = 0;
  std::string when;
  std::string text;
  // Where its section and its condition start in the file, for messages.
  int line = 0;
  int whenLine = 0;
};

// "rule "NAME" (line N)", "rating "NAME" (line N)": a part of the file and where it is.
std::string AtLine(const std::string& where, int line);

inline constexpr int kRatingLevels = 3;

// What a rule file holds, as read; expressions are checked when an engine compiles them.
struct RuleSet {
  std::string path;
  std::vector<Rating> ratings;
  // priority[wih][wwgi], ratings 0 Low to 2 High.
  std::array<std::array<int, kRatingLevels>, kRatingLevels> priority{};
  int closedPriority = 0;
  // "1" to "5", "won", "lost", "cancelled".
  std::map<std::string, std::string> verdicts;
  std::map<std::string, std::string> texts;
  std::vector<AdviceRule> rules;

  const std::string& Verdict(const std::string& key) const;
  const std::string& Text(const std::string& key) const;
  int MaxActions() const;
};

// Reads and checks a rule file's structure: sections, keys, the priority table (1 to 5), every
// verdict and text the engine shows, every rule's kind, rank, condition and text.
RuleSet LoadRuleFile(const std::string& path);

// The installed rule file: $PELKOR_ADVISOR_RULES when set, else the first of the application's
// data folder and the source tree's data folder that holds one.
std::string DefaultRuleFile();

}  // namespace pelkor
