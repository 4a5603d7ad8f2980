#include "data/store_copy.h"

#include <unordered_map>

#include "data/data_error.h"

namespace pelkor {
namespace {

// Rows read, compared and written at a time: memory stays the same whatever the database's
// size, and each batch costs one query for what the target holds already.
constexpr int kCopyBatch = 500;

void CopyTable(IIboStore& source, IIboStore& target, IboTable table, CopyReport& report) {
  for (std::int32_t after = 0;;) {
    std::vector<StoredIbo> batch = source.ReadBatch(table, after, kCopyBatch);
    if (batch.empty()) return;
    after = batch.back().id;
    std::vector<std::int32_t> ids;
    ids.reserve(batch.size());
    for (const StoredIbo& row : batch) ids.push_back(row.id);
    std::unordered_map<std::int32_t, pelkedit::Blob> held;
    for (StoredIbo& row : target.FindMany(table, ids)) held.emplace(row.id, std::move(row.data));
    std::vector<IboEntry> entries;
    for (StoredIbo& row : batch) {
      if (const auto there = held.find(row.id); there != held.end()) {
        if (there->second != row.data) {
          data_detail::RaiseDataError(
              "The copy stopped: IBO " + std::to_string(row.id) + " in the " + IboTableName(table) +
              " table of " + target.Location() + " differs from the one in " + source.Location() +
              ". Copy into an empty database, or remove that IBO first.");
        }
        ++report.unchanged;
        continue;
      }
      ++(table == IboTable::kMain ? report.main : report.archive);
      entries.push_back({table, std::move(row.data), row.owner, row.savedAt, row.savedBy});
    }
    target.AddMissing(entries);
  }
}

}  // namespace

CopyReport CopyDatabase(IIboStore& source, IIboStore& target) {
  CopyReport report;
  for (const IboTable table : {IboTable::kMain, IboTable::kArchive}) {
    CopyTable(source, target, table, report);
  }
  for (std::int64_t after = 0;;) {
    const std::vector<Contact> contacts = source.ContactBatch(after, kCopyBatch);
    if (contacts.empty()) break;
    after = contacts.back().id;
    report.contacts += target.AddContacts(contacts);
  }
  target.SettleAfterBulkLoad();
  return report;
}

}  // namespace pelkor
