#include "data/postgres_schema.h"

#include <array>
#include <vector>

#include <pqxx/binarystring>
#include <pqxx/subtransaction>
#include <pqxx/transaction>

#include "data/ibo_row.h"
#include "data/postgres_error.h"
#include "data/postgres_params.h"
#include "data/summary_fill.h"

namespace pelkor::data_detail {
namespace {

// Holds the schema version of the database; its presence marks the database as ours.
constexpr const char* kSchemaTable = "pelkor_schema";
// Key of the advisory lock held while the schema is checked, created or migrated ("PELK").
constexpr long long kSchemaLockKey = 0x50454C4B;
constexpr int kPipelineVersion = 3;

// One step of the schema's history; a database at an older version gets every later step.
struct Migration {
  int version;
  std::vector<std::string> statements;
};

std::vector<std::string> IboTableStatements() {
  std::vector<std::string> statements;
  for (const IboTable table : kTables) {
    const std::string name = TableSqlName(table);
    // Every write of a row gives it a new version, so that a save can tell whether someone
    // else saved since the row was read.
    statements.push_back("CREATE TABLE " + name +
                         " (id integer PRIMARY KEY, ibo_number integer NOT NULL,"
                         " company text NOT NULL, status integer NOT NULL,"
                         " expert boolean NOT NULL, data bytea NOT NULL,"
                         " version bigint NOT NULL DEFAULT 0)");
  }
  return statements;
}

const std::vector<Migration>& Migrations() {
  static const std::vector<Migration> migrations = {
      {1, IboTableStatements()},
      // The contact book: the same name, company, e-mail and phone is the same person.
      {2,
       {"CREATE TABLE contacts (id bigserial PRIMARY KEY, first_name text NOT NULL,"
        " last_name text NOT NULL, company text NOT NULL, address text NOT NULL,"
        " phone text NOT NULL, email text NOT NULL)",
        "CREATE UNIQUE INDEX contacts_identity ON contacts"
        " (first_name, last_name, company, email, phone)"}},
      // The pipeline's summaries and searches: filled by AddPipeline, not by statements.
      {kPipelineVersion, {}},
      // Every saved version of an IBO, kept by the save that replaces it.
      {4,
       {std::string("CREATE TABLE ") + kSavedVersionsTable +
        " (tbl integer NOT NULL, id integer NOT NULL, version bigint NOT NULL,"
        " saved_at text NOT NULL, saved_by text NOT NULL, data bytea NOT NULL,"
        " PRIMARY KEY (tbl, id, version))"}},
  };
  return migrations;
}

int CurrentVersion() {
  return Migrations().back().version;
}

bool HasTable(pqxx::work& work, const std::string& name) {
  return work.exec_params1("SELECT to_regclass($1) IS NOT NULL", name)[0].as<bool>();
}

// The version the database is at; 0 for an empty database that may be set up.
int VersionOf(pqxx::work& work, const std::string& refusal, StoreOpening opening) {
  if (HasTable(work, kSchemaTable)) {
    const pqxx::result rows = work.exec(std::string("SELECT version FROM ") + kSchemaTable);
    if (rows.size() != 1) {
      RaiseDataError(refusal +
                     ": the database is damaged (its schema version is not recorded). "
                     "Restore it from a backup.");
    }
    return rows[0][0].as<int>();
  }
  const int tables =
      work.exec1("SELECT count(*) FROM pg_catalog.pg_tables WHERE schemaname = current_schema()")[0]
          .as<int>();
  if (tables > 0) {
    RaiseDataError(refusal +
                   ": it is a database of another application. Open an IBO database, or name an "
                   "empty database to hold the IBOs.");
  }
  if (opening == StoreOpening::kExistingOnly) RaiseEmptyDatabase(refusal);
  work.exec(std::string("CREATE TABLE ") + kSchemaTable + " (version integer NOT NULL)");
  work.exec(std::string("INSERT INTO ") + kSchemaTable + " VALUES (0)");
  return 0;
}

void CheckTables(pqxx::work& work, const std::string& refusal) {
  for (const IboTable table : kTables) {
    if (HasTable(work, TableSqlName(table))) continue;
    RaiseDataError(refusal + ": the database is damaged (the " + IboTableName(table) +
                   " table is missing). Restore it from a backup.");
  }
  if (!HasTable(work, "contacts")) {
    RaiseDataError(refusal +
                   ": the database is damaged (the contact book is missing). Restore it from a "
                   "backup.");
  }
}

// Trigram indexes find a substring without reading every row. A role that may not add the
// extension gets no such index: searches still work, by reading the table.
bool HasTrigrams(pqxx::work& work) {
  try {
    pqxx::subtransaction attempt(work, "trigrams");
    attempt.exec("CREATE EXTENSION IF NOT EXISTS pg_trgm");
    attempt.commit();
    return true;
  } catch (const pqxx::sql_error&) {
    return false;
  }
}

void AddPipeline(pqxx::work& work) {
  MigrationSteps steps;
  steps.exec = [&](const std::string& sql, const std::vector<SqlValue>& params) {
    RunWith(work, sql, params);
  };
  steps.query = [&](const std::string& sql, const std::vector<SqlValue>& params,
                    const EachRow& each) {
    for (const pqxx::row& row : RunWith(work, sql, params)) each(PostgresRow(row));
  };
  AddSummaries(steps, kPostgresDialect);
  if (!HasTrigrams(work)) return;
  for (const std::string table : kSearchedTables) {
    work.exec("CREATE INDEX IF NOT EXISTS " + table + "_search ON " + table +
              " USING gin (search gin_trgm_ops)");
  }
}

}  // namespace

void PrepareServerDatabase(pqxx::connection& connection, const std::string& location,
                           StoreOpening opening) {
  const std::string refusal = "Cannot open the IBO database " + location;
  WithServerErrors(refusal, [&] {
    pqxx::work work(connection);
    work.exec("SELECT pg_advisory_xact_lock(" + std::to_string(kSchemaLockKey) + ")");
    const int version = VersionOf(work, refusal, opening);
    if (version > CurrentVersion()) {
      RaiseDataError(refusal + ": it has schema version " + std::to_string(version) +
                     " and this program reads version " + std::to_string(CurrentVersion()) +
                     ". Use a newer version of Pelkor with this database.");
    }
    for (const Migration& migration : Migrations()) {
      if (migration.version <= version) continue;
      for (const std::string& statement : migration.statements) work.exec(statement);
      if (migration.version == kPipelineVersion) AddPipeline(work);
    }
    if (version < CurrentVersion()) {
      work.exec_params(std::string("UPDATE ") + kSchemaTable + " SET version = $1",
                       CurrentVersion());
    }
    CheckTables(work, refusal);
    work.commit();
  });
}

}  // namespace pelkor::data_detail
