#include "advisor/rule_file.h"

#include <ini.h>

#include "config/ini_lines.h"

#include <cstdlib>
#include <sstream>

namespace pelkor {
namespace {

constexpr const char* kRatings = "ratings";
constexpr const char* kPriority = "priority";
constexpr const char* kVerdict = "verdict";
constexpr const char* kTexts = "texts";
constexpr const char* kRulePrefix = "rule ";
constexpr int kLowestPriority = 5;
constexpr int kDefaultMaxActions = 6;

const char* const kRowNames[kRatingLevels] = {"low", "medium", "high"};
const char* const kRequiredVerdicts[] = {"1", "2", "3", "4", "5", "won", "lost", "cancelled"};
const char* const kRequiredTexts[] = {"heading", "heading_none", "body_none", "body_first"};

struct Reading {
  RuleSet set;
  std::map<std::string, std::size_t> rules;
  std::string previousSection;
  std::string previousKey;
  std::string error;
  // The line of each handler call, in order, and the line of the call being handled.
  std::vector<int> valueLines;
  std::size_t calls = 0;
  int line = 0;
};

[[noreturn]] void Fail(const std::string& path, const std::string& where, const std::string& why) {
  throw RuleFileError(path, where, why);
}

int PriorityValue(const std::string& word, const std::string& path, const std::string& where) {
  if (word.size() != 1 || word[0] < '1' || word[0] > '0' + kLowestPriority) {
    Fail(path, where, "a priority is a number from 1 to 5, not \"" + word + "\"");
  }
  return word[0] - '0';
}

void ReadPriorityRow(RuleSet& set, const std::string& key, const std::string& value, int line) {
  const std::string where = AtLine("priority \"" + key + "\"", line);
  if (key == "closed") {
    set.closedPriority = PriorityValue(value, set.path, where);
    return;
  }
  int row = -1;
  for (int i = 0; i < kRatingLevels; ++i) {
    if (key == kRowNames[i]) row = i;
  }
  if (row < 0) Fail(set.path, where, "the rows are low, medium, high and closed");
  std::istringstream words(value);
  std::vector<std::string> cells;
  for (std::string word; words >> word;) cells.push_back(word);
  if (cells.size() != kRatingLevels) Fail(set.path, where, "a row holds three priorities");
  for (int column = 0; column < kRatingLevels; ++column) {
    set.priority[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] =
        PriorityValue(cells[static_cast<std::size_t>(column)], set.path, where);
  }
}

void ReadRuleKey(RuleSet& set, AdviceRule& rule, const std::string& key, const std::string& value,
                 int line) {
  const std::string where = AtLine("rule \"" + rule.name + "\"", line);
  if (key == "kind") {
    if (value == "alert") {
      rule.kind = RuleKind::kAlert;
    } else if (value == "action") {
      rule.kind = RuleKind::kAction;
    } else if (value == "basic") {
      rule.kind = RuleKind::kBasic;
    } else {
      Fail(set.path, where, "kind is alert, action or basic, not \"" + value + "\"");
    }
  } else if (key == "rank") {
    char* end = nullptr;
    const long rank = std::strtol(value.c_str(), &end, 10);
    if (value.empty() || *end != '\0') Fail(set.path, where, "rank is a whole number");
    rule.rank = static_cast<int>(rank);
  } else if (key == "when") {
    rule.when = value;
    rule.whenLine = line;
  } else if (key == "text") {
    rule.text = value;
  } else {
    Fail(set.path, where, "unknown key \"" + key + "\" (kind, rank, when, text)");
  }
}

void Take(Reading& r, const std::string& section, const std::string& key,
          const std::string& value) {
  RuleSet& set = r.set;
  if (section == kRatings) {
    for (const Rating& rating : set.ratings) {
      if (rating.name == key) {
        Fail(set.path, AtLine("rating \"" + key + "\"", r.line),
             "it is defined twice (first at line " + std::to_string(rating.line) + ")");
      }
    }
    set.ratings.push_back({key, value, r.line});
  } else if (section == kPriority) {
    ReadPriorityRow(set, key, value, r.line);
  } else if (section == kVerdict) {
    set.verdicts[key] = value;
  } else if (section == kTexts) {
    set.texts[key] = value;
  } else if (section.rfind(kRulePrefix, 0) == 0) {
    const std::string name = section.substr(std::string(kRulePrefix).size());
    const auto [it, fresh] = r.rules.try_emplace(name, set.rules.size());
    if (fresh) set.rules.push_back({name, RuleKind::kAction, 0, "", "", r.line, 0});
    ReadRuleKey(set, set.rules[it->second], key, value, r.line);
  } else {
    Fail(set.path, AtLine("section [" + section + "]", r.line), "unknown section");
  }
}

// A continuation line arrives as the same key again: it extends the value.
void Continue(Reading& r, const std::string& section, const std::string& key,
              const std::string& value) {
  if (section == kRatings) {
    r.set.ratings.back().expression += " " + value;
  } else if (section.rfind(kRulePrefix, 0) == 0) {
    AdviceRule& rule = r.set.rules[r.rules.at(section.substr(std::string(kRulePrefix).size()))];
    std::string& target = key == "when" ? rule.when : rule.text;
    target += " " + value;
  } else if (section == kVerdict) {
    r.set.verdicts[key] += " " + value;
  } else if (section == kTexts) {
    r.set.texts[key] += " " + value;
  }
}

int Handle(void* user, const char* section, const char* key, const char* value) {
  auto& r = *static_cast<Reading*>(user);
  r.line = r.calls < r.valueLines.size() ? r.valueLines[r.calls] : 0;
  ++r.calls;
  try {
    const bool continued = r.previousSection == section && r.previousKey == key;
    r.previousSection = section;
    r.previousKey = key;
    if (continued) {
      Continue(r, section, key, value);
    } else {
      Take(r, section, key, value);
    }
    return 1;
  } catch (const RuleFileError& error) {
    r.error = error.what();
    return 0;
  }
}

void CheckComplete(const RuleSet& set) {
  if (set.ratings.empty()) Fail(set.path, "section [ratings]", "it is missing or empty");
  for (const auto& row : set.priority) {
    for (const int cell : row) {
      if (cell == 0) Fail(set.path, "section [priority]", "rows low, medium and high are needed");
    }
  }
  if (set.closedPriority == 0) Fail(set.path, "priority \"closed\"", "it is missing");
  for (const char* key : kRequiredVerdicts) {
    if (set.verdicts.count(key) == 0)
      Fail(set.path, std::string("verdict \"") + key + "\"", "it is missing");
  }
  for (const char* key : kRequiredTexts) {
    if (set.texts.count(key) == 0)
      Fail(set.path, std::string("text \"") + key + "\"", "it is missing");
  }
  for (const AdviceRule& rule : set.rules) {
    const std::string where = AtLine("rule \"" + rule.name + "\"", rule.line);
    if (rule.when.empty()) Fail(set.path, where, "it has no condition (when)");
    if (rule.text.empty()) Fail(set.path, where, "it has no text");
  }
}

}  // namespace

const std::string& RuleSet::Verdict(const std::string& key) const {
  return verdicts.at(key);
}

const std::string& RuleSet::Text(const std::string& key) const {
  return texts.at(key);
}

int RuleSet::MaxActions() const {
  const auto it = texts.find("max_actions");
  if (it == texts.end()) return kDefaultMaxActions;
  return std::max(0, std::atoi(it->second.c_str()));
}

std::string AtLine(const std::string& where, int line) {
  return line > 0 ? where + " (line " + std::to_string(line) + ")" : where;
}

RuleSet LoadRuleFile(const std::string& path) {
  const auto lines = ReadIniLines(path);
  if (!lines) Fail(path, "the file", "it cannot be opened");
  if (lines->firstTooLong > 0) {
    Fail(path, "line " + std::to_string(lines->firstTooLong),
         "it is longer than " + std::to_string(kLongestIniLine) +
             " characters; continue it on a line that starts with a space");
  }
  Reading reading;
  reading.set.path = path;
  reading.valueLines = lines->valueLines;
  const int result = ini_parse(path.c_str(), Handle, &reading);
  if (!reading.error.empty()) throw RuleFileError(reading.error);
  if (result < 0) Fail(path, "the file", "it cannot be opened");
  if (result > 0)
    Fail(path, "line " + std::to_string(result), "it is not a section, a key = value or a comment");
  CheckComplete(reading.set);
  return std::move(reading.set);
}

}  // namespace pelkor
