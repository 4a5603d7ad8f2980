#include "app/module_loader.h"

#include <dlfcn.h>

#include "config/install_layout.h"

namespace pelkor::desktop {

void* ModuleEntry(const char* file, const char* entry, const ModuleRefusal& refuse) {
  const std::string path = (FindDataPlaces().moduleFolder / file).string();
  const auto fail = [&] {
    const char* why = dlerror();
    refuse(path, why != nullptr ? why : "unknown");
  };
  void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) fail();
  void* address = dlsym(module, entry);
  if (address == nullptr) fail();
  return address;
}

}  // namespace pelkor::desktop
