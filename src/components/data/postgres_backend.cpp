// Linked whole into every program that opens PostgreSQL databases directly: its registration
// runs before main.
#include "data/store_backends.h"

namespace pelkor::data_detail {
namespace {

const bool kRegistered = [] {
  UseServerBackend(&OpenPostgresStore);
  return true;
}();

}  // namespace
}  // namespace pelkor::data_detail
