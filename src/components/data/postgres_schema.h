#pragma once

#include <string>

#include <pqxx/connection>

#include "data/ibo_store.h"

namespace pelkor::data_detail {

// Makes a server database ready for use, in one transaction under a lock (so two programs
// opening a new database at once do not both set it up): refuses one that belongs to another
// application, has a newer schema or lacks a table; brings an older schema up to date; sets up
// the tables in an empty database when `opening` allows. Errors name `location`.
void PrepareServerDatabase(pqxx::connection& connection, const std::string& location,
                           StoreOpening opening);

}  // namespace pelkor::data_detail
