#pragma once

#include <string>

#include "data/ibo_store.h"

#include <vector>

#include "data/summary_sql.h"

namespace SQLite {
class Database;
class Statement;
}  // namespace SQLite

namespace pelkor::data_detail {

// How long a write waits for another program's lock before it fails.
inline constexpr int kBusyTimeoutMs = 5000;

// Makes a freshly opened connection ready for use: refuses a file that is not an IBO
// database of this schema (error 5 naming `path`), switches a file to write-ahead logging and
// creates the schema in an empty database, unless only an existing database may be opened: an
// empty one is then refused as holding no IBOs. A database opened read-only is checked, never
// changed. Leaves a refused file untouched.
// Binds `params` to the statement's marks in order.
void BindAll(SQLite::Statement& statement, const std::vector<SqlValue>& params);

void PrepareDatabase(SQLite::Database& db, const std::string& path, StoreOpening opening,
                     bool readOnly);

}  // namespace pelkor::data_detail
