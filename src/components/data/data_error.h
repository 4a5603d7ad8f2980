#pragma once

#include <string>

namespace pelkor::data_detail {

// Name that opens a private in-memory SQLite database.
inline constexpr const char* kMemoryPath = ":memory:";

// The scheme ("postgresql://") of a server URI, or "" for a SQLite file path.
std::string SchemeOf(const std::string& name);

// How messages name a database: its file or its server address (without any password) in
// quotes, or "the in-memory database".
std::string DescribeLocation(const std::string& name);

// Error 5 from the data component with this description.
[[noreturn]] void RaiseDataError(const std::string& description);

// Error 5 for `action` ("Cannot read IBO 7 from ...") and why, in words a user can act on.
[[noreturn]] void RaiseActionError(const std::string& action, const std::string& reason);

// Error 5 refusing to open (`refusal`) a database that holds no IBOs yet where only an existing
// one may be opened: nothing is created in it, on either backend.
[[noreturn]] void RaiseEmptyDatabase(const std::string& refusal);

}  // namespace pelkor::data_detail
