#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <mutex>

#include "data/ibo_store.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "data/ibo_row.h"
#include "data/sqlite_error.h"
#include "data/sqlite_schema.h"
#include "data/store_backends.h"
#include "files/private_files.h"

namespace pelkor {

using data_detail::DecodeRow;
using data_detail::DescribeLocation;
using data_detail::IboRow;
using data_detail::RaiseChangedBySomeoneElse;
using data_detail::RaiseDataError;
using data_detail::RaiseForeignId;
using data_detail::RaiseVanished;
using data_detail::TableSqlName;
using data_detail::Where;
using data_detail::WithSqlErrors;
using pelkedit::Blob;

namespace {

// One SQLite file holding the main and the archive table. Every write is one immediate
// transaction.
class SqliteIboStore final : public IIboStore {
 public:
  SqliteIboStore(std::string path, std::unique_ptr<SQLite::Database> db, bool readOnly)
      : path_(std::move(path)), db_(std::move(db)), readOnly_(readOnly) {}

  std::string Location() const override { return DescribeLocation(path_); }
  bool ReadOnly() const override { return readOnly_; }
  void Write(IboTable table, const Blob& data) override;
  std::optional<VersionedIbo> FindVersioned(IboTable table, std::int32_t id) override;
  std::int64_t Update(IboTable table, std::int32_t id, const Blob& data,
                      std::optional<std::int64_t> expected) override;
  int AddMissing(const std::vector<IboEntry>& entries) override;
  std::vector<IboSummary> ListIbos(std::optional<IboTable> only) override;
  std::vector<Contact> ListContacts() override;
  int AddContacts(const std::vector<Contact>& contacts) override;

 private:
  // Inserts the row, or on an existing id replaces it or leaves it; returns rows changed.
  int Upsert(const IboRow& row, bool replace);

