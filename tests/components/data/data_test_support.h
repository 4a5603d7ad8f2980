#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "contracts/record.h"
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
