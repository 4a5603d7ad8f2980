#include "app/postgres_loader.h"

#include "app/module_loader.h"
#include "data/data_error.h"
#include "data/ibo_store.h"

namespace pelkor::desktop {
namespace {

constexpr const char* kModuleFile = "pelkor-postgres.so";
constexpr const char* kEntry = "pelkor_postgres_backend";

using Entry = ServerStoreOpener (*)();

ServerStoreOpener LoadModule() {
  const auto entry = reinterpret_cast<Entry>(
      ModuleEntry(kModuleFile, kEntry, [](const std::string& path, const std::string& why) {
        data_detail::RaiseDataError("PostgreSQL databases cannot be opened: its support (" + path +
                                    ") cannot be loaded: " + why + ".");
      }));
  return entry();
}

std::shared_ptr<IIboStore> OpenThroughModule(const std::string& uri, StoreOpening opening) {
  static const ServerStoreOpener opener = LoadModule();
  return opener(uri, opening);
}

}  // namespace

void UsePostgresModule() {
  UseServerBackend(&OpenThroughModule);
}

}  // namespace pelkor::desktop
