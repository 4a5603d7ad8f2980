// Fuzz target for the contact importers: any text is read as vCard and as CSV, and either
// refused with the data component's error or read into contacts and skipped lines, never a
// crash, and every contact read has a name.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "data/contact_import.h"
#include "data/ibo_store.h"
#include "values/error.h"

namespace {

template <typename Read>
void Check(Read read, std::string_view text) {
  pelkor::ContactImport result;
  try {
    result = read(text);
  } catch (const pelkedit::PelkError& error) {
    if (error.Source() != pelkor::kDataErrorSource) std::abort();
    return;
  }
  for (const pelkor::Contact& contact : result.contacts) {
    if (contact.first.empty() && contact.last.empty()) std::abort();
  }
  if (result.skipped.size() > result.SkippedCount()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  Check(pelkor::ReadVCards, text);
  Check(pelkor::ReadCsvContacts, text);
  return 0;
}
