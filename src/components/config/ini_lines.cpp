#include "config/ini_lines.h"

#include <fstream>

namespace pelkor {

std::optional<IniLines> ReadIniLines(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  IniLines lines;
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.size() > kLongestIniLine && lines.firstTooLong == 0) lines.firstTooLong = number;
    const auto first = line.find_first_not_of(" \t");
    if (first == std::string::npos) continue;
    const char lead = line[first];
    if (lead == ';' || lead == '#' || lead == '[') continue;
    lines.valueLines.push_back(number);
  }
  return lines;
}

}  // namespace pelkor
