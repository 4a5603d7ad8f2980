#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "contracts/help.h"

namespace pelkor {

// Settings read from INI files, later files overriding earlier ones (the system's, then the
// user's). Files that do not exist are skipped; one that cannot be read is an error naming the
// file and the line. A relative value of a key ending in "Path" is a folder relative to the file.
class IniConfig : public pelkedit::IConfig {
 public:
  explicit IniConfig(std::vector<std::string> files);
  // Error 5 naming the key and the files read when no file sets it.
  std::string GetValue(const std::string& key) override;

 private:
  std::vector<std::string> files_;
  std::vector<std::string> read_;
  std::map<std::string, std::string> values_;
};

// The system-wide settings file ($PELKOR_SYSTEM_CONFIG, else the one beside the installed
// programs, else the build tree's) and the user's ($XDG_CONFIG_HOME or ~/.config, then
// pelkor/pelkor.ini).
std::vector<std::string> ConfigFiles();

// A configuration over ConfigFiles(), read now.
std::shared_ptr<IniConfig> CreateConfig();

}  // namespace pelkor
