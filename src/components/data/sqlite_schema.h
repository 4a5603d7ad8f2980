#pragma once

#include <string>

#include "data/ibo_store.h"

#include <vector>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

#include "data/sql_connection.h"

namespace SQLite {
class Database;
}  // namespace SQLite

namespace pelkor::data_detail {

// How long a write waits for another program's lock before it fails.
inline constexpr int kBusyTimeoutMs = 5000;

// Makes a freshly opened connection ready for use: refuses a file that is not an IBO
// database of this schema (error 5 naming `path`), switches a file to write-ahead logging and
// creates the schema in an empty database, unless only an existing database may be opened: an
// empty one is then refused as holding no IBOs. A database opened read-only is checked, never
// changed. Leaves a refused file untouched.
// The current row of a statement being stepped.
class SqliteRow final : public SqlRow {
 public:
  explicit SqliteRow(SQLite::Statement& statement) : statement_(statement) {}
  std::int32_t Int(int column) const override { return statement_.getColumn(column).getInt(); }
  std::int64_t Int64(int column) const override { return statement_.getColumn(column).getInt64(); }
  double Double(int column) const override { return statement_.getColumn(column).getDouble(); }
  std::string Text(int column) const override { return statement_.getColumn(column).getString(); }
  pelkedit::Blob Bytes(int column) const override {
    const SQLite::Column value = statement_.getColumn(column);
    const auto* bytes = static_cast<const std::uint8_t*>(value.getBlob());
    return pelkedit::Blob(bytes, bytes + value.getBytes());
  }

 private:
  SQLite::Statement& statement_;
};

// Binds `params` to the statement's marks in order.
void BindAll(SQLite::Statement& statement, const std::vector<SqlValue>& params);

void PrepareDatabase(SQLite::Database& db, const std::string& path, StoreOpening opening,
                     bool readOnly);

}  // namespace pelkor::data_detail
