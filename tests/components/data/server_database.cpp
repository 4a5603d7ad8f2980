#include "server_database.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cctype>
#include <pqxx/pqxx>

namespace pelkor::testing {
namespace {

// The administrator's own database, from which the test databases are made and dropped.
constexpr const char* kAdminDatabase = "postgres";

void Administer(const std::string& sql) {
  pqxx::connection admin(ServerDatabase::UriFor(kAdminDatabase));
  pqxx::nontransaction work(admin);
  work.exec(sql);
}

// "pelk_" and the test's name in lower case, with the process id: unique among tests that run
// at the same time.
std::string NameForThisTest() {
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  std::string name = "pelk_";
  for (const char c : std::string(test->test_suite_name()) + "_" + test->name()) {
    name += std::isalnum(static_cast<unsigned char>(c)) ? static_cast<char>(std::tolower(c)) : '_';
  }
  return name.substr(0, 40) + "_" + std::to_string(getpid());
}

}  // namespace

std::string ServerDatabase::UriFor(const std::string& database, const std::string& extra) {
  return std::string("postgresql:///") + database + "?host=" + PELK_TEST_PG_HOST + "&user=pelkor" +
         extra;
}

ServerDatabase::ServerDatabase() : name_(NameForThisTest()), uri_(UriFor(name_)) {
  Administer("DROP DATABASE IF EXISTS " + name_ + " WITH (FORCE)");
  Administer("CREATE DATABASE " + name_);
}

ServerDatabase::~ServerDatabase() {
  try {
    Administer("DROP DATABASE IF EXISTS " + name_ + " WITH (FORCE)");
  } catch (const std::exception& error) {
    ADD_FAILURE() << "cannot drop " << name_ << ": " << error.what();
  }
}

void ServerDatabase::Raw(const std::string& sql) const {
  pqxx::connection connection(uri_);
  pqxx::work work(connection);
  work.exec(sql);
  work.commit();
}

std::string ServerDatabase::Value(const std::string& sql) const {
  pqxx::connection connection(uri_);
  pqxx::read_transaction work(connection);
  return work.exec1(sql)[0].as<std::string>();
}

}  // namespace pelkor::testing
