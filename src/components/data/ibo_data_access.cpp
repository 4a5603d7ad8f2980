#include <map>
#include <stdexcept>
#include <string>
#include <utility>

#include "contracts/journal.h"
#include "data/data_error.h"
#include "data/ibo_store.h"

namespace pelkor {
namespace {

// "PelkData.Ibo": the retrieval procedure name picks the table, the store does the rest. A
// record goes back only into a row this object has read, so a save after a failed load can
// never create a record.
class IboDataAccess final : public pelkedit::IDataAccess, public pelkedit::IRowVersions {
 public:
  explicit IboDataAccess(DatabaseSource source) : source_(std::move(source)) {}

  pelkedit::Blob ReadIbo(std::int32_t iboId, const std::string& procName) override {
    const IboTable table = TableForProcedure(procName);
    const std::shared_ptr<IIboStore> store = source_();
    VersionedIbo found = store->ReadVersioned(table, iboId);
    read_[{table, iboId}] = found.version;
    return std::move(found.data);
  }

  void WriteIbo(const pelkedit::Blob& data, const std::string& procName) override {
    const IboTable table = TableForProcedure(procName);
    const std::shared_ptr<IIboStore> store = source_();
    const std::int32_t id = RecordIdOf(data);
    const auto read = read_.find({table, id});
    if (read == read_.end()) {
      data_detail::RaiseDataError(
          "IBO " + std::to_string(id) + " was not opened from the " + IboTableName(table) +
          " table of " + store->Location() +
          ", so it is not saved there: nothing was written. Open an IBO before saving it.");
    }
    // A row saved by someone else since it was read is refused, so no edit is lost silently.
    read->second = store->Update(table, id, data, read->second);
  }

  std::string VersionRead(std::int32_t iboId, const std::string& procName) override {
    const auto read = read_.find({TableForProcedure(procName), iboId});
    return read == read_.end() ? std::string() : std::to_string(read->second);
  }

  void ExpectVersion(std::int32_t iboId, const std::string& procName,
                     const std::string& version) override {
    const auto read = read_.find({TableForProcedure(procName), iboId});
    // A version from elsewhere (a journal of another database) is no version of this row: the
    // row counts as saved by someone else.
    std::int64_t expected = -1;
    try {
      expected = std::stoll(version);
    } catch (const std::exception&) {
    }
    if (read != read_.end()) read->second = expected;
  }

 private:
  DatabaseSource source_;
  // The rows read, with the version each had when it was read or last saved from here.
  std::map<std::pair<IboTable, std::int32_t>, std::int64_t> read_;
};

}  // namespace

std::shared_ptr<pelkedit::IDataAccess> CreateDataAccess(std::shared_ptr<IIboStore> db) {
  if (!db) data_detail::RaiseDataError("No IBO database is open.");
  return std::make_shared<IboDataAccess>([db] { return db; });
}

DatabaseSource OpenOnFirstUse(std::string name, StoreOpening opening) {
  auto opened = std::make_shared<std::shared_ptr<IIboStore>>();
  return [opened, name = std::move(name), opening] {
    if (!*opened) *opened = OpenIboStore(name, opening);
    return *opened;
  };
}

std::shared_ptr<pelkedit::IDataAccess> CreateDataAccess(DatabaseSource source) {
  return std::make_shared<IboDataAccess>(std::move(source));
}

void RegisterDataComponent(pelkedit::ObjectFactory& factory, std::shared_ptr<IIboStore> db) {
  factory.Register(pelkedit::kDataProgId, [db] { return CreateDataAccess(db); });
}

}  // namespace pelkor
