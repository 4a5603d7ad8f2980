#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "record/ibo_properties.h"
#include "values/variant.h"

namespace pelkor::detail {

// The trial-close ring: every indexed property holds one value per slot.
inline constexpr std::int32_t kTrialCloseSlots = 10;

// The stored values of one record, laid out in schema order: one per stored property and
// kTrialCloseSlots per indexed one. Derived properties take no room.
using RecordValues = std::vector<pelkedit::Variant>;

struct ValueRange {
  std::int32_t min;
  std::int32_t max;
};

struct PropertyDef {
  PropertyInfo info{};
  // Stored properties: the value of a new record and the first value in RecordValues.
  pelkedit::Variant initial;
  std::size_t firstSlot = 0;
  // Long properties whose value is bounded (the ring indexes).
  std::optional<ValueRange> range;
  // Read-only properties: computed from the stored values.
  pelkedit::Variant (*derive)(const RecordValues&) = nullptr;

  std::size_t SlotCount() const;
};

const std::vector<PropertyDef>& PropertyDefs();
// nullptr when the record has no property of exactly that name.
const PropertyDef* FindProperty(const std::string& name);
// The stored values of a new record.
const RecordValues& DefaultValues();

// Why a value cannot be stored in a property (type, text encoding, range), or nullopt when it
// can. A 32-bit integer is fit for a Double property; `Accept` converts it.
struct Refusal {
  std::int32_t number;
  std::string description;
};
std::optional<Refusal> CheckValue(const PropertyDef& def, const pelkedit::Variant& value);
pelkedit::Variant Accept(const PropertyDef& def, const pelkedit::Variant& value);

}  // namespace pelkor::detail
