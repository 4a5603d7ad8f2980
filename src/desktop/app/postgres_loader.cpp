#include "app/postgres_loader.h"

#include <dlfcn.h>

#include <string>

#include "config/install_layout.h"
#include "data/data_error.h"
#include "data/ibo_store.h"

namespace pelkor::desktop {
namespace {

constexpr const char* kModuleFile = "pelkor-postgres.so";
constexpr const char* kEntry = "pelkor_postgres_backend";

using Entry = ServerStoreOpener (*)();

// Loaded once and kept: the stores it opens run its code until the program ends.
ServerStoreOpener LoadModule() {
  const std::string path = (FindDataPlaces().moduleFolder / kModuleFile).string();
  void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  const auto refuse = [&path](const char* why) {
    data_detail::RaiseDataError("PostgreSQL databases cannot be opened: its support (" + path +
                                ") cannot be loaded: " + (why != nullptr ? why : "unknown") + ".");
  };
  if (module == nullptr) refuse(dlerror());
  auto* entry = reinterpret_cast<Entry>(dlsym(module, kEntry));
  if (entry == nullptr) refuse(dlerror());
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
