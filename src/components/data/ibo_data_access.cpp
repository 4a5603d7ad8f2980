#include "data/data_error.h"
#include "data/ibo_database.h"

namespace pelkor {
namespace {

// "PelkData.Ibo": the retrieval procedure name picks the table, the database does the rest.
class IboDataAccess final : public pelkedit::IDataAccess {
 public:
  explicit IboDataAccess(DatabaseSource source) : source_(std::move(source)) {}

  pelkedit::Blob ReadIbo(std::int32_t iboId, const std::string& procName) override {
    return source_()->Read(TableForProcedure(procName), iboId);
  }

  void WriteIbo(const pelkedit::Blob& data, const std::string& procName) override {
    source_()->Write(TableForProcedure(procName), data);
  }

 private:
  DatabaseSource source_;
};

}  // namespace

std::shared_ptr<pelkedit::IDataAccess> CreateDataAccess(std::shared_ptr<IboDatabase> db) {
  if (!db) {
    data_detail::RaiseDataError("No IBO database is open.");
  }
  return std::make_shared<IboDataAccess>([db] { return db; });
}

DatabaseSource OpenOnFirstUse(std::string path) {
  auto opened = std::make_shared<std::shared_ptr<IboDatabase>>();
  return [opened, path = std::move(path)] {
    if (!*opened) *opened = IboDatabase::Open(path);
    return *opened;
  };
}

std::shared_ptr<pelkedit::IDataAccess> CreateDataAccess(DatabaseSource source) {
  return std::make_shared<IboDataAccess>(std::move(source));
}

void RegisterDataComponent(pelkedit::ObjectFactory& factory, std::shared_ptr<IboDatabase> db) {
  factory.Register(pelkedit::kDataProgId, [db] { return CreateDataAccess(db); });
}

}  // namespace pelkor
