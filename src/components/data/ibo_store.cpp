#include "data/ibo_store.h"

#include "data/data_error.h"
#include "data/store_backends.h"
#include "record/ibo_properties.h"
#include "values/error.h"

namespace pelkor {

using data_detail::RaiseDataError;

const char* IboTableName(IboTable table) {
  return table == IboTable::kArchive ? "archive" : "main";
}

IboTable TableForProcedure(const std::string& procName) {
  if (procName == pelkedit::kProcMain) return IboTable::kMain;
  if (procName == pelkedit::kProcArchive) return IboTable::kArchive;
  RaiseDataError("Unknown retrieval procedure \"" + procName + "\"; expected \"" +
                 pelkedit::kProcMain + "\" or \"" + pelkedit::kProcArchive + "\".");
}

std::shared_ptr<IIboStore> OpenIboStore(const std::string& name, StoreOpening opening) {
  if (name.empty()) RaiseDataError("No IBO database was named.");
  return IsServerName(name) ? data_detail::OpenPostgresStore(name, opening)
                            : data_detail::OpenSqliteStore(name, opening);
}

std::int32_t RecordIdOf(const pelkedit::Blob& data) {
  const auto record = CreateIboProperties();
  try {
    record->SetIboData(data);
  } catch (const pelkedit::PelkError& error) {
    RaiseDataError("The record to be saved is not a valid IBO, so nothing was written: " +
                   error.Description() + ".");
  }
  return record->Get("IboId").AsLong();
}

VersionedIbo IIboStore::ReadVersioned(IboTable table, std::int32_t id) {
  std::optional<VersionedIbo> found = FindVersioned(table, id);
  const std::string where =
      "IBO " + std::to_string(id) + " in the " + IboTableName(table) + " table of " + Location();
  if (!found) {
    RaiseDataError("IBO " + std::to_string(id) + " was not found in the " + IboTableName(table) +
                   " table of " + Location() +
                   ". Check the IBO number, or open the database that holds it.");
  }
  // A stored record that cannot be decoded is named here, where its IBO and file are known.
  try {
    CreateIboProperties()->SetIboData(found->data);
  } catch (const pelkedit::PelkError& error) {
    RaiseDataError(where + " is damaged and cannot be opened: " + error.Description() +
                   ". Restore the database from a backup.");
  }
  return std::move(*found);
}

pelkedit::Blob IIboStore::Read(IboTable table, std::int32_t id) {
  return ReadVersioned(table, id).data;
}

}  // namespace pelkor
