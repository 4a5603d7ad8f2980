#include "data/sqlite_schema.h"

#include <array>
#include <filesystem>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "data/ibo_row.h"
#include "data/sqlite_error.h"
#include "data/summary_fill.h"

namespace pelkor::data_detail {
namespace {

// Marks the file as ours in its header ("PELK"), so a foreign database is recognised.
constexpr int kApplicationId = 0x50454C4B;
// Version 2 added the contact book, version 3 a version per IBO row (so that a save can tell
// whether someone else saved since), version 4 the pipeline's summaries and searches; older
// files are brought up to date when opened.
constexpr int kSchemaVersion = 5;
constexpr int kPipelineSchemaVersion = 4;
constexpr int kSavedVersionsVersion = 5;
constexpr int kRowVersionVersion = 3;
constexpr int kContactsVersion = 2;
constexpr int kFirstSchemaVersion = 1;

int PragmaInt(SQLite::Database& db, const char* pragma) {
  return db.execAndGet(std::string("PRAGMA ") + pragma).getInt();
}

bool HasAnySchemaObject(SQLite::Database& db) {
  return db.execAndGet("SELECT count(*) FROM sqlite_master").getInt() > 0;
}

bool HasTable(SQLite::Database& db, const char* name) {
  SQLite::Statement query(db,
                          "SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name = ?");
  query.bind(1, name);
  query.executeStep();
  return query.getColumn(0).getInt() > 0;
}

// The checks SQLite makes as it reads: the schema, and the last page of each table's tree (a
// file cut short loses its end first). A whole-file check would grow with the database.
void CheckReadable(SQLite::Database& db, const std::string& refusal) {
  const auto damaged = [&](const std::string& why) {
    RaiseDataError(refusal + ": the database is damaged (" + why + "). Restore it from a backup.");
  };
  const std::int64_t pages = db.execAndGet("PRAGMA page_count").getInt64();
  const std::int64_t pageSize = db.execAndGet("PRAGMA page_size").getInt64();
  const std::string file = db.getFilename();
  std::error_code error;
  const auto size = file.empty() ? 0 : std::filesystem::file_size(file, error);
  // Pages not yet folded back from the write-ahead log are not in the file.
  std::error_code noLog;
  const bool logHoldsPages = !file.empty() && std::filesystem::file_size(file + "-wal", noLog) > 0;
  if (!error && !file.empty() && !logHoldsPages &&
      static_cast<std::int64_t>(size) < pages * pageSize) {
    damaged("the file is shorter than its header says");
  }
  SQLite::Statement tables(db, "SELECT name FROM sqlite_master WHERE type = 'table'");
  while (tables.executeStep()) {
    const std::string name = tables.getColumn(0).getString();
    if (name.rfind("sqlite_", 0) == 0) continue;
    db.execAndGet("SELECT max(rowid) FROM \"" + name + "\"");
  }
}

// The pipeline's summaries, filled from the records, and the search indexes.
void AddPipeline(SQLite::Database& db) {
  MigrationSteps steps;
  steps.exec = [&](const std::string& sql, const std::vector<SqlValue>& params) {
    SQLite::Statement statement(db, sql);
    BindAll(statement, params);
    statement.exec();
  };
  steps.query = [&](const std::string& sql, const std::vector<SqlValue>& params,
                    const EachRow& each) {
    SQLite::Statement statement(db, sql);
    BindAll(statement, params);
    const SqliteRow row(statement);
    while (statement.executeStep()) each(row);
  };
  AddSummaries(steps, kSqliteDialect);
  // The folded search text is scanned from a narrow index instead of the wide table.
  for (const std::string name : kSearchedTables) {
    db.exec("CREATE INDEX IF NOT EXISTS " + name + "_search ON " + name + " (search)");
  }
}

void CreateContacts(SQLite::Database& db) {
  db.exec(
      "CREATE TABLE contacts (id INTEGER PRIMARY KEY, first_name TEXT NOT NULL,"
      " last_name TEXT NOT NULL, company TEXT NOT NULL, address TEXT NOT NULL,"
      " phone TEXT NOT NULL, email TEXT NOT NULL)");
  // The same person twice is one contact: what tells people apart is their name, company,
  // e-mail and phone.
  db.exec(
      "CREATE UNIQUE INDEX contacts_identity ON contacts"
      " (first_name, last_name, company, email, phone)");
}

// Every saved version of an IBO, kept by the save that replaces it.
void CreateSavedVersions(SQLite::Database& db) {
  db.exec(std::string("CREATE TABLE ") + kSavedVersionsTable +
          " (tbl INTEGER NOT NULL, id INTEGER NOT NULL, version INTEGER NOT NULL,"
          " saved_at TEXT NOT NULL, saved_by TEXT NOT NULL, data BLOB NOT NULL,"
          " PRIMARY KEY (tbl, id, version))");
}

// An older database gets what later versions added, in one transaction.
void Migrate(SQLite::Database& db, int version) {
  if (version == kSchemaVersion) return;
  SQLite::Transaction transaction(db, SQLite::TransactionBehavior::IMMEDIATE);
  // Another program may have migrated it between our check and our lock.
  const int now = PragmaInt(db, "user_version");
  if (now < kContactsVersion) CreateContacts(db);
  if (now < kRowVersionVersion) {
    for (const IboTable table : kTables) {
      db.exec(std::string("ALTER TABLE ") + TableSqlName(table) +
              " ADD COLUMN version INTEGER NOT NULL DEFAULT 0");
    }
  }
  if (now < kPipelineSchemaVersion) AddPipeline(db);
  if (now < kSavedVersionsVersion) CreateSavedVersions(db);
  db.exec("PRAGMA user_version = " + std::to_string(kSchemaVersion));
  transaction.commit();
}

// True when the database is empty and needs its schema.
bool CheckOwnership(SQLite::Database& db, const std::string& refusal) {
  const int applicationId = PragmaInt(db, "application_id");
  const int version = PragmaInt(db, "user_version");
  const std::string foreign = refusal +
                              ": it is a database of another application. Open an IBO database, "
                              "or name a new file to create one.";
  if (applicationId == 0 && version == 0) {
    if (HasAnySchemaObject(db)) RaiseDataError(foreign);
    return true;
  }
  if (applicationId != kApplicationId) RaiseDataError(foreign);
  if (version < kFirstSchemaVersion || version > kSchemaVersion) {
    RaiseDataError(refusal + ": it has schema version " + std::to_string(version) +
                   " and this program reads version " + std::to_string(kSchemaVersion) +
                   ". Open it with the version of Pelkor that wrote it, or a newer one.");
  }
  const auto requireTable = [&](const std::string& name, const std::string& what) {
    if (HasTable(db, name.c_str())) return;
    RaiseDataError(refusal + ": the database is damaged (the " + what +
                   " table is missing). Restore it from a backup.");
  };
  for (const IboTable table : kTables) requireTable(TableSqlName(table), IboTableName(table));
  if (version >= kContactsVersion) requireTable(kContactsTable, "contacts");
  return false;
}

void CreateTable(SQLite::Database& db, const std::string& name) {
  db.exec("CREATE TABLE " + name +
          " (id INTEGER PRIMARY KEY, ibo_number INTEGER NOT NULL, company TEXT NOT NULL,"
          " status INTEGER NOT NULL, expert INTEGER NOT NULL, data BLOB NOT NULL,"
          " version INTEGER NOT NULL DEFAULT 0)");
}

void CreateSchema(SQLite::Database& db) {
  SQLite::Transaction transaction(db, SQLite::TransactionBehavior::IMMEDIATE);
  // Another program may have created it between our check and our lock.
  if (HasAnySchemaObject(db)) {
    return;
  }
  for (const IboTable table : kTables) {
    CreateTable(db, TableSqlName(table));
  }
  CreateContacts(db);
  AddPipeline(db);
  CreateSavedVersions(db);
  db.exec("PRAGMA application_id = " + std::to_string(kApplicationId));
  db.exec("PRAGMA user_version = " + std::to_string(kSchemaVersion));
  transaction.commit();
}

}  // namespace

void BindAll(SQLite::Statement& statement, const std::vector<SqlValue>& params) {
  int index = 1;
  for (const SqlValue& value : params) {
    std::visit(
        [&](const auto& v) {
          using T = std::decay_t<decltype(v)>;
          if constexpr (std::is_same_v<T, const pelkedit::Blob*>) {
            statement.bind(index, v->data(), static_cast<int>(v->size()));
          } else {
            statement.bind(index, v);
          }
        },
        value);
    ++index;
  }
}

void PrepareDatabase(SQLite::Database& db, const std::string& path, StoreOpening opening,
                     bool readOnly) {
  const std::string refusal = "Cannot open the IBO database " + data_detail::DescribeLocation(path);
  WithSqlErrors(refusal, [&] {
    CheckReadable(db, refusal);
    const bool empty = CheckOwnership(db, refusal);
    // Listing or importing never writes a schema into a file that was not a database yet.
    if (empty && (opening == StoreOpening::kExistingOnly || readOnly) && path != kMemoryPath) {
      RaiseEmptyDatabase(refusal);
    }
    if (path != kMemoryPath && !readOnly) {
      db.exec("PRAGMA journal_mode = WAL");
    }
    if (!empty) Migrate(db, PragmaInt(db, "user_version"));
    if (empty) {
      CreateSchema(db);
    }
  });
}

}  // namespace pelkor::data_detail
