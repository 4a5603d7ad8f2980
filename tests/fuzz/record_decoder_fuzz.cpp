// Fuzz target for the record's storage form: any bytes are either refused with the record
// object's error, or read back into a record whose every value can be used and whose storage
// form is exactly the bytes given.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "record/ibo_properties.h"
#include "values/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const pelkedit::Blob bytes(data, data + size);
  const auto record = pelkor::CreateIboProperties();
  try {
    record->SetIboData(bytes);
  } catch (const pelkedit::PelkError& error) {
    if (error.Source() != pelkor::kRecordSource) std::abort();
    return 0;
  }
  if (record->GetIboData() != bytes) std::abort();
  // Everything the editor does with an accepted record must be defined behaviour.
  for (const pelkor::PropertyInfo& info : pelkor::RecordSchema()) {
    const auto use = [&](const pelkedit::Variant& value) {
      if (value.Type() == pelkedit::VariantType::kDate) {
        static_cast<void>(value.AsDate().DayNumber());
        static_cast<void>(value.AsDate().ToIso());
      }
      static_cast<void>(value.ToDisplay());
    };
    if (!info.indexed) {
      use(record->Get(info.name));
      continue;
    }
    for (std::int32_t slot = 0; slot < 10; ++slot) use(record->GetAt(info.name, slot));
  }
  static_cast<void>(record->StatusText(-1));
  return 0;
}
