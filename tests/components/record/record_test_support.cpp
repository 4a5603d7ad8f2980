#include "record_test_support.h"

#include <gtest/gtest.h>

#include "values/date.h"

namespace pelkor::testing {

using pelkedit::Variant;
using pelkedit::VariantType;

constexpr int kSlots = 10;

Variant SampleValue(const PropertyInfo& info, int seed) {
  switch (info.type) {
    case VariantType::kBoolean:
      return true;
    case VariantType::kLong:
      if (info.name.starts_with("TrialClose")) return std::int32_t{1 + seed % (kSlots - 1)};
      return std::int32_t{-100000 - seed * 7919};
    case VariantType::kDouble:
      return 0.1 * seed + 1e300 / (seed + 1);
    case VariantType::kDate:
      return pelkedit::Date::FromCivil(2017 + seed % 12, 1 + seed % 12, 1 + seed % 28, seed % 24,
                                       (seed * 7) % 60, 1 + (seed * 13) % 59);
    case VariantType::kString:
      return "M\xC3\xBCller \xE6\x9D\xB1\xE4\xBA\xAC \xF0\x9F\x8E\x89 #" + std::to_string(seed) +
             "\r\n\"quoted\"";
    case VariantType::kEmpty:
      break;
  }
  ADD_FAILURE() << info.name << " has no type";
  return Variant();
}

std::shared_ptr<pelkedit::IRecord> FullyFilledRecord() {
  auto record = CreateIboProperties();
  int seed = 1;
  for (const PropertyInfo& info : RecordSchema()) {
    if (info.readOnly) continue;
    if (!info.indexed) {
      record->Set(info.name, SampleValue(info, seed++));
      continue;
    }
    for (int slot = 0; slot < kSlots; ++slot) {
      record->SetAt(info.name, slot, SampleValue(info, seed++));
    }
  }
  return record;
}

pelkedit::PelkError CaptureError(const std::function<void()>& action) {
  try {
    action();
  } catch (const pelkedit::PelkError& error) {
    return error;
  }
  ADD_FAILURE() << "no error was raised";
  return pelkedit::PelkError(0, "", "");
}

std::string Describe(const std::string& name, int slot, const Variant& value) {
  const std::string where = slot < 0 ? name : name + "(" + std::to_string(slot) + ")";
  return where + " = " + value.ToDisplay();
}

}  // namespace pelkor::testing
