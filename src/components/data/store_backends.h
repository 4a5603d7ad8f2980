#pragma once

#include <memory>
#include <string>

#include "data/ibo_store.h"

namespace pelkor::data_detail {

// The two backends OpenIboStore chooses between. The server's is linked into the programs that
// use pelk_postgres; the desktop editor loads it only when it is given a server's URI.
std::shared_ptr<IIboStore> OpenSqliteStore(const std::string& path, StoreOpening opening);
std::shared_ptr<IIboStore> OpenPostgresStore(const std::string& uri, StoreOpening opening);
}  // namespace pelkor::data_detail
