#pragma once

#include <string>
#include <vector>

#include <pqxx/result>
#include <pqxx/transaction_base>

#include "data/summary_sql.h"

namespace pelkor::data_detail {

// Runs a statement written with the store's `?` marks, its parameters bound in order.
pqxx::result RunWith(pqxx::transaction_base& work, const std::string& sql,
                     const std::vector<SqlValue>& params);

}  // namespace pelkor::data_detail
