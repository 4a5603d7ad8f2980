#pragma once

#include <functional>
#include <string>

namespace pelkor::desktop {

// Called when a module cannot be loaded, with its path and the loader's reason; it throws the
// error its caller's users understand.
using ModuleRefusal = std::function<void(const std::string& path, const std::string& why)>;

// The address of `entry` in the module `file` of the program's module folder. The module is
// loaded once and kept: what it makes runs its code until the program ends.
void* ModuleEntry(const char* file, const char* entry, const ModuleRefusal& refuse);

}  // namespace pelkor::desktop
