#include "record/record_merge.h"

#include <algorithm>
#include <array>

#include "contracts/names.h"
#include "record/ibo_properties.h"
#include "record/record_schema.h"

namespace pelkor {
namespace {

namespace prop = pelkedit::prop;

constexpr std::array kBookkeeping = {prop::DirtyFlag,  prop::ModifiedDate, prop::AdvisorExtraResult,
                                     prop::AdvisorWih, prop::AdvisorWwgi,  prop::AdvisorPriority};

// A merge also leaves the clean flag, which the editor writes too, and the product list's
// total, which follows the list.
constexpr std::array kFollowers = {prop::CleanFlag, prop::TotalValueUnits,
                                   prop::TotalValueHundredths};

void SetValue(pelkedit::IRecord& record, const MergeConflict& at, const pelkedit::Variant& value) {
  if (at.slot) {
    record.SetAt(at.property, *at.slot, value);
  } else {
    record.Set(at.property, value);
  }
}

// The product list's total goes with the list it is the total of.
void TakeTotalOf(pelkedit::IRecord& merged, pelkedit::IRecord& source) {
  merged.Set(prop::TotalValueUnits, source.Get(prop::TotalValueUnits));
  merged.Set(prop::TotalValueHundredths, source.Get(prop::TotalValueHundredths));
}

}  // namespace

bool IsEditorBookkeeping(const std::string& property) {
  return std::find(kBookkeeping.begin(), kBookkeeping.end(), property) != kBookkeeping.end();
}

void ForEachAnswer(const std::function<void(const RecordValue&)>& each) {
  for (const PropertyInfo& info : RecordSchema()) {
    if (info.readOnly || IsEditorBookkeeping(info.name)) continue;
    if (!info.indexed) {
      each({info.name, std::nullopt});
      continue;
    }
    for (std::int32_t slot = 0; slot < detail::kTrialCloseSlots; ++slot) each({info.name, slot});
  }
}

pelkedit::Variant ValueOf(pelkedit::IRecord& record, const RecordValue& at) {
  return at.slot ? record.GetAt(at.property, *at.slot) : record.Get(at.property);
}

MergedRecord MergeRecords(pelkedit::IRecord& base, pelkedit::IRecord& mine,
                          pelkedit::IRecord& theirs) {
  MergedRecord result{CreateIboProperties(), {}};
  pelkedit::IRecord& merged = *result.record;
  merged.SetIboData(theirs.GetIboData());
  ForEachAnswer([&](const MergeConflict& at) {
    if (std::find(kFollowers.begin(), kFollowers.end(), at.property) != kFollowers.end()) return;
    const pelkedit::Variant original = ValueOf(base, at);
    const pelkedit::Variant yours = ValueOf(mine, at);
    const pelkedit::Variant stored = ValueOf(theirs, at);
    if (yours == original || yours == stored) return;
    if (stored == original) {
      SetValue(merged, at, yours);
      if (at.property == prop::Products) TakeTotalOf(merged, mine);
      return;
    }
    result.conflicts.push_back(at);
  });
  return result;
}

void TakeMine(pelkedit::IRecord& merged, pelkedit::IRecord& mine, const MergeConflict& conflict) {
  SetValue(merged, conflict, ValueOf(mine, conflict));
  if (conflict.property == prop::Products) TakeTotalOf(merged, mine);
}

}  // namespace pelkor
