#include "data/ibo_database.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "data/data_error.h"
#include "data/ibo_schema.h"
#include "record/ibo_properties.h"
#include "values/error.h"

namespace pelkor {

using data_detail::RaiseDataError;
using data_detail::TableSqlName;
using data_detail::WithSqlErrors;
using pelkedit::Blob;

// The columns of one row, taken from the decoded record.
struct IboDatabase::Row {
  IboTable table = IboTable::kMain;
  std::int32_t id = 0;
  std::int32_t iboNumber = 0;
  std::string company;
  std::int32_t status = 0;
  bool expert = false;
  const Blob* data = nullptr;
};

namespace {

// "IBO 42 from the main table" and the like, for messages.
std::string Where(std::int32_t id, const char* preposition, IboTable table) {
  return "IBO " + std::to_string(id) + " " + preposition + " the " + IboTableName(table) + " table";
}

}  // namespace

const char* IboTableName(IboTable table) {
  return table == IboTable::kArchive ? "archive" : "main";
}

IboTable TableForProcedure(const std::string& procName) {
  if (procName == pelkedit::kProcMain) {
    return IboTable::kMain;
  }
  if (procName == pelkedit::kProcArchive) {
    return IboTable::kArchive;
  }
  RaiseDataError("Unknown retrieval procedure \"" + procName + "\"; expected \"" +
                 pelkedit::kProcMain + "\" or \"" + pelkedit::kProcArchive + "\".");
}

std::shared_ptr<IboDatabase> IboDatabase::Open(const std::string& path) {
  if (path.empty()) {
    RaiseDataError("No IBO database file was named.");
  }
  auto db = WithSqlErrors("Cannot open the IBO database '" + path + "'", [&] {
    return std::make_unique<SQLite::Database>(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE,
                                              data_detail::kBusyTimeoutMs);
  });
  data_detail::PrepareDatabase(*db, path);
  return std::shared_ptr<IboDatabase>(new IboDatabase(path, std::move(db)));
}

IboDatabase::IboDatabase(std::string path, std::unique_ptr<SQLite::Database> db)
    : path_(std::move(path)), db_(std::move(db)) {}

IboDatabase::~IboDatabase() = default;

std::optional<Blob> IboDatabase::Find(IboTable table, std::int32_t id) {
  std::lock_guard lock(mutex_);
  const std::string action = "Cannot read " + Where(id, "from", table) + " of '" + path_ + "'";
  return WithSqlErrors(action, [&]() -> std::optional<Blob> {
    SQLite::Statement query(
        *db_, std::string("SELECT data FROM ") + TableSqlName(table) + " WHERE id = ?");
    query.bind(1, id);
    if (!query.executeStep()) {
      return std::nullopt;
    }
    const SQLite::Column column = query.getColumn(0);
    const auto* bytes = static_cast<const std::uint8_t*>(column.getBlob());
    return Blob(bytes, bytes + column.getBytes());
  });
}

Blob IboDatabase::Read(IboTable table, std::int32_t id) {
  std::optional<Blob> data = Find(table, id);
  if (!data) {
    RaiseDataError("IBO " + std::to_string(id) + " was not found in the " + IboTableName(table) +
                   " table.");
  }
  return std::move(*data);
}

IboDatabase::Row IboDatabase::Decode(const Blob& data, IboTable table) const {
  const auto record = CreateIboProperties();
  try {
    record->SetIboData(data);
  } catch (const pelkedit::PelkError& error) {
    RaiseDataError("The record to be written to the " + std::string(IboTableName(table)) +
                   " table of '" + path_ + "' is not a valid IBO: " + error.Description());
  }
  Row row;
  row.table = table;
  row.id = record->Get("IboId").AsLong();
  row.iboNumber = record->Get("IboNumber").AsLong();
  row.company = record->Get("ContactCompany").AsString();
  row.status = record->Get("Status").AsLong();
  row.expert = record->Get("ExpertMode").AsBool();
  row.data = &data;
  return row;
}

int IboDatabase::Upsert(const Row& row, bool replace) {
  const std::string table = TableSqlName(row.table);
  const char* onConflict = replace
                               ? " ON CONFLICT(id) DO UPDATE SET ibo_number = excluded.ibo_number,"
                                 " company = excluded.company, status = excluded.status,"
                                 " expert = excluded.expert, data = excluded.data"
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

void IboDatabase::Write(IboTable table, const Blob& data) {
  const Row row = Decode(data, table);
  std::lock_guard lock(mutex_);
  WithSqlErrors("Cannot write " + Where(row.id, "to", table) + " of '" + path_ + "'", [&] {
    SQLite::Transaction transaction(*db_, SQLite::TransactionBehavior::IMMEDIATE);
    Upsert(row, true);
    transaction.commit();
  });
}

int IboDatabase::AddMissing(const std::vector<IboEntry>& entries) {
  std::vector<Row> rows;
  rows.reserve(entries.size());
  for (const IboEntry& entry : entries) {
    rows.push_back(Decode(entry.data, entry.table));
  }
  std::lock_guard lock(mutex_);
  return WithSqlErrors("Cannot add IBOs to '" + path_ + "'", [&] {
    SQLite::Transaction transaction(*db_, SQLite::TransactionBehavior::IMMEDIATE);
    int added = 0;
    for (const Row& row : rows) {
      added += Upsert(row, false);
    }
    transaction.commit();
    return added;
  });
}

std::vector<IboSummary> IboDatabase::ListIbos(std::optional<IboTable> only) {
  std::lock_guard lock(mutex_);
  return WithSqlErrors("Cannot list the IBOs of '" + path_ + "'", [&] {
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

}  // namespace pelkor