  std::string path_;
  std::unique_ptr<SQLite::Database> db_;
  bool readOnly_;
  std::mutex mutex_;
};

}  // namespace

namespace data_detail {
namespace {

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
  return std::make_shared<SqliteIboStore>(path, std::move(db), readOnly);
}

}  // namespace data_detail

std::optional<VersionedIbo> SqliteIboStore::FindVersioned(IboTable table, std::int32_t id) {
  std::lock_guard lock(mutex_);
  const std::string action = "Cannot read " + Where(id, "from", table) + " of " + Location();
  return WithSqlErrors(action, [&]() -> std::optional<VersionedIbo> {
    SQLite::Statement query(
        *db_, std::string("SELECT data, version FROM ") + TableSqlName(table) + " WHERE id = ?");
    query.bind(1, id);
    if (!query.executeStep()) return std::nullopt;
    const SQLite::Column column = query.getColumn(0);
    const auto* bytes = static_cast<const std::uint8_t*>(column.getBlob());
    return VersionedIbo{Blob(bytes, bytes + column.getBytes()), query.getColumn(1).getInt64()};
  });
}

int SqliteIboStore::Upsert(const IboRow& row, bool replace) {
  const std::string table = TableSqlName(row.table);
  const char* onConflict = replace
                               ? " ON CONFLICT(id) DO UPDATE SET ibo_number = excluded.ibo_number,"
                                 " company = excluded.company, status = excluded.status,"
                                 " expert = excluded.expert, data = excluded.data,"
                                 " version = version + 1"
                               : " ON CONFLICT(id) DO NOTHING";
  SQLite::Statement insert(
      *db_, "INSERT INTO " + table +
                " (id, ibo_number, company, status, expert, data) VALUES (?, ?, ?, ?, ?, ?)" +
                onConflict);
  insert.bind(1, row.id);
  insert.bind(2, row.iboNumber);
  insert.bind(3, row.company);
  insert.bind(4, row.status);
  insert.bind(5, row.expert ? 1 : 0);
  insert.bind(6, row.data->data(), static_cast<int>(row.data->size()));
  return insert.exec();
}

void SqliteIboStore::Write(IboTable table, const Blob& data) {
  const IboRow row = DecodeRow(data, table, Location());
  std::lock_guard lock(mutex_);
  WithSqlErrors("Cannot write " + Where(row.id, "to", table) + " of " + Location(), [&] {
    SQLite::Transaction transaction(*db_, SQLite::TransactionBehavior::IMMEDIATE);
    Upsert(row, true);
    transaction.commit();
  });
}

std::int64_t SqliteIboStore::Update(IboTable table, std::int32_t id, const Blob& data,
                                    std::optional<std::int64_t> expected) {
  const IboRow row = DecodeRow(data, table, Location());
  const std::string refusal = "Cannot save " + Where(id, "to", table) + " of " + Location();
  if (row.id != id) {
    RaiseForeignId(refusal, row.id);
  }
  std::lock_guard lock(mutex_);
  return WithSqlErrors(refusal, [&] {
    SQLite::Transaction transaction(*db_, SQLite::TransactionBehavior::IMMEDIATE);
    SQLite::Statement current(
        *db_, std::string("SELECT version FROM ") + TableSqlName(table) + " WHERE id = ?");
    current.bind(1, id);
    if (!current.executeStep()) {
      RaiseVanished(refusal);
    }
    const std::int64_t version = current.getColumn(0).getInt64();
    if (expected && *expected != version) {
      RaiseChangedBySomeoneElse(id);
    }
    SQLite::Statement update(*db_, std::string("UPDATE ") + TableSqlName(table) +
                                       " SET ibo_number = ?, company = ?, status = ?, expert = ?,"
                                       " data = ?, version = ? WHERE id = ?");
    update.bind(1, row.iboNumber);
    update.bind(2, row.company);
    update.bind(3, row.status);
    update.bind(4, row.expert ? 1 : 0);
    update.bind(5, row.data->data(), static_cast<int>(row.data->size()));
    update.bind(6, version + 1);
    update.bind(7, id);
    update.exec();
    transaction.commit();
    return version + 1;
  });
}

int SqliteIboStore::AddMissing(const std::vector<IboEntry>& entries) {
  std::vector<IboRow> rows;
  rows.reserve(entries.size());
  for (const IboEntry& entry : entries) {
    rows.push_back(DecodeRow(entry.data, entry.table, Location()));
  }
  std::lock_guard lock(mutex_);
  return WithSqlErrors("Cannot add IBOs to " + Location(), [&] {
    SQLite::Transaction transaction(*db_, SQLite::TransactionBehavior::IMMEDIATE);
    int added = 0;
    for (const IboRow& row : rows) {
      added += Upsert(row, false);
    }
    transaction.commit();
    return added;
  });
}

std::vector<IboSummary> SqliteIboStore::ListIbos(std::optional<IboTable> only) {
  std::lock_guard lock(mutex_);
  return WithSqlErrors("Cannot list the IBOs of " + Location(), [&] {
    std::vector<IboSummary> list;
    for (const IboTable table : {IboTable::kMain, IboTable::kArchive}) {
      if (only && *only != table) {
        continue;
      }
      SQLite::Statement query(*db_, std::string("SELECT id, ibo_number, company, status, expert"
                                                " FROM ") +
                                        TableSqlName(table) + " ORDER BY id");
      while (query.executeStep()) {
        list.push_back({query.getColumn(0).getInt(), table == IboTable::kArchive,
                        query.getColumn(1).getInt(), query.getColumn(2).getString(),
                        query.getColumn(3).getInt(), query.getColumn(4).getInt() != 0});
      }
    }
    return list;
  });
}

std::vector<Contact> SqliteIboStore::ListContacts() {
  std::lock_guard lock(mutex_);
  return WithSqlErrors("Cannot list the contacts of " + Location(), [&] {
    std::vector<Contact> list;
    SQLite::Statement query(*db_,
                            "SELECT id, first_name, last_name, company, address, phone, email"
                            " FROM contacts ORDER BY last_name, first_name, id");
    while (query.executeStep()) {
      list.push_back({query.getColumn(0).getInt64(), query.getColumn(1).getString(),
                      query.getColumn(2).getString(), query.getColumn(3).getString(),
                      query.getColumn(4).getString(), query.getColumn(5).getString(),
                      query.getColumn(6).getString()});
    }
    return list;
  });
}

int SqliteIboStore::AddContacts(const std::vector<Contact>& contacts) {
  std::lock_guard lock(mutex_);
  return WithSqlErrors("Cannot add contacts to " + Location(), [&] {
    SQLite::Transaction transaction(*db_, SQLite::TransactionBehavior::IMMEDIATE);
    SQLite::Statement insert(*db_,
                             "INSERT OR IGNORE INTO contacts (first_name, last_name, company,"
                             " address, phone, email) VALUES (?, ?, ?, ?, ?, ?)");
    int added = 0;
    for (const Contact& contact : contacts) {
      insert.reset();
      insert.bind(1, contact.first);
      insert.bind(2, contact.last);
      insert.bind(3, contact.company);
      insert.bind(4, contact.address);
      insert.bind(5, contact.phone);
      insert.bind(6, contact.email);
      added += insert.exec();
    }
    transaction.commit();
    return added;
  });
}

}  // namespace pelkor
