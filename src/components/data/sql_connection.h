#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "data/summary_sql.h"

namespace pelkor::data_detail {

// A row of a result, read by column position.
class SqlRow {
 public:
  virtual ~SqlRow() = default;
  virtual std::int32_t Int(int column) const = 0;
  virtual std::int64_t Int64(int column) const = 0;
  virtual double Double(int column) const = 0;
  virtual std::string Text(int column) const = 0;
  virtual pelkedit::Blob Bytes(int column) const = 0;
};

using EachRow = std::function<void(const SqlRow&)>;

// The columns a contact is read from, and the contact a row of them holds.
inline constexpr const char* kContactColumns =
    "id, first_name, last_name, company, address, phone, email";
inline Contact ContactOf(const SqlRow& row) {
  return {row.Int64(0), row.Text(1), row.Text(2), row.Text(3),
          row.Text(4),  row.Text(5), row.Text(6)};
}

// One connection to an IBO database, as the store uses it: statements written with `?` for
// their parameters, run inside a transaction or on their own. The backends differ only here.
class SqlConnection {
 public:
  virtual ~SqlConnection() = default;
  virtual std::string Location() const = 0;
  virtual bool ReadOnly() const = 0;
  virtual const SqlDialect& Dialect() const = 0;
  // Runs `body` in one transaction, committed when it returns; failures become error 5 for
  // `action`. A writing transaction takes the write lock at its start, so that what it reads
  // stays true until it commits.
  virtual void Transaction(const std::string& action, bool write,
                           const std::function<void()>& body) = 0;
  // One statement on its own (one round trip on a server); failures become error 5 for
  // `action`.
  virtual void QueryAlone(const std::string& action, const std::string& sql,
                          const std::vector<SqlValue>& params, const EachRow& each) = 0;
  // Inside a transaction: runs a statement, returning the rows it changed.
  virtual std::int64_t Exec(const std::string& sql, const std::vector<SqlValue>& params) = 0;
  virtual void Query(const std::string& sql, const std::vector<SqlValue>& params,
                     const EachRow& each) = 0;
  // Inside a writing transaction: waits until no one else is creating an IBO, so that the next
  // number is read and taken by one creator at a time.
  virtual void LockNumbers() = 0;
};

}  // namespace pelkor::data_detail
