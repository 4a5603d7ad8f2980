#include "journal/file_journal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>

#include "files/private_files.h"
#include "values/error.h"

namespace pelkor {
namespace {

constexpr const char* kMagic = "PELKOR-KEPT 1";
constexpr std::int32_t kJournalError = 5;
constexpr std::uint64_t kFnvOffset = 14695981039346656037ULL;
constexpr std::uint64_t kFnvPrime = 1099511628211ULL;

[[noreturn]] void Fail(const std::string& what, const std::filesystem::path& path, int error) {
  throw pelkedit::PelkError(kJournalError, kJournalErrorSource,
                            what + " " + path.string() + ": " + std::strerror(error));
}

std::uint64_t Fnv(std::string_view bytes, std::uint64_t hash = kFnvOffset) {
  for (const char c : bytes) {
    hash ^= static_cast<unsigned char>(c);
    hash *= kFnvPrime;
  }
  return hash;
}

std::string Hex(std::uint64_t value) {
  std::ostringstream out;
  out << std::hex << value;
  return out.str();
}

// The entry's bytes: a header, the record, and a checksum over both.
std::string EntryText(const pelkedit::KeptChanges& kept) {
  std::string text = std::string(kMagic) + "\nversion " + kept.version + "\nsize " +
                     std::to_string(kept.record.size()) + "\n";
  text.append(kept.record.begin(), kept.record.end());
  return text + "\nchecksum " + Hex(Fnv(text)) + "\n";
}

std::optional<pelkedit::KeptChanges> ParseEntry(const std::string& text) {
  const std::size_t tail = text.rfind("\nchecksum ");
  if (tail == std::string::npos) return std::nullopt;
  const std::string body = text.substr(0, tail);
  if (text.substr(tail) != "\nchecksum " + Hex(Fnv(body)) + "\n") return std::nullopt;
  std::istringstream in(body);
  std::string magic;
  std::string versionLine;
  std::string sizeLine;
  if (!std::getline(in, magic) || magic != kMagic) return std::nullopt;
  if (!std::getline(in, versionLine) || versionLine.rfind("version ", 0) != 0) return std::nullopt;
  if (!std::getline(in, sizeLine) || sizeLine.rfind("size ", 0) != 0) return std::nullopt;
  const auto start = static_cast<std::size_t>(in.tellg());
  const std::size_t size = std::strtoull(sizeLine.c_str() + 5, nullptr, 10);
  if (start + size != body.size()) return std::nullopt;
  return pelkedit::KeptChanges{
      versionLine.substr(8),
      pelkedit::Blob(body.begin() + static_cast<std::ptrdiff_t>(start), body.end())};
}

void WriteAll(int fd, const std::string& bytes, const std::filesystem::path& path) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t wrote = ::write(fd, bytes.data() + done, bytes.size() - done);
    if (wrote < 0 && errno == EINTR) continue;
    if (wrote < 0) Fail("Cannot write", path, errno);
    done += static_cast<std::size_t>(wrote);
  }
}

void SyncFolder(const std::filesystem::path& folder) {
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

class FileJournal final : public pelkedit::IChangeJournal {
 public:
  FileJournal(std::filesystem::path folder, const std::string& database)
      : folder_(std::move(folder)), prefix_(Hex(Fnv(database)) + "-") {}

  void Keep(std::int32_t iboId, const std::string& procName,
            const pelkedit::KeptChanges& kept) override {
    std::error_code error;
    CreatePrivateFolders(folder_, error);
    if (error) Fail("Cannot create the folder", folder_, error.value());
    const std::filesystem::path path = PathOf(iboId, procName);
    std::filesystem::path temporary = path;
    temporary += ".new";
    const int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (fd < 0) Fail("Cannot create", temporary, errno);
    try {
      WriteAll(fd, EntryText(kept), temporary);
      if (::fsync(fd) != 0) Fail("Cannot flush", temporary, errno);
    } catch (...) {
      ::close(fd);
      throw;
    }
    ::close(fd);
    if (::rename(temporary.c_str(), path.c_str()) != 0) Fail("Cannot replace", path, errno);
    SyncFolder(folder_);
  }

  std::optional<pelkedit::KeptChanges> Find(std::int32_t iboId,
                                            const std::string& procName) override {
    std::ifstream in(PathOf(iboId, procName), std::ios::binary);
    if (!in) return std::nullopt;
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    return ParseEntry(text);
  }

  void Remove(std::int32_t iboId, const std::string& procName) override {
    const std::filesystem::path path = PathOf(iboId, procName);
    if (::unlink(path.c_str()) != 0 && errno != ENOENT) Fail("Cannot remove", path, errno);
  }

 private:
  std::filesystem::path PathOf(std::int32_t iboId, const std::string& procName) const {
    return folder_ / (prefix_ + procName + "-" + std::to_string(iboId) + ".kept");
  }

  std::filesystem::path folder_;
  std::string prefix_;
};

}  // namespace

std::shared_ptr<pelkedit::IChangeJournal> OpenFileJournal(const std::filesystem::path& folder,
                                                          const std::string& database) {
  return std::make_shared<FileJournal>(folder, database);
}

std::filesystem::path DefaultJournalFolder() {
  if (const char* state = std::getenv("XDG_STATE_HOME"); state != nullptr && *state != '\0') {
    return std::filesystem::path(state) / "pelkor";
  }
  const char* home = std::getenv("HOME");
  return std::filesystem::path(home != nullptr ? home : ".") / ".local" / "state" / "pelkor";
}

}  // namespace pelkor
