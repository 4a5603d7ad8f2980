#pragma once

#include <stdexcept>
#include <string>

#include "values/error.h"

namespace pelkscript {

// A scenario that cannot be run: unknown command, bad value, unknown widget or property.
// The runner adds the file and line.
class ScriptError : public std::runtime_error {
 public:
  explicit ScriptError(const std::string& message) : std::runtime_error(message) {}
};

// Runs `body`; an error the editor or a component raises becomes a script error whose message
// starts with `what` ("cannot read record.WIH: ...").
template <typename Body>
auto AsScriptError(const std::string& what, Body&& body) -> decltype(body()) {
  try {
    return body();
  } catch (const pelkedit::PelkError& error) {
    throw ScriptError(what + ": " + error.Description());
  }
}

}  // namespace pelkscript
