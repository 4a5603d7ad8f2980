#include "data/summary_sql.h"

#include <sstream>

namespace pelkor::data_detail {
namespace {

struct AddedColumn {
  const char* name;
  enum Kind { kText, kInteger, kReal, kBigint } kind;
};

// Every column added beside the record after the first version of the schema.
constexpr std::array<AddedColumn, 15> kAddedColumns = {{
    {"first_name", AddedColumn::kText},
    {"last_name", AddedColumn::kText},
    {"priority", AddedColumn::kInteger},
    {"advisor_priority", AddedColumn::kInteger},
    {"wih", AddedColumn::kInteger},
    {"wwgi", AddedColumn::kInteger},
    {"wwih_date", AddedColumn::kText},
    {"close_date", AddedColumn::kText},
    {"result", AddedColumn::kInteger},
    {"position", AddedColumn::kReal},
    {"value", AddedColumn::kBigint},
    {"search", AddedColumn::kText},
    {"owner", AddedColumn::kText},
    {"saved_at", AddedColumn::kText},
    {"saved_by", AddedColumn::kText},
}};

bool IsTextColumn(SummaryColumn column) {
  switch (column) {
    case SummaryColumn::kCompany:
    case SummaryColumn::kOwner:
    case SummaryColumn::kSavedBy:
      return true;
    default:
      return false;
  }
}

// The SQL column a summary column is stored in; the contact is sorted by last, then first name.
std::vector<std::string> SqlColumnsOf(SummaryColumn column) {
  switch (column) {
    case SummaryColumn::kNumber:
      return {"ibo_number"};
    case SummaryColumn::kContact:
      return {"last_name", "first_name"};
    case SummaryColumn::kMode:
      return {"expert"};
    default:
      return {SummaryColumnName(column)};
  }
}

std::string SortKey(const std::string& column, bool text, const SqlDialect& dialect) {
  if (!text) return column;
  return dialect.textKeyBefore + column + dialect.textKeyAfter;
}

// A LIKE pattern finding `word` anywhere, its own wildcards taken literally.
std::string ContainsPattern(const std::string& word) {
  std::string pattern = "%";
  for (const char c : word) {
    if (c == '%' || c == '_' || c == '\\') pattern.push_back('\\');
    pattern.push_back(c);
  }
  return pattern + "%";
}

// Every word of the search must be found.
void AddSearch(const std::string& search, std::vector<std::string>& conditions,
               std::vector<SqlValue>& params) {
  std::istringstream words(FoldForSearch(search));
  for (std::string word; words >> word;) {
    conditions.push_back("search LIKE ? ESCAPE '\\'");
    params.emplace_back(ContainsPattern(word));
  }
}

BuiltQuery Joined(std::vector<std::string> conditions, std::vector<SqlValue> params) {
  BuiltQuery built;
  for (std::size_t i = 0; i < conditions.size(); ++i) {
    built.where += (i == 0 ? " WHERE " : " AND ") + conditions[i];
  }
  built.params = std::move(params);
  return built;
}

}  // namespace

std::string Marks(std::size_t count) {
  std::string marks;
  for (std::size_t i = 0; i < count; ++i) marks += i == 0 ? "?" : ", ?";
  return marks;
}

const SqlDialect kSqliteDialect = {"",     " COLLATE NOCASE", "",        "+", false, "INTEGER",
                                   "REAL", "INTEGER",         "INTEGER", ""};
const SqlDialect kPostgresDialect = {
    "lower(", ")",       " COLLATE \"C\"",   "", true, "integer", "double precision",
    "bigint", "boolean", "VACUUM (ANALYZE) "};

std::vector<SqlValue> RecordValues(const IboRow& row) {
  const IboSummary& s = row.summary;
  return {std::int64_t{s.iboNumber},
          s.company,
          std::int64_t{s.status},
          std::int64_t{s.expert ? 1 : 0},
          s.firstName,
          s.lastName,
          std::int64_t{s.priority},
          std::int64_t{s.advisorPriority},
          std::int64_t{s.wih},
          std::int64_t{s.wwgi},
          s.wwihDate,
          s.closeDate,
          std::int64_t{s.result},
          s.position,
          s.value,
          row.search};
}

std::string SummarySelectList() {
  // The mode is a number on SQLite and a Boolean on the server: both read as 0 or 1.
  return "id, ibo_number, company, status, CASE WHEN expert THEN 1 ELSE 0 END, first_name, "
         "last_name, priority,"
         " advisor_priority, wih, wwgi, wwih_date, close_date, result, position, value, owner,"
         " saved_at, saved_by, version";
}

std::vector<std::string> AddSummaryColumns(const std::string& table, const SqlDialect& dialect) {
  std::vector<std::string> statements;
  for (const AddedColumn& column : kAddedColumns) {
    const char* type = column.kind == AddedColumn::kText      ? "TEXT NOT NULL DEFAULT ''"
                       : column.kind == AddedColumn::kInteger ? dialect.integer
                       : column.kind == AddedColumn::kReal    ? dialect.real
                                                              : dialect.bigint;
    const std::string definition =
        column.kind == AddedColumn::kText ? type : std::string(type) + " NOT NULL DEFAULT 0";
    statements.push_back("ALTER TABLE " + table + " ADD COLUMN " + column.name + " " + definition);
  }
  return statements;
}

std::vector<std::string> SummaryIndexes(const std::string& table, const SqlDialect& dialect) {
  std::vector<std::string> statements;
  // The first version's indexes sorted text by bytes; the pipeline's replace them.
  for (const char* old : {"ibo_number", "company", "status", "expert"}) {
    statements.push_back("DROP INDEX IF EXISTS " + table + "_" + old);
  }
  for (const SummaryColumn column : SummaryColumns()) {
    if (column == SummaryColumn::kId) continue;
    std::string keys;
    for (const std::string& sql : SqlColumnsOf(column)) {
      keys += (keys.empty() ? "" : ", ") +
              SortKey(sql, IsTextColumn(column) || column == SummaryColumn::kContact, dialect);
    }
    if (dialect.indexWithId) keys += ", id";
    statements.push_back("CREATE INDEX IF NOT EXISTS " + table + "_by_" +
                         SummaryColumnName(column) + " ON " + table + " (" + keys + ")");
  }
  // The forecast sums the open deals from this index alone, without reading their rows.
  statements.push_back("CREATE INDEX IF NOT EXISTS " + table + "_forecast ON " + table +
                       " (status, wwih_date, wih, wwgi, value)");
  return statements;
}

BuiltQuery BuildQuery(const IboQuery& query, const SqlDialect& dialect) {
  // The same conditions twice: once as the filter's indexes can serve them, once hidden from
  // those indexes so that the sort's index is walked instead.
  const auto conditions = [&](const char* hint, std::vector<SqlValue>& params) {
    std::vector<std::string> all;
    AddSearch(query.search, all, params);
    if (!query.statuses.empty()) {
      for (const std::int32_t status : query.statuses) params.emplace_back(std::int64_t{status});
      all.push_back(std::string(hint) + "status IN (" + Marks(query.statuses.size()) + ")");
    }
    if (!query.owner.empty()) {
      all.push_back(std::string(hint) + "owner = ?");
      params.emplace_back(query.owner);
    }
    return all;
  };
  std::vector<SqlValue> params;
  std::vector<std::string> filter = conditions("", params);
  BuiltQuery built = Joined(std::move(filter), std::move(params));
  std::vector<SqlValue> same;
  built.whereBySort = Joined(conditions(dialect.offIndex, same), {}).where;
  const char* direction = query.descending ? " DESC" : "";
  const bool text = IsTextColumn(query.sort) || query.sort == SummaryColumn::kContact;
  for (const std::string& sql : SqlColumnsOf(query.sort)) {
    const std::string key = SortKey(sql, text, dialect) + direction;
    built.order += (built.order.empty() ? " ORDER BY " : ", ") + key;
    built.orderInMemory +=
        (built.orderInMemory.empty() ? " ORDER BY " : ", ") + std::string(dialect.offIndex) + key;
  }
  // Rows that sort alike keep one order, so that pages neither repeat nor skip a row.
  if (query.sort != SummaryColumn::kId) {
    built.order += std::string(", id") + direction;
    built.orderInMemory += std::string(", id") + direction;
  }
  return built;
}

BuiltQuery BuildContactSearch(const std::string& search, const SqlDialect& dialect) {
  std::vector<std::string> conditions;
  std::vector<SqlValue> params;
  AddSearch(search, conditions, params);
  BuiltQuery built = Joined(conditions, std::move(params));
  built.whereBySort = built.where;
  const std::string order =
      std::string("last_name") + dialect.byteOrder + ", first_name" + dialect.byteOrder + ", id";
  built.order = " ORDER BY " + order;
  built.orderInMemory = std::string(" ORDER BY ") + dialect.offIndex + order;
  return built;
}

std::string PageSql(const std::string& columns, const std::string& table, const BuiltQuery& built,
                    std::int64_t matches) {
  if (matches > kSortApartUpTo) {
    return "SELECT " + columns + " FROM " + table + built.whereBySort + built.order +
           " LIMIT ? OFFSET ?";
  }
  // The ids come from the narrowest index that holds the filter's columns.
  return "SELECT " + columns + " FROM " + table + " WHERE id IN (SELECT id FROM " + table +
         built.where + ")" + built.orderInMemory + " LIMIT ? OFFSET ?";
}

std::string ContactSearchText(const Contact& contact) {
  return FoldForSearch(contact.first + " " + contact.last + " " + contact.company + " " +
                       contact.email + " " + contact.phone);
}

}  // namespace pelkor::data_detail
