#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "contracts/record.h"
#include "data/ibo_store.h"
#include "values/error.h"

namespace pelkor::testing {

// A private folder for database files, removed after the test.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

// A record in storage form with this id and company.
pelkedit::Blob MakeIbo(std::int32_t id, const std::string& company);
// The company a stored record names.
std::string CompanyOf(const pelkedit::Blob& data);

// The columns later versions added to the IBO tables, which a first-version database lacks.
inline constexpr const char* kColumnsAfterTheFirstVersion[] = {
    "version", "first_name", "last_name",  "priority", "advisor_priority", "wih",
    "wwgi",    "wwih_date",  "close_date", "result",   "position",         "value",
    "search",  "owner",      "saved_at",   "saved_by"};

// The demo's summaries as a pipeline reads them: found by a search in any case, with the values
// of their records, sorted by value, and the archive apart.
void ExpectSummariesOfTheDemo(IIboStore& store);

// Runs `body` and returns the PelkError it raises; fails the test when it raises none.
template <typename Body>
pelkedit::PelkError ErrorOf(Body&& body) {
  try {
    body();
  } catch (const pelkedit::PelkError& error) {
    return error;
  }
  ADD_FAILURE() << "no PelkError was raised";
  return pelkedit::PelkError(0, "", "");
}

}  // namespace pelkor::testing
