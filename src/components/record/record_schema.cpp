#include "record/record_schema.h"

#include <stdexcept>
#include <unordered_map>

#include "record/utf8.h"
#include "values/date.h"
#include "values/error.h"

namespace pelkor::detail {
namespace {

using pelkedit::Date;
using pelkedit::Variant;
using pelkedit::VariantType;

// The product reads 1904-01-01 as "no date".
constexpr std::int32_t kNoDateDay = 1460;
constexpr std::int32_t kStatusOpen = 1;
constexpr std::int32_t kMedium = 1;
constexpr std::int32_t kNoAnswer = -1;
constexpr std::int32_t kMiddlePriority = 3;
constexpr ValueRange kRingIndex{0, kTrialCloseSlots - 1};

const char* const kRoles[] = {"Econ", "Tech", "User"};
const char* const kScales[] = {"SEnvLevelNeed",   "SEnvSolMatch", "SEnvCustomerNeed",
                               "SEnvBudgetMatch", "SEnvFunding",  "SEnvFamOrg",
                               "SEnvCompPressure"};
const char* const kContactFields[] = {"ContactFirstName", "ContactLastName", "ContactAddress",
                                      "ContactCompany",   "ContactPhone",    "ContactEmail"};
const char* const kTexts[] = {"Products", "IboNote", "CloseReason", "Competitors",
                              "CloseWinBidder"};

const Variant& StoredValue(const RecordValues& values, const char* name) {
  return values.at(FindProperty(name)->firstSlot);
}

bool HasText(const RecordValues& values, const char* name) {
  return !StoredValue(values, name).AsString().empty();
}

std::int32_t EnactedTrialCloses(const RecordValues& values) {
  const std::int32_t first = StoredValue(values, "TrialCloseFirst").AsLong();
  const std::int32_t current = StoredValue(values, "TrialCloseCurrent").AsLong();
  return (current - first + kTrialCloseSlots) % kTrialCloseSlots;
}

class SchemaBuilder {
 public:
  void Stored(const std::string& name, const Variant& initial,
              std::optional<ValueRange> range = std::nullopt) {
    PropertyDef& def = Add(name, initial.Type(), false, false);
    def.initial = initial;
    def.range = range;
  }
  void Indexed(const std::string& name, const Variant& initial) {
    Add(name, initial.Type(), true, false).initial = initial;
  }
  void Derived(const std::string& name, VariantType type, Variant (*derive)(const RecordValues&)) {
    Add(name, type, false, true).derive = derive;
  }
  std::vector<PropertyDef> Take() {
    std::size_t nextSlot = 0;
    for (PropertyDef& def : defs_) {
      def.firstSlot = nextSlot;
      nextSlot += def.SlotCount();
    }
    return std::move(defs_);
  }

