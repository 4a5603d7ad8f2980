#pragma once

#include <optional>
#include <string>
#include <vector>

namespace pelkor {

// The INI reader reads a line into a buffer of this many characters; a longer line would be
// cut and its rest read as a line of its own, so such a file is refused naming the long line.
inline constexpr std::size_t kLongestIniLine = 199;

// What the INI reader will make of a file's lines, read beforehand so that messages can name
// the line they are about.
struct IniLines {
  // The first line longer than kLongestIniLine, 0 when none is.
  int firstTooLong = 0;
  // The number of every line that hands a key and value to the reader's handler (continuation
  // lines too), in the order the handler is called.
  std::vector<int> valueLines;
};

// nullopt when the file cannot be read.
std::optional<IniLines> ReadIniLines(const std::string& path);

}  // namespace pelkor
