#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "data/ibo_query.h"
#include "data/ibo_row.h"

namespace pelkor::data_detail {

// The SQL both backends share for the summary columns, and the two places they differ.
struct SqlDialect {
  // Around a text column in ORDER BY and its index: case-insensitive order an index can serve.
  const char* textKeyBefore;
  const char* textKeyAfter;
  // After a text column in ORDER BY: the order of its bytes, the same on both backends.
  const char* byteOrder;
  // Before a column in a condition or an ORDER BY term: keeps the planner from using the
  // column's index for it ("+" on SQLite, whose planner has no statistics to choose by; "" on
  // the server, whose planner has).
  const char* offIndex;
  // Whether a sort index names the id after the column (SQLite's indexes carry it anyway).
  bool indexWithId;
  // Database-specific type names for the columns added beside the record.
  const char* integer;
  const char* real;
  const char* bigint;
  const char* boolean;
  // Run on a table, outside any transaction, after many rows were added at once: the server's
  // planner needs fresh statistics and a visibility map to count and page from its indexes
  // alone, which its own housekeeping would otherwise bring a minute or so later. Empty on
  // SQLite, whose plans do not depend on statistics.
  const char* afterBulkLoad;
};
extern const SqlDialect kSqliteDialect;
extern const SqlDialect kPostgresDialect;

// Columns a write takes from the decoded record, in the order RecordValues gives them.
inline constexpr std::array kRecordColumns = {
    "ibo_number", "company",          "status", "expert", "first_name", "last_name",
    "priority",   "advisor_priority", "wih",    "wwgi",   "wwih_date",  "close_date",
    "result",     "position",         "value",  "search"};
// The columns after the record's: who created the row and who saved it when.
inline constexpr std::array kStampColumns = {"owner", "saved_at", "saved_by"};

// A statement parameter; a record's bytes are bound without a copy.
using SqlValue = std::variant<std::int64_t, double, std::string, const pelkedit::Blob*>;
std::vector<SqlValue> RecordValues(const IboRow& row);

// "?, ?, ?": `count` parameter marks.
std::string Marks(std::size_t count);

// "a, b, c" of a list of column names.
template <std::size_t N>
std::string ColumnList(const std::array<const char*, N>& columns) {
  std::string list;
  for (const char* column : columns) list += (list.empty() ? "" : ", ") + std::string(column);
  return list;
}

// The columns a summary is read from, in the order ReadSummary takes them.
std::string SummarySelectList();

// Reads a summary from a result row through `at`, which has Int(i), Int64(i), Double(i) and
// Text(i) for the columns of SummarySelectList.
template <typename Row>
IboSummary ReadSummary(const Row& at, bool archived) {
  IboSummary s;
  int i = 0;
  s.id = at.Int(i++);
  s.archived = archived;
  s.iboNumber = at.Int(i++);
  s.company = at.Text(i++);
  s.status = at.Int(i++);
  s.expert = at.Int(i++) != 0;
  s.firstName = at.Text(i++);
  s.lastName = at.Text(i++);
  s.priority = at.Int(i++);
  s.advisorPriority = at.Int(i++);
  s.wih = at.Int(i++);
  s.wwgi = at.Int(i++);
  s.wwihDate = at.Text(i++);
  s.closeDate = at.Text(i++);
  s.result = at.Int(i++);
  s.position = at.Double(i++);
  s.value = at.Int64(i++);
  s.owner = at.Text(i++);
  s.savedAt = at.Text(i++);
  s.savedBy = at.Text(i++);
  s.version = at.Int64(i++);
  return s;
}

// Statements that add the summary columns and their indexes to a table made before them.
std::vector<std::string> AddSummaryColumns(const std::string& table, const SqlDialect& dialect);
// Indexes a pipeline sorts and filters by.
std::vector<std::string> SummaryIndexes(const std::string& table, const SqlDialect& dialect);

// The WHERE and ORDER BY of a pipeline query, with `?` for each parameter in `params`, in two
// plans: few matching rows are found through the filter and sorted (`where`, `orderInMemory`);
// many are walked in the sort's index order until a page is full (`whereBySort`, `order`).
struct BuiltQuery {
  std::string where;  // "" or " WHERE ..."
  std::string whereBySort;
  std::string order;  // " ORDER BY ..."
  std::string orderInMemory;
  std::vector<SqlValue> params;
};
BuiltQuery BuildQuery(const IboQuery& query, const SqlDialect& dialect);

// A contact search, in the same two plans, by last and first name.
BuiltQuery BuildContactSearch(const std::string& search, const SqlDialect& dialect);

// Up to this many matches are sorted apart; more are read in the sort's index order.
inline constexpr std::int64_t kSortApartUpTo = 5000;

// The SELECT of a page of `columns` from `table` under the plan `matches` calls for.
std::string PageSql(const std::string& columns, const std::string& table, const BuiltQuery& built,
                    std::int64_t matches);

// What a contact's search column holds.
std::string ContactSearchText(const Contact& contact);

}  // namespace pelkor::data_detail
