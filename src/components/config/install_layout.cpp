#include "config/install_layout.h"

namespace pelkor {
namespace {

namespace fs = std::filesystem;

// The installed tree as seen from its programs' folder, worked out by the build from the
// install folders, so that a package unpacked under another root still finds its own files.
constexpr const char* kBinToData = PELK_BIN_TO_DATA;
constexpr const char* kBinToConfig = PELK_BIN_TO_CONFIG;
constexpr const char* kBinToModules = PELK_BIN_TO_MODULES;
constexpr const char* kMarkerFile = "advisor.rules";

fs::path ProgramFolder() {
  std::error_code error;
  const fs::path self = fs::read_symlink("/proc/self/exe", error);
  return error ? fs::path() : self.parent_path();
}

DataPlaces Find() {
  const fs::path programs = ProgramFolder();
  std::error_code error;
  if (!programs.empty()) {
    const fs::path data = (programs / kBinToData).lexically_normal();
    if (fs::exists(data / kMarkerFile, error)) {
      return {true, data, (programs / kBinToConfig).lexically_normal(),
              (programs / kBinToModules).lexically_normal()};
    }
  }
  return {false, fs::path(PELK_SOURCE_DATA_DIR), fs::path(PELK_BUILD_CONFIG),
          fs::path(PELK_BUILD_MODULES)};
}

}  // namespace

const DataPlaces& FindDataPlaces() {
  static const DataPlaces places = Find();
  return places;
}

std::string DescribeDataPlaces() {
  const DataPlaces& places = FindDataPlaces();
  return "data: " + places.dataFolder.string() + ", settings: " + places.systemConfig.string() +
         (places.installed ? "" : " (build tree)");
}

}  // namespace pelkor
