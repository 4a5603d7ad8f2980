#include "advisor/rule_engine.h"

#include "contracts/names.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "advisor/advisor_names.h"
#include "advisor/sales_cycle.h"
#include "values/error.h"

namespace pelkor {
namespace {

using pelkedit::Variant;
namespace fact = pelkedit::fact;
using pelkedit::VariantType;

constexpr const char* kLineBreak = "\r\n";
constexpr int kHighestRating = 2;
constexpr int kHighestScore = 100;
constexpr const char* kRatingWih = "advisor_wih";
constexpr const char* kRatingWwgi = "advisor_wwgi";
constexpr const char* kRatingScore = "score";

// What the engine works out before the ratings, by the names the rules use.
std::vector<std::pair<const char*, double>> PlaceValues(const CyclePlace& place, int status) {
  const auto flag = [](bool on) { return on ? 1.0 : 0.0; };
  return {{"position", place.position},
          {"dated", flag(place.dated)},
          {"late", flag(place.late)},
          {"days_passed", place.daysPassed},
          {"days_left", place.daysLeft},
          {"won", flag(status == pelkedit::eEditStatusWon)},
          {"lost", flag(status == pelkedit::eEditStatusLost)},
          {"cancelled", flag(status == pelkedit::eEditStatusCancelled)},
          {"open",
           flag(status == pelkedit::eEditStatusOpen || status == pelkedit::eEditStatusUnknown)}};
}

// The verdict of a closed deal is its outcome's; an open one's follows its priority.
std::string VerdictKey(int status, std::int32_t priority) {
  switch (status) {
    case pelkedit::eEditStatusWon:
      return "won";
    case pelkedit::eEditStatusLost:
      return "lost";
    case pelkedit::eEditStatusCancelled:
      return "cancelled";
    default:
      return std::to_string(priority);
  }
}

double NumberOf(const Variant& value) {
  switch (value.Type()) {
    case VariantType::kBoolean:
      return value.AsBool() ? 1 : 0;
    case VariantType::kLong:
    case VariantType::kDouble:
      return value.AsDouble();
    default:
      return 0;
  }
}

// A rating rounded into 0..top; anything not finite counts as the lowest. Clamped before it is
// rounded, so that a huge rating is the highest rather than whatever an overflow leaves.
int Clamp(double value, int top) {
  if (!std::isfinite(value)) return 0;
  return static_cast<int>(std::lround(std::clamp(value, 0.0, static_cast<double>(top))));
}

const Variant& FactOf(const std::vector<Variant>& facts, const char* name) {
  return facts[RequireAdvisorName(name)];
}

std::string Join(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    if (!text.empty()) text += kLineBreak;
    text += line;
  }
  return text;
}

}  // namespace

const std::vector<std::string>& RuleEngine::Inputs() {
  static const std::vector<std::string> inputs = [] {
    std::vector<std::string> names;
    for (const AdvisorName& entry : AdvisorNames()) {
      if (entry.kind == AdvisorNameKind::kFact && entry.type != VariantType::kDate) {
        names.emplace_back(entry.name);
      }
    }
    for (const auto& [name, value] : PlaceValues({}, pelkedit::eEditStatusUnknown)) {
      names.emplace_back(name);
    }
    return names;
  }();
  return inputs;
}

RuleEngine::RuleEngine(const std::string& path, Clock today)
    : program_(SharedProgram(path, Inputs())), today_(std::move(today)) {
  for (const AdvisorName& entry : AdvisorNames()) {
    facts_.push_back(entry.kind == AdvisorNameKind::kFact ? DefaultFactValue(entry) : Variant());
  }
  const auto& values = program_->Values();
  for (const char* required : {kRatingWih, kRatingWwgi, kRatingScore}) {
    if (values.count(required) == 0) {
      throw RuleFileError(path, "section [ratings]",
                          std::string("the rating \"") + required + "\" is missing");
    }
  }
  // A fresh engine answers for its default facts, and a rule that cannot be evaluated shows
  // now rather than in front of a customer's record.
  try {
    Evaluate();
  } catch (const pelkedit::PelkError& error) {
    throw RuleFileError("Advisor rule file \"" + path + "\": " + error.Description());
  }
}

RuleEngine::~RuleEngine() = default;

Variant RuleEngine::Get(const std::string& name) {
  const std::size_t index = RequireAdvisorName(name);
  if (AdvisorNames()[index].kind == AdvisorNameKind::kFact) return facts_[index];
  return results_.at(name);
}

void RuleEngine::Set(const std::string& name, const Variant& value) {
  const std::size_t index = RequireAdvisorName(name);
  const AdvisorName& entry = AdvisorNames()[index];
  if (entry.kind != AdvisorNameKind::kFact) {
    pelkedit::Raise(pelkedit::errnum::kNotSupported, kAdvisorSource,
                    "'" + name + "' is a result of the advisor and cannot be set.");
  }
  facts_[index] = ConvertForName(entry, value);
}

