#include <set>
#include <utility>

#include "data/data_error.h"
#include "data/ibo_store.h"

namespace pelkor {
namespace {

// "PelkData.Ibo": the retrieval procedure name picks the table, the store does the rest. A
// record goes back only into a row this object has read, so a save after a failed load can
// never create a record.
class IboDataAccess final : public pelkedit::IDataAccess {
 public:
  explicit IboDataAccess(DatabaseSource source) : source_(std::move(source)) {}

  pelkedit::Blob ReadIbo(std::int32_t iboId, const std::string& procName) override {
    const IboTable table = TableForProcedure(procName);
    pelkedit::Blob data = source_()->Read(table, iboId);
    read_.insert({table, iboId});
    return data;
  }

  void WriteIbo(const pelkedit::Blob& data, const std::string& procName) override {
    const IboTable table = TableForProcedure(procName);
    const std::shared_ptr<IIboStore> store = source_();
    const std::int32_t id = RecordIdOf(data);
    if (read_.count({table, id}) == 0) {
      data_detail::RaiseDataError(
          "IBO " + std::to_string(id) + " was not opened from the " + IboTableName(table) +
          " table of " + store->Location() +
          ", so it is not saved there: nothing was written. Open an IBO before saving it.");
    }
    store->Update(table, id, data);
  }

 private:
  DatabaseSource source_;
  std::set<std::pair<IboTable, std::int32_t>> read_;
};

}  // namespace

std::shared_ptr<pelkedit::IDataAccess> CreateDataAccess(std::shared_ptr<IIboStore> db) {
  if (!db) data_detail::RaiseDataError("No IBO database is open.");
  return std::make_shared<IboDataAccess>([db] { return db; });
}

DatabaseSource OpenOnFirstUse(std::string path) {
  auto opened = std::make_shared<std::shared_ptr<IIboStore>>();
  return [opened, path = std::move(path)] {
    if (!*opened) *opened = OpenIboStore(path);
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
