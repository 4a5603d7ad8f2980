#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "data/sql_ibo_store.h"
#include "data/sqlite_error.h"
#include "data/sqlite_schema.h"
#include "data/store_backends.h"
#include "files/private_files.h"

namespace pelkor::data_detail {
namespace {

// One SQLite file. A writing transaction is immediate: it holds the file's write lock from its
// start, which also makes one creator at a time take the next IBO number.
class SqliteConnection final : public SqlConnection {
 public:
  SqliteConnection(std::string path, std::unique_ptr<SQLite::Database> db, bool readOnly)
      : path_(std::move(path)), db_(std::move(db)), readOnly_(readOnly) {}

  std::string Location() const override { return DescribeLocation(path_); }
  bool ReadOnly() const override { return readOnly_; }
  const SqlDialect& Dialect() const override { return kSqliteDialect; }

  void Transaction(const std::string& action, bool write,
                   const std::function<void()>& body) override {
    WithSqlErrors(action, [&] {
      SQLite::Transaction transaction(*db_, write ? SQLite::TransactionBehavior::IMMEDIATE
                                                  : SQLite::TransactionBehavior::DEFERRED);
      body();
      transaction.commit();
    });
  }

  void QueryAlone(const std::string& action, const std::string& sql,
                  const std::vector<SqlValue>& params, const EachRow& each) override {
    WithSqlErrors(action, [&] { Query(sql, params, each); });
  }

  std::int64_t Exec(const std::string& sql, const std::vector<SqlValue>& params) override {
    SQLite::Statement statement(*db_, sql);
    BindAll(statement, params);
    return statement.exec();
  }

  void Query(const std::string& sql, const std::vector<SqlValue>& params,
             const EachRow& each) override {
    SQLite::Statement statement(*db_, sql);
    BindAll(statement, params);
    const SqliteRow row(statement);
    while (statement.executeStep()) each(row);
  }

  void LockNumbers() override {}  // the immediate transaction holds the lock already

 private:
  std::string path_;
  std::unique_ptr<SQLite::Database> db_;
  bool readOnly_;
};

bool WritableFile(const std::string& path) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return true;  // to be created
  return (info.st_mode & S_IWUSR) != 0 && ::access(path.c_str(), W_OK) == 0;
}

}  // namespace

std::shared_ptr<IIboStore> OpenSqliteStore(const std::string& path, StoreOpening opening) {
  if (opening == StoreOpening::kExistingOnly && path != kMemoryPath &&
      !std::filesystem::exists(path)) {
    RaiseDataError("The IBO database " + DescribeLocation(path) + " does not exist.");
  }
  const std::string refusal = "Cannot open the IBO database " + DescribeLocation(path);
  if (opening == StoreOpening::kCreateIfMissing && path != kMemoryPath) {
    // SQLite would create it as the umask allows (and its -wal and -shm files take its mode):
    // a database of deals is made private first.
    // A file that cannot be made here is reported by SQLite's own attempt below.
    std::error_code ignored;
    CreatePrivateFile(path, ignored);
  }
  // A file the user may not write (or whose mode says nobody may, which holds for root too) is
  // opened for reading: it can be looked at, and every save says why it is refused.
  const bool readOnly = path != kMemoryPath && !WritableFile(path);
  const int flags = readOnly ? SQLite::OPEN_READONLY : SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE;
  auto db = WithSqlErrors(
      refusal, [&] { return std::make_unique<SQLite::Database>(path, flags, kBusyTimeoutMs); });
  PrepareDatabase(*db, path, opening, readOnly);
  return std::make_shared<SqlIboStore>(
      std::make_unique<SqliteConnection>(path, std::move(db), readOnly));
}

}  // namespace pelkor::data_detail
