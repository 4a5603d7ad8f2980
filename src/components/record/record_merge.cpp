#include "record/record_merge.h"

#include <algorithm>
#include <array>

#include "contracts/names.h"
#include "record/ibo_properties.h"
#include "record/record_schema.h"

namespace pelkor {
namespace {

namespace prop = pelkedit::prop;

constexpr std::array kBookkeeping = {
    prop::DirtyFlag,          prop::CleanFlag,       prop::ModifiedDate,
    prop::AdvisorExtraResult, prop::AdvisorWih,      prop::AdvisorWwgi,
    prop::AdvisorPriority,    prop::TotalValueUnits, prop::TotalValueHundredths};

bool Skipped(const PropertyInfo& info) {
  return info.readOnly ||
         std::find(kBookkeeping.begin(), kBookkeeping.end(), info.name) != kBookkeeping.end();
}

pelkedit::Variant ValueOf(pelkedit::IRecord& record, const MergeConflict& at) {
  return at.slot ? record.GetAt(at.property, *at.slot) : record.Get(at.property);
}

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

MergedRecord MergeRecords(pelkedit::IRecord& base, pelkedit::IRecord& mine,
                          pelkedit::IRecord& theirs) {
  MergedRecord result{CreateIboProperties(), {}};
  pelkedit::IRecord& merged = *result.record;
  merged.SetIboData(theirs.GetIboData());
  const auto merge = [&](const MergeConflict& at) {
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
  };
  for (const PropertyInfo& info : RecordSchema()) {
    if (Skipped(info)) continue;
    if (!info.indexed) {
      merge({info.name, std::nullopt});
      continue;
    }
    for (std::int32_t slot = 0; slot < detail::kTrialCloseSlots; ++slot) merge({info.name, slot});
  }
  return result;
}

void TakeMine(pelkedit::IRecord& merged, pelkedit::IRecord& mine, const MergeConflict& conflict) {
  SetValue(merged, conflict, ValueOf(mine, conflict));
  if (conflict.property == prop::Products) TakeTotalOf(merged, mine);
}

}  // namespace pelkor
