#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "data/sql_connection.h"

namespace pelkor::data_detail {

// What the summary columns' migration needs of a backend, inside its migration transaction:
// statements run, and rows read, as the store's connections run and read them.
struct MigrationSteps {
  std::function<void(const std::string& sql, const std::vector<SqlValue>& params)> exec;
  std::function<void(const std::string& sql, const std::vector<SqlValue>& params,
                     const EachRow& each)>
      query;
};

// How many rows a migration reads at a time.
inline constexpr int kMigrationBatch = 1000;

// Adds the summary columns to both tables and fills them from the records, and the contact
// book's search column. A record that cannot be decoded keeps empty summaries: it stays listed,
// and opening it says it is damaged, as before.
void AddSummaries(const MigrationSteps& steps, const SqlDialect& dialect);

// The search column and index of the contact book.
std::vector<std::string> ContactSearchStatements(const SqlDialect& dialect);

}  // namespace pelkor::data_detail