void RuleEngine::LoadFacts() {
  auto& values = program_->Values();
  for (std::size_t i = 0; i < facts_.size(); ++i) {
    const AdvisorName& entry = AdvisorNames()[i];
    if (entry.kind != AdvisorNameKind::kFact || entry.type == VariantType::kDate) continue;
    values[std::string(entry.name)] = NumberOf(facts_[i]);
  }
  const int status = FactOf(facts_, fact::Status).AsLong();
  const CyclePlace place = PlaceInCycle(status, FactOf(facts_, fact::StartDate).AsDate(),
                                        FactOf(facts_, fact::WwihDate).AsDate(),
                                        FactOf(facts_, fact::CloseDate).AsDate(), today_());
  for (const auto& [name, value] : PlaceValues(place, status)) values[name] = value;
  results_[fact::SalesCyclePosition] = place.position;
  results_[fact::SalesCycleLine1] = place.line1;
  results_[fact::SalesCycleLine2] = place.line2;
}

void RuleEngine::Evaluate() {
  LoadFacts();
  const std::vector<bool> holding = program_->Run();
  WorkOutResults();
  ComposeAdvice(holding);
}

void RuleEngine::WorkOutResults() {
  const RuleSet& rules = program_->Rules();
  std::map<std::string, double>& values = program_->Values();
  const int wih = Clamp(values[kRatingWih], kHighestRating);
  const int wwgi = Clamp(values[kRatingWwgi], kHighestRating);
  const auto priority = [&](int row, int column) {
    return rules.priority[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
  };
  results_[fact::AdvisorWih] = std::int32_t{wih};
  results_[fact::AdvisorWwgi] = std::int32_t{wwgi};
  results_[fact::AdvisorExtraResult] = std::int32_t{Clamp(values[kRatingScore], kHighestScore)};
  results_[fact::UserPriority] = std::int32_t{priority(Clamp(values[fact::WIH], kHighestRating),
                                                       Clamp(values[fact::WWGI], kHighestRating))};
  results_[fact::AdvisorPriority] =
      std::int32_t{values["open"] != 0 ? priority(wih, wwgi) : rules.closedPriority};
}

void RuleEngine::ComposeAdvice(const std::vector<bool>& holds) {
  const RuleSet& rules = program_->Rules();
  std::map<std::string, double>& values = program_->Values();
  const std::string verdict = rules.Verdict(
      VerdictKey(static_cast<int>(values[fact::Status]), results_[fact::AdvisorPriority].AsLong()));
  results_[fact::ExpertAdviceTitle] = verdict;
  results_[fact::BasicAdviceTitle] = verdict;
  // A closed deal has its verdict and nothing left to do.
  if (values["open"] == 0) {
    for (const char* text : {fact::ExpertAdviceAlert, fact::ExpertAdviceHeading,
                             fact::ExpertAdviceBody, fact::BasicAdviceBody}) {
      results_[text] = std::string();
    }
    return;
  }
  std::vector<const AdviceRule*> holding;
  for (std::size_t i = 0; i < holds.size(); ++i) {
    if (holds[i]) holding.push_back(&rules.rules[i]);
  }
  std::stable_sort(holding.begin(), holding.end(),
                   [](const AdviceRule* a, const AdviceRule* b) { return a->rank > b->rank; });
  std::string alert;
  std::vector<std::string> actions;
  std::vector<std::string> basic;
  const auto maxActions = static_cast<std::size_t>(rules.MaxActions());
  for (const AdviceRule* rule : holding) {
    if (rule->kind == RuleKind::kAlert && alert.empty()) alert = rule->text;
    if (rule->kind == RuleKind::kAction && actions.size() < maxActions)
      actions.push_back("*" + rule->text);
    if (rule->kind == RuleKind::kBasic) basic.push_back(rule->text);
  }
  results_[fact::ExpertAdviceAlert] = alert;
  if (actions.empty()) {
    results_[fact::ExpertAdviceHeading] = rules.Text("heading_none");
    results_[fact::ExpertAdviceBody] = rules.Text("body_none");
  } else {
    actions.insert(actions.begin(), rules.Text("body_first"));
    results_[fact::ExpertAdviceHeading] = rules.Text("heading");
    results_[fact::ExpertAdviceBody] = Join(actions);
  }
  results_[fact::BasicAdviceBody] = basic.empty() ? rules.Text("body_none") : Join(basic);
}

std::shared_ptr<RuleEngine> CreateRuleEngine(const std::string& path, RuleEngine::Clock today) {
  return std::make_shared<RuleEngine>(path, std::move(today));
}

}  // namespace pelkor
