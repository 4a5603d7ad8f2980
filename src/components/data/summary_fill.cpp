#include "data/summary_fill.h"

#include "values/error.h"

namespace pelkor::data_detail {
namespace {

void FillTable(const MigrationSteps& steps, IboTable table) {
  const std::string name = TableSqlName(table);
  std::string update = "UPDATE " + name + " SET ";
  for (const char* column : kRecordColumns) update += std::string(column) + " = ?, ";
  update.resize(update.size() - 2);
  update += " WHERE id = ?";
  for (std::int32_t after = 0;;) {
    const auto batch = steps.records(name, after);
    if (batch.empty()) return;
    for (const auto& [id, data] : batch) {
      after = id;
      try {
        const IboRow row = DecodeRow(data, table, "");
        std::vector<SqlValue> params = RecordValues(row);
        params.emplace_back(std::int64_t{id});
        steps.exec(update, params);
      } catch (const pelkedit::PelkError&) {
        // left with empty summaries; opening it reports the damage
      }
    }
  }
}

void FillContacts(const MigrationSteps& steps) {
  for (std::int64_t after = 0;;) {
    const std::vector<Contact> batch = steps.contacts(after);
    if (batch.empty()) return;
    for (const Contact& contact : batch) {
      after = contact.id;
      steps.exec("UPDATE contacts SET search = ? WHERE id = ?",
                 {ContactSearchText(contact), contact.id});
    }
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
    FillTable(steps, table);
    for (const std::string& statement : SummaryIndexes(TableSqlName(table), dialect)) {
      steps.exec(statement, {});
    }
  }
  for (const std::string& statement : ContactSearchStatements(dialect)) steps.exec(statement, {});
  FillContacts(steps);
}

}  // namespace pelkor::data_detail
