#include "advisor/advisor_names.h"

#include <array>
#include <cstdint>
#include <unordered_map>

#include "control/editor_events.h"
#include "values/date.h"
#include "values/error.h"

namespace pelkor {
namespace {

using Kind = AdvisorNameKind;
using pelkedit::VariantType;

constexpr AdvisorName Fact(std::string_view name, VariantType type) {
  return {name, Kind::kFact, type};
}
constexpr AdvisorName Result(std::string_view name, VariantType type) {
  return {name, Kind::kResult, type};
}

constexpr auto kLong = VariantType::kLong;
constexpr auto kBool = VariantType::kBoolean;
constexpr auto kDate = VariantType::kDate;
constexpr auto kText = VariantType::kString;
constexpr auto kDouble = VariantType::kDouble;

constexpr std::array kNames{
    Fact("ExpertMode", kBool),
    Fact("StartDate", kDate),
    Fact("WwihDate", kDate),
    Fact("CloseDate", kDate),
    Fact("WIH", kLong),
    Fact("WWGI", kLong),
    Fact("Status", kLong),
    Fact("TrialCloseFact", kLong),
    Fact("SEnvLevelNeed", kLong),
    Fact("SEnvSolMatch", kLong),
    Fact("SEnvCustomerNeed", kLong),
    Fact("SEnvBudgetMatch", kLong),
    Fact("SEnvFunding", kLong),
    Fact("SEnvFamOrg", kLong),
    Fact("SEnvCompPressure", kLong),
    Fact("SEnvCompetitorsKnown", kBool),
    Fact("SEnvDmEconNameKnown", kBool),
    Fact("SEnvDmTechNameKnown", kBool),
    Fact("SEnvDmUserNameKnown", kBool),
    Fact("SEnvDmEconInfluence", kLong),
    Fact("SEnvDmTechInfluence", kLong),
    Fact("SEnvDmUserInfluence", kLong),
    Fact("SEnvDmEconDOP", kLong),
    Fact("SEnvDmTechDOP", kLong),
    Fact("SEnvDmUserDOP", kLong),
    Fact("SEnvDmEconRelationship", kLong),
    Fact("SEnvDmTechRelationship", kLong),
    Fact("SEnvDmUserRelationship", kLong),
    Fact("SEnvDmEconImportantKnown", kBool),
    Fact("SEnvDmTechImportantKnown", kBool),
    Fact("SEnvDmUserImportantKnown", kBool),
    Result("SalesCycleLine1", kText),
    Result("SalesCycleLine2", kText),
    Result("ExpertAdviceHeading", kText),
    Result("ExpertAdviceTitle", kText),
    Result("ExpertAdviceAlert", kText),
    Result("ExpertAdviceBody", kText),
    Result("BasicAdviceBody", kText),
    Result("BasicAdviceTitle", kText),
    Result("AdvisorWih", kLong),
    Result("AdvisorWwgi", kLong),
    Result("UserPriority", kLong),
    Result("AdvisorPriority", kLong),
    Result("AdvisorExtraResult", kLong),
    Result("SalesCyclePosition", kDouble),
};

// Answers and scale positions start unanswered; the two assessments start at medium and the
// status at open, which keeps a fresh engine's answers in range.
constexpr std::int32_t kUnanswered = -1;
constexpr std::int32_t kMedium = 1;
// The date widgets' "no date": 1 January 1904.
constexpr int kNoDateYear = 1904;

const std::unordered_map<std::string_view, std::size_t>& Index() {
  static const auto index = [] {
    std::unordered_map<std::string_view, std::size_t> map;
    for (std::size_t i = 0; i < kNames.size(); ++i) map.emplace(kNames[i].name, i);
    return map;
  }();
  return index;
}

}  // namespace

std::span<const AdvisorName> AdvisorNames() {
  return kNames;
}

std::optional<std::size_t> FindAdvisorName(std::string_view name) {
  const auto it = Index().find(name);
  if (it == Index().end()) return std::nullopt;
  return it->second;
}

std::size_t RequireAdvisorName(std::string_view name) {
  const auto index = FindAdvisorName(name);
  if (!index) {
    pelkedit::Raise(pelkedit::errnum::kNotSupported, kAdvisorSource,
                    "The advisor has no fact or result named '" + std::string(name) + "'.");
  }
  return *index;
}

pelkedit::Variant ConvertForName(const AdvisorName& name, const pelkedit::Variant& value) {
  if (value.Type() == name.type) return value;
  if (name.type == VariantType::kDouble && value.Type() == VariantType::kLong) {
    return value.AsDouble();
  }
  pelkedit::Raise(pelkedit::errnum::kTypeMismatch, kAdvisorSource,
                  "Type mismatch: '" + std::string(name.name) + "' takes a " +
                      pelkedit::VariantTypeName(name.type) + ", not a " +
                      pelkedit::VariantTypeName(value.Type()) + ".");
}

pelkedit::Variant DefaultFactValue(const AdvisorName& fact) {
  if (fact.name == "WIH" || fact.name == "WWGI") return kMedium;
  if (fact.name == "Status") return std::int32_t{pelkedit::eEditStatusOpen};
  switch (fact.type) {
    case VariantType::kBoolean:
      return false;
    case VariantType::kDate:
      return pelkedit::Date::FromCivil(kNoDateYear, 1, 1);
    case VariantType::kLong:
      return kUnanswered;
    default:
      return {};
  }
}

}  // namespace pelkor
