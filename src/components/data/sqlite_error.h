#pragma once

#include <string>

#include <SQLiteCpp/Exception.h>

#include "data/data_error.h"

namespace pelkor::data_detail {

// Why a SQLite call failed, in words a user can act on.
std::string SqliteReason(const SQLite::Exception& error);

// Runs `body`; a SQLite failure inside it becomes error 5 saying what failed and why.
template <typename Body>
auto WithSqlErrors(const std::string& action, Body&& body) -> decltype(body()) {
  try {
    return body();
  } catch (const SQLite::Exception& error) {
    RaiseActionError(action, SqliteReason(error));
  }
}

}  // namespace pelkor::data_detail
