#include "data/sqlite_schema.h"

#include <array>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "data/ibo_row.h"
#include "data/sqlite_error.h"

namespace pelkor::data_detail {
namespace {

// Marks the file as ours in its header ("PELK"), so a foreign database is recognised.
constexpr int kApplicationId = 0x50454C4B;
// Version 2 added the contact book, version 3 a version per IBO row (so that a save can tell
// whether someone else saved since); older files are brought up to date when opened.
constexpr int kSchemaVersion = 3;
constexpr int kContactsVersion = 2;
constexpr const char* kContactsTable = "contacts";
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

void CheckIntegrity(SQLite::Database& db, const std::string& refusal) {
  SQLite::Statement check(db, "PRAGMA quick_check(1)");
  check.executeStep();
  const std::string verdict = check.getColumn(0).getString();
  if (verdict != "ok") {
    RaiseDataError(refusal + ": the database is damaged (" + verdict +
                   "). Restore it from a backup.");
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

// An older database gets what later versions added, in one transaction.
void Migrate(SQLite::Database& db, int version) {
  if (version == kSchemaVersion) return;
  SQLite::Transaction transaction(db, SQLite::TransactionBehavior::IMMEDIATE);
  // Another program may have migrated it between our check and our lock.
  const int now = PragmaInt(db, "user_version");
  if (now < kContactsVersion) CreateContacts(db);
  if (now < kSchemaVersion) {
    for (const IboTable table : kTables) {
      db.exec(std::string("ALTER TABLE ") + TableSqlName(table) +
              " ADD COLUMN version INTEGER NOT NULL DEFAULT 0");
    }
  }
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
  for (const char* column : {"ibo_number", "company", "status", "expert"}) {
    db.exec("CREATE INDEX " + name + "_" + column + " ON " + name + " (" + column + ")");
  }
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
  db.exec("PRAGMA application_id = " + std::to_string(kApplicationId));
  db.exec("PRAGMA user_version = " + std::to_string(kSchemaVersion));
  transaction.commit();
}

}  // namespace

void PrepareDatabase(SQLite::Database& db, const std::string& path, StoreOpening opening,
                     bool readOnly) {
  const std::string refusal = "Cannot open the IBO database " + data_detail::DescribeLocation(path);
  WithSqlErrors(refusal, [&] {
    CheckIntegrity(db, refusal);
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
