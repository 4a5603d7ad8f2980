#include "data_test_support.h"

#include <cstdlib>

#include "record/ibo_properties.h"

namespace pelkor::testing {

TempFolder::TempFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "pelk_data_XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) {
    throw std::runtime_error("cannot create a temporary folder");
  }
  path_ = pattern;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

pelkedit::Blob MakeIbo(std::int32_t id, const std::string& company) {
  const auto record = CreateIboProperties();
  record->Set("IboId", id);
  record->Set("IboNumber", id + 1);
  record->Set("ContactCompany", company);
  return record->GetIboData();
}

std::string CompanyOf(const pelkedit::Blob& data) {
  const auto record = CreateIboProperties();
  record->SetIboData(data);
  return record->Get("ContactCompany").AsString();
}

}  // namespace pelkor::testing
