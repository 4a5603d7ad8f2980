#include "files/private_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace pelkor {
namespace {

constexpr mode_t kFileMode = S_IRUSR | S_IWUSR;
constexpr mode_t kFolderMode = S_IRWXU;

std::error_code LastError() {
  return {errno, std::generic_category()};
}

}  // namespace

void CreatePrivateFolders(const std::filesystem::path& folder, std::error_code& error) {
  error.clear();
  if (folder.empty() || std::filesystem::is_directory(folder, error)) return;
  error.clear();
  if (folder.has_parent_path() && folder.parent_path() != folder) {
    CreatePrivateFolders(folder.parent_path(), error);
    if (error) return;
  }
  // mkdir's mode is cut by the umask, which can only take permissions away.
  if (::mkdir(folder.c_str(), kFolderMode) != 0 && errno != EEXIST) error = LastError();
}

void CreatePrivateFile(const std::filesystem::path& path, std::error_code& error) {
  error.clear();
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kFileMode);
  if (fd >= 0) {
    ::close(fd);
    return;
  }
  if (errno != EEXIST) error = LastError();
}

std::FILE* OpenPrivateForAppend(const std::filesystem::path& path) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, kFileMode);
  if (fd < 0) return nullptr;
  std::FILE* file = ::fdopen(fd, "a");
  if (file == nullptr) ::close(fd);
  return file;
}

}  // namespace pelkor
