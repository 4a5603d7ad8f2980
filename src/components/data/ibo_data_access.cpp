#include "data/data_error.h"
#include "data/ibo_database.h"

namespace pelkor {
namespace {

// "PelkData.Ibo": the retrieval procedure name picks the table, the database does the rest.
class IboDataAccess final : public pelkedit::IDataAccess {
 public:
  explicit IboDataAccess(std::shared_ptr<IboDatabase> db) : db_(std::move(db)) {}

  pelkedit::Blob ReadIbo(std::int32_t iboId, const std::string& procName) override {
    return db_->Read(TableForProcedure(procName), iboId);
  }

  void WriteIbo(const pelkedit::Blob& data, const std::string& procName) override {
    db_->Write(TableForProcedure(procName), data);
  }

 private:
  std::shared_ptr<IboDatabase> db_;
};

}  // namespace

std::shared_ptr<pelkedit::IDataAccess> CreateDataAccess(std::shared_ptr<IboDatabase> db) {
  if (!db) {
    data_detail::RaiseDataError("No IBO database is open.");
  }
  return std::make_shared<IboDataAccess>(std::move(db));
}

void RegisterDataComponent(pelkedit::ObjectFactory& factory, std::shared_ptr<IboDatabase> db) {
  factory.Register(pelkedit::kDataProgId, [db] { return CreateDataAccess(db); });
}

}  // namespace pelkor
