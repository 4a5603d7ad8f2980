#include "config/ini_config.h"

#include <ini.h>

#include <cstdlib>
#include <filesystem>

#include "config/ini_lines.h"
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
  std::error_code error;
  if (std::filesystem::exists(PELK_INSTALLED_CONFIG, error)) return PELK_INSTALLED_CONFIG;
  return PELK_BUILD_CONFIG;
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
    const int result = ini_parse(file.c_str(), Take, &values_);
    if (result < 0) refuse("cannot be read");
    if (result > 0) refuse("is not a valid INI file (line " + std::to_string(result) + ")");
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
