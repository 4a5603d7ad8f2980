#include "data/sql_ibo_store.h"

#include <algorithm>

namespace pelkor::data_detail {
namespace {

using pelkedit::Blob;

// Rows one INSERT carries: far below either database's limit on parameters.
constexpr std::size_t kRowsPerStatement = 200;
// A contact's columns as it is added: the six fields and the search text.
constexpr std::size_t kContactColumnsWritten = 7;

std::vector<SqlValue> WriteParams(const IboRow& row, const std::string& owner,
                                  const std::string& savedAt, const std::string& savedBy) {
  std::vector<SqlValue> params = {std::int64_t{row.summary.id}};
  for (SqlValue& value : RecordValues(row)) params.push_back(std::move(value));
  params.insert(params.end(), {owner, savedAt, savedBy, row.data});
  return params;
}

}  // namespace

std::string AllRowColumns() {
  return "id, " + ColumnList(kRecordColumns) + ", " + ColumnList(kStampColumns) + ", data, version";
}

SqlIboStore::SqlIboStore(std::unique_ptr<SqlConnection> sql)
    : sql_(std::move(sql)), user_(CurrentUserName()) {}

std::int64_t SqlIboStore::Insert(const std::vector<StampedRow>& rows, bool replace) {
  if (rows.empty()) return 0;
  const std::string table = TableSqlName(rows.front().row->table);
  const std::string tuple = "(" + Marks(1 + kRecordColumns.size() + kStampColumns.size() + 1) + ")";
  std::string sql = "INSERT INTO " + table + " (id, " + ColumnList(kRecordColumns) + ", " +
                    ColumnList(kStampColumns) + ", data) VALUES ";
  std::vector<SqlValue> params;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    sql += (i == 0 ? "" : ", ") + tuple;
    for (SqlValue& value :
         WriteParams(*rows[i].row, rows[i].owner, rows[i].savedAt, rows[i].savedBy)) {
      params.push_back(std::move(value));
    }
  }
  sql += " ON CONFLICT (id) DO ";
  if (!replace) {
    sql += "NOTHING";
  } else {
    // The owner stays who created it.
    sql += "UPDATE SET ";
    for (const char* column : kRecordColumns) {
      sql += std::string(column) + " = excluded." + column + ", ";
    }
    sql +=
        "saved_at = excluded.saved_at, saved_by = excluded.saved_by, data = excluded.data,"
        " version = " +
        table + ".version + 1";
  }
  return sql_->Exec(sql, params);
}

void SqlIboStore::Write(IboTable table, const Blob& data) {
  const IboRow row = DecodeRow(data, table, Location());
  std::lock_guard lock(mutex_);
  sql_->Transaction("Cannot write " + Where(row.summary.id, "to", table) + " of " + Location(),
                    true, [&] {
                      Insert({{&row, user_, SaveStamp(), user_}}, true);
                    });
}

std::optional<VersionedIbo> SqlIboStore::FindVersioned(IboTable table, std::int32_t id) {
  std::lock_guard lock(mutex_);
  std::optional<VersionedIbo> found;
  sql_->QueryAlone(
      "Cannot read " + Where(id, "from", table) + " of " + Location(),
      std::string("SELECT data, version FROM ") + TableSqlName(table) + " WHERE id = ?",
      {std::int64_t{id}}, [&](const SqlRow& row) {
        found = VersionedIbo{row.Bytes(0), row.Int64(1)};
      });
  return found;
}