 private:
  PropertyDef& Add(const std::string& name, VariantType type, bool indexed, bool readOnly) {
    PropertyDef& def = defs_.emplace_back();
    def.info.name = name;
    def.info.type = type;
    def.info.indexed = indexed;
    def.info.readOnly = readOnly;
    return def;
  }
  std::vector<PropertyDef> defs_;
};

// The order of the stored properties is the order of the storage form: append new
// properties at the end of the stored ones and raise the format version.
std::vector<PropertyDef> BuildDefs() {
  const Variant noDate = Date::FromDayNumber(kNoDateDay);
  const Variant no = false;
  const Variant zero = std::int32_t{0};
  const Variant empty = std::string();
  SchemaBuilder b;
  b.Stored("IboId", zero);
  b.Stored("IboNumber", zero);
  b.Stored("DirtyFlag", no);
  b.Stored("DirtyExempt", no);
  b.Stored("CleanFlag", no);
  b.Stored("Status", kStatusOpen);
  b.Stored("UserPriority", kMiddlePriority);
  b.Stored("AdvisorWwgi", kMedium);
  b.Stored("AdvisorWih", kMedium);
  b.Stored("AdvisorPriority", kMiddlePriority);
  b.Stored("AdvisorExtraResult", zero);
  b.Stored("ExpertMode", no);
  b.Stored("StartDate", noDate);
  b.Stored("WwihDate", noDate);
  b.Stored("CloseDate", noDate);
  b.Stored("ModifiedDate", noDate);
  b.Stored("WWGI", kMedium);
  b.Stored("WIH", kMedium);
  for (const char* scale : kScales) b.Stored(scale, kNoAnswer);
  for (const std::string role : kRoles) {
    b.Stored("Dm" + role + "Name", empty);
    b.Stored("Dm" + role + "Known", no);
    b.Stored("Dm" + role + "Influence", kNoAnswer);
    b.Stored("Dm" + role + "DOP", kNoAnswer);
    b.Stored("Dm" + role + "Relationship", kNoAnswer);
    b.Stored("Dm" + role + "Important", empty);
  }
  b.Stored("CloseTC", no);
  b.Stored("CloseDecided", no);
  b.Stored("CloseResult", zero);
  b.Stored("TrialCloseFirst", zero, kRingIndex);
  b.Stored("TrialCloseCurrent", zero, kRingIndex);
  b.Indexed("TrialCloseDate", noDate);
  b.Indexed("CloseBarriers", empty);
  b.Indexed("CloseStrategy", empty);
  b.Stored("TotalValueUnits", 0.0);
  b.Stored("TotalValueHundredths", 0.0);
  for (const char* field : kContactFields) b.Stored(field, empty);
  for (const char* text : kTexts) b.Stored(text, empty);

  b.Derived("DmEconImportantKnown", VariantType::kBoolean,
            [](const RecordValues& v) { return Variant(HasText(v, "DmEconImportant")); });
  b.Derived("DmTechImportantKnown", VariantType::kBoolean,
            [](const RecordValues& v) { return Variant(HasText(v, "DmTechImportant")); });
  b.Derived("DmUserImportantKnown", VariantType::kBoolean,
            [](const RecordValues& v) { return Variant(HasText(v, "DmUserImportant")); });
  b.Derived("CompetitorsKnown", VariantType::kBoolean,
            [](const RecordValues& v) { return Variant(HasText(v, "Competitors")); });
  b.Derived("TrialCloseFact", VariantType::kLong,
            [](const RecordValues& v) { return Variant(EnactedTrialCloses(v)); });
  return b.Take();
}

std::string DescribeType(VariantType type) {
  return pelkedit::VariantTypeName(type);
}

}  // namespace

std::size_t PropertyDef::SlotCount() const {
  if (info.readOnly) return 0;
  return info.indexed ? std::size_t{kTrialCloseSlots} : 1;
}

const std::vector<PropertyDef>& PropertyDefs() {
  static const std::vector<PropertyDef> defs = BuildDefs();
  return defs;
}

const PropertyDef* FindProperty(const std::string& name) {
  static const auto index = [] {
    std::unordered_map<std::string, const PropertyDef*> map;
    for (const auto& def : PropertyDefs()) map.emplace(def.info.name, &def);
    return map;
  }();
  const auto it = index.find(name);
  return it == index.end() ? nullptr : it->second;
}

const RecordValues& DefaultValues() {
  static const RecordValues values = [] {
    RecordValues v;
    for (const auto& def : PropertyDefs()) v.insert(v.end(), def.SlotCount(), def.initial);
    return v;
  }();
  return values;
}

std::optional<Refusal> CheckValue(const PropertyDef& def, const Variant& value) {
  const VariantType want = def.info.type;
  const bool widening = want == VariantType::kDouble && value.Type() == VariantType::kLong;
  if (value.Type() != want && !widening) {
    return Refusal{pelkedit::errnum::kTypeMismatch, "Type mismatch: '" + def.info.name +
                                                        "' takes a " + DescribeType(want) +
                                                        ", not " + DescribeType(value.Type())};
  }
  if (want == VariantType::kString && !IsValidUtf8(value.AsString())) {
    return Refusal{pelkedit::errnum::kInvalidPropertyValue,
                   "Invalid property value: '" + def.info.name + "' is not valid UTF-8 text"};
  }
  if (want == VariantType::kDate &&
      !pelkedit::Date::IsRepresentable(value.AsDate().SecondsSinceEpoch())) {
    return Refusal{pelkedit::errnum::kInvalidPropertyValue,
                   "Invalid property value: '" + def.info.name + "' holds a date outside " +
                       pelkedit::Date::Earliest().ToIso() + " to " +
                       pelkedit::Date::Latest().ToIso()};
  }
  if (want == VariantType::kLong && def.range &&
      (value.AsLong() < def.range->min || value.AsLong() > def.range->max)) {
    return Refusal{pelkedit::errnum::kInvalidPropertyValue,
                   "Invalid property value: '" + def.info.name + "' takes " +
                       std::to_string(def.range->min) + " to " + std::to_string(def.range->max) +
                       ", not " + std::to_string(value.AsLong())};
  }
  return std::nullopt;
}

Variant Accept(const PropertyDef& def, const Variant& value) {
  if (auto refusal = CheckValue(def, value)) {
    pelkedit::Raise(refusal->number, kRecordSource, refusal->description);
  }
  if (def.info.type == VariantType::kDouble) return Variant(value.AsDouble());
  return value;
}

}  // namespace pelkor::detail
