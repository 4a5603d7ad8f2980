#include "data/ibo_store.h"
#include "contracts/names.h"

#include "data/data_error.h"
#include "data/ibo_row.h"
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

namespace {
ServerStoreOpener& ServerOpener() {
  static ServerStoreOpener opener = nullptr;
  return opener;
}
}  // namespace

void UseServerBackend(ServerStoreOpener opener) {
  ServerOpener() = opener;
}

std::shared_ptr<IIboStore> OpenIboStore(const std::string& name, StoreOpening opening) {
  if (name.empty()) RaiseDataError("No IBO database was named.");
  if (!IsServerName(name)) return data_detail::OpenSqliteStore(name, opening);
  if (ServerOpener() == nullptr) {
    RaiseDataError("This program cannot open PostgreSQL databases (" + name +
                   "): its PostgreSQL support is not installed.");
  }
  return ServerOpener()(name, opening);
}

std::int32_t RecordIdOf(const pelkedit::Blob& data) {
  const auto record = data_detail::DecodeOrRefuse(data, [](const std::string& why) {
    return "The record to be saved is not a valid IBO, so nothing was written: " + why + ".";
  });
  return record->Get(pelkedit::prop::IboId).AsLong();
}

VersionedIbo IIboStore::ReadVersioned(IboTable table, std::int32_t id) {
  std::optional<VersionedIbo> found = FindVersioned(table, id);
  if (!found) {
    RaiseDataError("IBO " + std::to_string(id) + " was not found in the " + IboTableName(table) +
                   " table of " + Location() +
                   ". Check the IBO number, or open the database that holds it.");
  }
  // A stored record that cannot be decoded is named here, where its IBO and file are known.
  data_detail::DecodeOrRefuse(found->data, [&](const std::string& why) {
    return "IBO " + std::to_string(id) + " in the " + IboTableName(table) + " table of " +
           Location() + " is damaged and cannot be opened: " + why +
           ". Restore the database from a backup.";
  });
  return std::move(*found);
}

std::optional<pelkedit::Blob> IIboStore::Find(IboTable table, std::int32_t id) {
  std::optional<VersionedIbo> found = FindVersioned(table, id);
  if (!found) return std::nullopt;
  return std::move(found->data);
}

pelkedit::Blob IIboStore::Read(IboTable table, std::int32_t id) {
  return ReadVersioned(table, id).data;
}

}  // namespace pelkor
