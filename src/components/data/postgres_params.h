#pragma once

#include <string>
#include <vector>

#include <pqxx/result>
#include <pqxx/transaction_base>

#include <pqxx/binarystring>

#include "data/sql_connection.h"

namespace pelkor::data_detail {

// A row of a server's result.
class PostgresRow final : public SqlRow {
 public:
  explicit PostgresRow(const pqxx::row& row) : row_(row) {}
  std::int32_t Int(int column) const override { return row_[column].as<std::int32_t>(); }
  std::int64_t Int64(int column) const override { return row_[column].as<std::int64_t>(); }
  double Double(int column) const override { return row_[column].as<double>(); }
  std::string Text(int column) const override { return row_[column].as<std::string>(); }
  pelkedit::Blob Bytes(int column) const override {
    const pqxx::binarystring bytes(row_[column]);
    return pelkedit::Blob(bytes.begin(), bytes.end());
  }

 private:
  const pqxx::row& row_;
};

// Runs a statement written with the store's `?` marks, its parameters bound in order.
pqxx::result RunWith(pqxx::transaction_base& work, const std::string& sql,
                     const std::vector<SqlValue>& params);

}  // namespace pelkor::data_detail
