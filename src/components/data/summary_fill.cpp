#include "data/summary_fill.h"

#include <algorithm>

#include "values/error.h"

namespace pelkor::data_detail {
namespace {

// The type a record column's value is read as from a VALUES list (whose values come as text on
// the server).
std::string ColumnType(const std::string& column, const SqlDialect& dialect) {
  for (const char* text :
       {"company", "first_name", "last_name", "wwih_date", "close_date", "search"}) {
    if (column == text) return "TEXT";
  }
  if (column == "expert") return dialect.boolean;
  if (column == "position") return dialect.real;
  if (column == "value") return dialect.bigint;
  return dialect.integer;
}

// One UPDATE for a batch of rows: UPDATE ... FROM (VALUES ...), whose columns both databases
// name column1, column2, ...
void UpdateRows(const MigrationSteps& steps, const std::string& table,
                const std::vector<std::pair<std::int32_t, IboRow>>& rows,
                const SqlDialect& dialect) {
  if (rows.empty()) return;
  std::string tuple = "(CAST(? AS " + std::string(dialect.integer) + ")";
  for (const char* column : kRecordColumns)
    tuple += ", CAST(? AS " + ColumnType(column, dialect) + ")";
  tuple += ")";
  std::string sql = "UPDATE " + table + " SET ";
  for (std::size_t i = 0; i < kRecordColumns.size(); ++i) {
    sql += (i == 0 ? "" : ", ") + std::string(kRecordColumns[i]) + " = v.column" +
           std::to_string(i + 2);
  }
  sql += " FROM (VALUES ";
  std::vector<SqlValue> params;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    sql += (i == 0 ? "" : ", ") + tuple;
    params.emplace_back(std::int64_t{rows[i].first});
    for (SqlValue& value : RecordValues(rows[i].second)) params.push_back(std::move(value));
  }
  sql += ") AS v WHERE " + table + ".id = v.column1";
  steps.exec(sql, params);
}

void FillTable(const MigrationSteps& steps, IboTable table, const SqlDialect& dialect) {
  const std::string name = TableSqlName(table);
  for (std::int32_t after = 0;;) {
    std::vector<std::pair<std::int32_t, pelkedit::Blob>> batch;
    steps.query("SELECT id, data FROM " + name + " WHERE id > ? ORDER BY id LIMIT ?",
                {std::int64_t{after}, std::int64_t{kMigrationBatch}},
                [&](const SqlRow& row) { batch.emplace_back(row.Int(0), row.Bytes(1)); });
    if (batch.empty()) return;
    std::vector<std::pair<std::int32_t, IboRow>> rows;
    for (const auto& [id, data] : batch) {
      after = id;
      try {
        rows.emplace_back(id, DecodeRow(data, table, ""));
      } catch (const pelkedit::PelkError&) {
        // left with empty summaries; opening it reports the damage
      }
    }
    // A statement carries a few hundred rows, well within both databases' parameter limits.
    constexpr std::size_t kRowsPerUpdate = 200;
    for (std::size_t from = 0; from < rows.size(); from += kRowsPerUpdate) {
      const auto to = std::min(rows.size(), from + kRowsPerUpdate);
      UpdateRows(steps, name,
                 std::vector<std::pair<std::int32_t, IboRow>>(
                     rows.begin() + static_cast<long>(from), rows.begin() + static_cast<long>(to)),
                 dialect);
    }
  }
}

void FillContacts(const MigrationSteps& steps, const SqlDialect& dialect) {
  const std::string tuple = "(CAST(? AS " + std::string(dialect.bigint) + "), CAST(? AS TEXT))";
  for (std::int64_t after = 0;;) {
    std::vector<Contact> batch;
    steps.query(std::string("SELECT ") + kContactColumns +
                    " FROM contacts WHERE id > ? ORDER BY id LIMIT ?",
                {after, std::int64_t{kMigrationBatch}},
                [&](const SqlRow& row) { batch.push_back(ContactOf(row)); });
    if (batch.empty()) return;
    std::string sql = "UPDATE contacts SET search = v.column2 FROM (VALUES ";
    std::vector<SqlValue> params;
    for (std::size_t i = 0; i < batch.size(); ++i) {
      sql += (i == 0 ? "" : ", ") + tuple;
      params.insert(params.end(), {batch[i].id, ContactSearchText(batch[i])});
    }
    steps.exec(sql + ") AS v WHERE contacts.id = v.column1", params);
    after = batch.back().id;
  }
}

}  // namespace

std::vector<std::string> ContactSearchStatements(const SqlDialect& dialect) {
  return {"ALTER TABLE contacts ADD COLUMN search TEXT NOT NULL DEFAULT ''",
          std::string("CREATE INDEX IF NOT EXISTS contacts_by_name ON contacts (last_name") +
              dialect.byteOrder + ", first_name" + dialect.byteOrder + ", id)"};
}

void AddSummaries(const MigrationSteps& steps, const SqlDialect& dialect) {
  for (const IboTable table : kTables) {
    for (const std::string& statement : AddSummaryColumns(TableSqlName(table), dialect)) {
      steps.exec(statement, {});
    }
    FillTable(steps, table, dialect);
    for (const std::string& statement : SummaryIndexes(TableSqlName(table), dialect)) {
      steps.exec(statement, {});
    }
  }
  for (const std::string& statement : ContactSearchStatements(dialect)) steps.exec(statement, {});
  FillContacts(steps, dialect);
}

}  // namespace pelkor::data_detail
