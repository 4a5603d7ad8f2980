#pragma once

#include <string>

#include <SQLiteCpp/Exception.h>

namespace pelkor::data_detail {

// How messages name a database: its file in quotes, or "the in-memory database".
std::string DescribeLocation(const std::string& path);

// Error 5 from the data component with this description.
[[noreturn]] void RaiseDataError(const std::string& description);

// Error 5 saying what failed ("Cannot read IBO 7 from ...") and why, in words a user can act on.
[[noreturn]] void RaiseSqlError(const std::string& action, const SQLite::Exception& error);

// Runs `body`; a SQLite failure inside it becomes the error of RaiseSqlError for `action`.
template <typename Body>
auto WithSqlErrors(const std::string& action, Body&& body) -> decltype(body()) {
  try {
    return body();
  } catch (const SQLite::Exception& error) {
    RaiseSqlError(action, error);
  }
}

}  // namespace pelkor::data_detail
