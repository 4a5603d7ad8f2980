#pragma once

#include <stdexcept>
#include <string>

namespace pelkscript {

// A scenario that cannot be run: unknown command, bad value, unknown widget or property.
// The runner adds the file and line.
class ScriptError : public std::runtime_error {
 public:
  explicit ScriptError(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace pelkscript
