#pragma once

#include <string>

namespace pelkor::testing {

// An empty database of its own on the test cluster (whose socket folder the build names),
// dropped after the test. Raw() runs SQL on it directly, as an administrator would.
class ServerDatabase {
 public:
  ServerDatabase();
  ~ServerDatabase();
  ServerDatabase(const ServerDatabase&) = delete;
  ServerDatabase& operator=(const ServerDatabase&) = delete;

  // The URI the programs open it by.
  const std::string& Uri() const { return uri_; }
  // A URI on the same cluster with other parameters (a wrong user, a missing database, ...).
  static std::string UriFor(const std::string& database, const std::string& extra = "");
  void Raw(const std::string& sql) const;
  // The single value `sql` selects, as text.
  std::string Value(const std::string& sql) const;

 private:
  std::string name_;
  std::string uri_;
};

}  // namespace pelkor::testing
