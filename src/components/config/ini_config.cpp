#include "config/ini_config.h"

#include <ini.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "config/ini_lines.h"
#include "config/install_layout.h"
#include "values/error.h"

namespace pelkor {
namespace {

constexpr const char* kSource = "PelkConf.Config";
constexpr const char* kFileName = "pelkor.ini";

int Take(void* user, const char* /*section*/, const char* key, const char* value) {
  (*static_cast<std::map<std::string, std::string>*>(user))[key] = value;
  return 1;
}

std::string Joined(const std::vector<std::string>& files) {
  std::string text;
  for (const std::string& file : files) text += (text.empty() ? "" : ", ") + file;
  return text.empty() ? "no file" : text;
}

std::string UserFile() {
  if (const char* config = std::getenv("XDG_CONFIG_HOME"); config != nullptr && *config != '\0') {
    return (std::filesystem::path(config) / "pelkor" / kFileName).string();
  }
  const char* home = std::getenv("HOME");
  if (home == nullptr || *home == '\0') return {};
  return (std::filesystem::path(home) / ".config" / "pelkor" / kFileName).string();
}

std::string SystemFile() {
  if (const char* chosen = std::getenv("PELKOR_SYSTEM_CONFIG");
      chosen != nullptr && *chosen != '\0') {
    return chosen;
  }
  return FindDataPlaces().systemConfig.string();
}

// A folder setting written relative ("../../usr/share/pelkor/help") is read from the settings
// file's own folder, so that an installed tree works wherever it was unpacked.
constexpr std::string_view kFolderKeySuffix = "Path";

void ResolveFolders(const std::string& file, std::map<std::string, std::string>& values) {
  for (auto& [key, value] : values) {
    if (!key.ends_with(kFolderKeySuffix) || value.empty()) continue;
    const std::filesystem::path folder(value);
    if (folder.is_absolute()) continue;
    value = (std::filesystem::path(file).parent_path() / folder).lexically_normal().string();
  }
}

}  // namespace

IniConfig::IniConfig(std::vector<std::string> files) : files_(std::move(files)) {
  for (const std::string& file : files_) {
    std::error_code error;
    if (file.empty() || !std::filesystem::exists(file, error)) continue;
    const auto refuse = [&file](const std::string& why) {
      pelkedit::Raise(pelkedit::errnum::kInvalidProcedureCall, kSource,
                      "The settings file \"" + file + "\" " + why + ".");
    };
    const auto lines = ReadIniLines(file);
    if (!lines) refuse("cannot be read");
    if (lines->firstTooLong > 0) {
      refuse("is not a valid INI file (line " + std::to_string(lines->firstTooLong) +
             " is longer than " + std::to_string(kLongestIniLine) + " characters)");
    }
    std::map<std::string, std::string> values;
    const int result = ini_parse(file.c_str(), Take, &values);
    if (result < 0) refuse("cannot be read");
    if (result > 0) refuse("is not a valid INI file (line " + std::to_string(result) + ")");
    ResolveFolders(file, values);
    for (auto& [key, value] : values) values_[key] = std::move(value);
    read_.push_back(file);
  }
}

std::string IniConfig::GetValue(const std::string& key) {
  const auto it = values_.find(key);
  if (it != values_.end()) return it->second;
  pelkedit::Raise(pelkedit::errnum::kInvalidProcedureCall, kSource,
                  "No setting \"" + key + "\" is configured (read: " + Joined(read_) + ").");
}

std::vector<std::string> ConfigFiles() {
  return {SystemFile(), UserFile()};
}

std::shared_ptr<IniConfig> CreateConfig() {
  return std::make_shared<IniConfig>(ConfigFiles());
}

}  // namespace pelkor
