#pragma once

#include <string>

#include "platform/com_object.h"

namespace pelkedit {

inline constexpr const char* kConfigProgId = "PelkConf.Config";
inline constexpr const char* kFileSystemProgId = "Scripting.FileSystemObject";

// The product's configuration: a value per key. A key nobody configured is an error that names
// it.
class IConfig : public ComObject {
 public:
  virtual std::string GetValue(const std::string& key) = 0;
};

// The file system as help needs it.
class IFileSystem : public ComObject {
 public:
  // The folder and the name joined by exactly one path separator.
  virtual std::string BuildPath(const std::string& folder, const std::string& name) = 0;
  virtual bool FileExists(const std::string& path) = 0;
};

}  // namespace pelkedit