std::int64_t SqlIboStore::Update(IboTable table, std::int32_t id, const Blob& data,
                                 std::optional<std::int64_t> expected) {
  const IboRow row = DecodeRow(data, table, Location());
  const std::string refusal = "Cannot save " + Where(id, "to", table) + " of " + Location();
  if (row.summary.id != id) RaiseForeignId(refusal, row.summary.id);
  std::string sql = std::string("UPDATE ") + TableSqlName(table) + " SET ";
  for (const char* column : kRecordColumns) sql += std::string(column) + " = ?, ";
  // The version check and the write are one statement: a concurrent save holds the row until it
  // commits, and this one then sees the new version.
  sql +=
      "saved_at = ?, saved_by = ?, data = ?, version = version + 1"
      " WHERE id = ? AND (? < 0 OR version = ?) RETURNING version";
  std::vector<SqlValue> params = RecordValues(row);
  const std::int64_t wanted = expected.value_or(-1);
  params.insert(params.end(), {SaveStamp(), user_, row.data, std::int64_t{id}, wanted, wanted});
  std::lock_guard lock(mutex_);
  std::optional<std::int64_t> saved;
  const std::int64_t tableCode = table == IboTable::kMain ? 0 : 1;
  sql_->Transaction(refusal, true, [&] {
    // The version this save replaces is kept; a refused save rolls it back with the rest.
    sql_->Exec(std::string("INSERT INTO ") + kSavedVersionsTable +
                   " (tbl, id, version, saved_at, saved_by, data) SELECT ?, id, version,"
                   " COALESCE(saved_at, ''), COALESCE(saved_by, ''), data FROM " +
                   TableSqlName(table) +
                   " WHERE id = ? AND (? < 0 OR version = ?)"
                   // A save racing this one keeps the same version first; this one is then
                   // refused by the version check below.
                   " ON CONFLICT DO NOTHING",
               {tableCode, std::int64_t{id}, wanted, wanted});
    sql_->Query(sql, params, [&](const SqlRow& result) { saved = result.Int64(0); });
    if (saved) {
      sql_->Exec(std::string("DELETE FROM ") + kSavedVersionsTable +
                     " WHERE tbl = ? AND id = ? AND version NOT IN (SELECT version FROM " +
                     kSavedVersionsTable +
                     " WHERE tbl = ? AND id = ? ORDER BY version DESC LIMIT " +
                     std::to_string(kSavedVersionsKept) + ")",
                 {tableCode, std::int64_t{id}, tableCode, std::int64_t{id}});
      return;
    }
    bool there = false;
    sql_->Query(std::string("SELECT 1 FROM ") + TableSqlName(table) + " WHERE id = ?",
                {std::int64_t{id}}, [&](const SqlRow&) { there = true; });
    if (!there) RaiseVanished(refusal);
    RaiseChangedBySomeoneElse(id);
  });
  return *saved;
}

std::vector<SavedVersion> SqlIboStore::History(IboTable table, std::int32_t id) {
  std::vector<SavedVersion> versions;
  std::lock_guard lock(mutex_);
  sql_->QueryAlone(
      "Cannot read the saved versions " + Where(id, "in", table) + " of " + Location(),
      std::string("SELECT version, saved_at, saved_by, data FROM ") + kSavedVersionsTable +
          " WHERE tbl = ? AND id = ? ORDER BY version DESC",
      {std::int64_t{table == IboTable::kMain ? 0 : 1}, std::int64_t{id}}, [&](const SqlRow& row) {
        versions.push_back(SavedVersion{row.Int64(0), row.Text(1), row.Text(2), row.Bytes(3)});
      });
  return versions;
}

int SqlIboStore::AddMissing(const std::vector<IboEntry>& entries) {
  std::vector<IboRow> rows;
  rows.reserve(entries.size());
  for (const IboEntry& entry : entries) {
    rows.push_back(DecodeRow(entry.data, entry.table, Location()));
  }
  const std::string now = SaveStamp();
  std::lock_guard lock(mutex_);
  std::int64_t added = 0;
  sql_->Transaction("Cannot add IBOs to " + Location(), true, [&] {
    // Many rows to a statement: a copy costs a round trip per batch, not per IBO.
    std::vector<StampedRow> batch;
    const auto flush = [&] {
      added += Insert(batch, false);
      batch.clear();
    };
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const IboEntry& entry = entries[i];
      if (!batch.empty() &&
          (batch.front().row->table != rows[i].table || batch.size() == kRowsPerStatement)) {
        flush();
      }
      // A copied row keeps who made and saved it; a new one is the person's working now.
      const bool copied = !entry.savedAt.empty();
      batch.push_back({&rows[i], copied ? entry.owner : user_, copied ? entry.savedAt : now,
                       copied ? entry.savedBy : user_});
    }
    flush();
  });
  return static_cast<int>(added);
}

