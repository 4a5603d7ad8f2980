// The PostgreSQL backend as a module the desktop editor loads when it is given a server's URI,
// so that the editor starts without libpq and the libraries it brings.
#include "data/store_backends.h"

extern "C" __attribute__((visibility("default"))) pelkor::ServerStoreOpener
pelkor_postgres_backend() {
  return &pelkor::data_detail::OpenPostgresStore;
}
