#pragma once

#include <memory>
#include <string>

#include "contracts/help.h"

namespace pelkor {

// The machine's own file system.
class LocalFileSystem : public pelkedit::IFileSystem {
 public:
  std::string BuildPath(const std::string& folder, const std::string& name) override;
  bool FileExists(const std::string& path) override;
};

std::shared_ptr<LocalFileSystem> CreateFileSystem();

}  // namespace pelkor
