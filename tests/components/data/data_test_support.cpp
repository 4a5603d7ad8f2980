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

void ExpectSummariesOfTheDemo(IIboStore& store) {
  IboQuery query;
  query.table = IboTable::kMain;
  query.search = "HARBOR  whitfield";
  const IboPage found = store.QueryIbos(query);
  ASSERT_EQ(found.total, 1);
  ASSERT_EQ(found.rows.size(), 1u);
  const IboSummary& harbor = found.rows[0];
  EXPECT_EQ(harbor.id, 1001);
  EXPECT_EQ(harbor.company, "Harbor Freight Logistics");
  EXPECT_EQ(harbor.firstName + " " + harbor.lastName, "Dana Whitfield");
  EXPECT_TRUE(harbor.expert);
  EXPECT_EQ(harbor.status, 1);
  EXPECT_EQ(harbor.wih, 2);
  EXPECT_EQ(harbor.wwgi, 1);
  EXPECT_EQ(harbor.priority, 2);
  EXPECT_EQ(harbor.wwihDate, "2026-09-30");
  EXPECT_EQ(harbor.closeDate, "");
  // 120 x 349 + 120 x 180 + 9,500, in ten-thousandths.
  EXPECT_EQ(harbor.value, 729800000);

  query.search = "";
  query.sort = SummaryColumn::kValue;
  query.descending = true;
  const IboPage byValue = store.QueryIbos(query);
  EXPECT_EQ(byValue.total, 8);
  for (std::size_t i = 1; i < byValue.rows.size(); ++i) {
    EXPECT_GE(byValue.rows[i - 1].value, byValue.rows[i].value);
  }
  query.table = IboTable::kArchive;
  const IboPage archive = store.QueryIbos(query);
  ASSERT_EQ(archive.total, 1);
  EXPECT_TRUE(archive.rows.at(0).archived);
  EXPECT_EQ(archive.rows.at(0).company, "Old Mill Hardware");
}

}  // namespace pelkor::testing
