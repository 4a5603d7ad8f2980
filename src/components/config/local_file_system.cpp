#include "config/local_file_system.h"

#include <filesystem>

namespace pelkor {

std::string LocalFileSystem::BuildPath(const std::string& folder, const std::string& name) {
  if (folder.empty()) return name;
  if (folder.back() == '/') return folder + name;
  return folder + "/" + name;
}

bool LocalFileSystem::FileExists(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

std::shared_ptr<LocalFileSystem> CreateFileSystem() {
  return std::make_shared<LocalFileSystem>();
}

}  // namespace pelkor
