#include "data/store_copy.h"

#include "data/data_error.h"

namespace pelkor {

CopyReport CopyDatabase(IIboStore& source, IIboStore& target) {
  CopyReport report;
  std::vector<IboEntry> entries;
  for (const IboSummary& ibo : source.ListIbos()) {
    const IboTable table = ibo.archived ? IboTable::kArchive : IboTable::kMain;
    pelkedit::Blob data = source.Read(table, ibo.id);
    if (const std::optional<pelkedit::Blob> held = target.Find(table, ibo.id)) {
      if (*held != data) {
        data_detail::RaiseDataError(
            "Nothing was copied: IBO " + std::to_string(ibo.id) + " in the " + IboTableName(table) +
            " table of " + target.Location() + " differs from the one in " + source.Location() +
            ". Copy into an empty database, or remove that IBO first.");
      }
      ++report.unchanged;
      continue;
    }
    ++(table == IboTable::kMain ? report.main : report.archive);
    entries.push_back({table, std::move(data)});
  }
  target.AddMissing(entries);
  report.contacts = target.AddContacts(source.ListContacts());
  return report;
}

}  // namespace pelkor
