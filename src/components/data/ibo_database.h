#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "contracts/record.h"
#include "platform/object_factory.h"

namespace SQLite {
class Database;
}

namespace pelkor {

// Source of every error the data component raises.
inline constexpr const char* kDataErrorSource = "PelkData.Ibo";

// The two tables of an IBO database: live opportunities and the archive.
enum class IboTable { kMain, kArchive };

// Display name of a table in messages and listings ("main", "archive").
const char* IboTableName(IboTable table);

// The retrieval procedure name that selects a table; any other name is error 5.
IboTable TableForProcedure(const std::string& procName);

// One row of the "open IBO" list a host shows, taken from the indexed summary columns.
struct IboSummary {
  std::int32_t id = 0;
  bool archived = false;
  std::int32_t iboNumber = 0;
  std::string company;
  std::int32_t status = 0;
  bool expert = false;
};

// A record in storage form bound for one table.
struct IboEntry {
  IboTable table = IboTable::kMain;
  pelkedit::Blob data;
};

// One SQLite file holding the main and the archive table. Every write is one immediate
// transaction; a record is decoded before its transaction begins, so a corrupt record is
// refused without touching the file. Failures are PelkErrors naming the file.
class IboDatabase {
 public:
  // Opens or creates the database at `path` (":memory:" for a private in-memory one).
  static std::shared_ptr<IboDatabase> Open(const std::string& path);
  ~IboDatabase();
  IboDatabase(const IboDatabase&) = delete;
  IboDatabase& operator=(const IboDatabase&) = delete;

  const std::string& Path() const { return path_; }

  // The stored record, or nullopt when the table has no row with that id.
  std::optional<pelkedit::Blob> Find(IboTable table, std::int32_t id);
  // The stored record; a missing row is error 5 naming the id and the table.
  pelkedit::Blob Read(IboTable table, std::int32_t id);
  // Inserts or replaces the row whose id the record carries.
  void Write(IboTable table, const pelkedit::Blob& data);
  // Adds each record whose id its table does not hold yet, all in one transaction; rows that
  // exist are left as they are. Returns how many rows were added.
  int AddMissing(const std::vector<IboEntry>& entries);

  // Summaries of both tables (or of one), main before archive, each by id.
  std::vector<IboSummary> ListIbos(std::optional<IboTable> only = std::nullopt);

 private:
  struct Row;
  IboDatabase(std::string path, std::unique_ptr<SQLite::Database> db);
  Row Decode(const pelkedit::Blob& data, IboTable table) const;
  // Inserts the row, or on an existing id replaces it or leaves it; returns rows changed.
  int Upsert(const Row& row, bool replace);

  std::string path_;
  std::unique_ptr<SQLite::Database> db_;
  std::mutex mutex_;
};

// The data-access object ("PelkData.Ibo") over a database.
// Where a data-access object finds its database; it may open it at first use, so that a
// database that cannot be opened fails the editor's read or write, not its creation.
using DatabaseSource = std::function<std::shared_ptr<IboDatabase>()>;
// Opens the database at `path` at the first call and keeps it; a failed open is tried again.
DatabaseSource OpenOnFirstUse(std::string path);
std::shared_ptr<pelkedit::IDataAccess> CreateDataAccess(DatabaseSource source);
std::shared_ptr<pelkedit::IDataAccess> CreateDataAccess(std::shared_ptr<IboDatabase> db);

// Registers the data-access object under its programmatic identifier; every object created
// shares `db`.
void RegisterDataComponent(pelkedit::ObjectFactory& factory, std::shared_ptr<IboDatabase> db);

}  // namespace pelkor
