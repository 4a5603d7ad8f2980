#pragma once

#include <filesystem>
#include <string>

namespace pelkor {

// Where the programs find their data. A program that runs from an installed tree (the package
// installed, or unpacked under any folder) uses that tree's data and settings only; one that
// runs from a build tree uses the source tree's.
struct DataPlaces {
  bool installed = false;
  std::filesystem::path dataFolder;    // advisor.rules, help/
  std::filesystem::path systemConfig;  // pelkor.ini for every user of the machine
  std::filesystem::path moduleFolder;  // pelkor-postgres.so
};

// Worked out once from the running program's own path.
const DataPlaces& FindDataPlaces();

// For --version and bug reports: "data: FOLDER, settings: FILE".
std::string DescribeDataPlaces();

}  // namespace pelkor