std::vector<IboSummary> SqlIboStore::ListIbos(std::optional<IboTable> only) {
  std::lock_guard lock(mutex_);
  std::vector<IboSummary> list;
  sql_->Transaction("Cannot list the IBOs of " + Location(), false, [&] {
    for (const IboTable table : kTables) {
      if (only && *only != table) continue;
      sql_->Query("SELECT " + SummarySelectList() + " FROM " + TableSqlName(table) + " ORDER BY id",
                  {}, [&](const SqlRow& row) {
                    list.push_back(ReadSummary(row, table == IboTable::kArchive));
                  });
    }
  });
  return list;
}

std::vector<Contact> SqlIboStore::ListContacts() {
  std::lock_guard lock(mutex_);
  std::vector<Contact> list;
  sql_->QueryAlone("Cannot list the contacts of " + Location(),
                   std::string("SELECT ") + kContactColumns + " FROM contacts" +
                       BuildContactSearch("", sql_->Dialect()).order,
                   {}, [&](const SqlRow& row) { list.push_back(ContactOf(row)); });
  return list;
}

std::pair<std::vector<Contact>, std::int64_t> SqlIboStore::SearchContacts(
    const ContactQuery& query) {
  const BuiltQuery built = BuildContactSearch(query.search, sql_->Dialect());
  std::vector<SqlValue> page = built.params;
  page.insert(page.end(), {query.limit, query.offset});
  std::lock_guard lock(mutex_);
  std::pair<std::vector<Contact>, std::int64_t> found;
  sql_->Transaction("Cannot search the contacts of " + Location(), false, [&] {
    sql_->Query("SELECT count(*) FROM contacts" + built.where, built.params,
                [&](const SqlRow& row) { found.second = row.Int64(0); });
    sql_->Query(PageSql(kContactColumns, "contacts", built, found.second), page,
                [&](const SqlRow& row) { found.first.push_back(ContactOf(row)); });
  });
  return found;
}

int SqlIboStore::AddContacts(const std::vector<Contact>& contacts) {
  std::lock_guard lock(mutex_);
  std::int64_t added = 0;
  sql_->Transaction("Cannot add contacts to " + Location(), true, [&] {
    for (std::size_t from = 0; from < contacts.size(); from += kRowsPerStatement) {
      const std::size_t to = std::min(contacts.size(), from + kRowsPerStatement);
      std::string sql =
          "INSERT INTO contacts (first_name, last_name, company, address, phone, email, search)"
          " VALUES ";
      const std::string tuple = "(" + Marks(kContactColumnsWritten) + ")";
      std::vector<SqlValue> params;
      for (std::size_t i = from; i < to; ++i) {
        const Contact& c = contacts[i];
        sql += (i == from ? "" : ", ") + tuple;
        params.insert(params.end(), {c.first, c.last, c.company, c.address, c.phone, c.email,
                                     ContactSearchText(c)});
      }
      added += sql_->Exec(sql + " ON CONFLICT DO NOTHING", params);
    }
  });
  return static_cast<int>(added);
}

std::vector<Contact> SqlIboStore::ContactBatch(std::int64_t afterId, int limit) {
  std::lock_guard lock(mutex_);
  std::vector<Contact> batch;
  sql_->QueryAlone(
      "Cannot read the contacts of " + Location(),
      std::string("SELECT ") + kContactColumns + " FROM contacts WHERE id > ? ORDER BY id LIMIT ?",
      {afterId, std::int64_t{limit}}, [&](const SqlRow& row) { batch.push_back(ContactOf(row)); });
  return batch;
}

void SqlIboStore::SettleAfterBulkLoad() {
  const std::string settle = sql_->Dialect().afterBulkLoad;
  if (settle.empty()) return;
  std::lock_guard lock(mutex_);
  for (const char* table : kSearchedTables) {
    sql_->QueryAlone("Cannot update the statistics of " + Location(), settle + table, {},
                     [](const SqlRow&) {});
  }
}

}  // namespace pelkor::data_detail
