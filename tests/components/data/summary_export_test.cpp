// Exports as spreadsheets and scripts read them.
#include "data/summary_export.h"

#include <gtest/gtest.h>

#include <sstream>

#include <nlohmann/json.hpp>

namespace pelkor {
namespace {

IboSummary Deal(const std::string& company, std::int64_t value) {
  IboSummary deal;
  deal.id = 7;
  deal.iboNumber = 1007;
  deal.company = company;
  deal.firstName = "Ada";
  deal.status = 3;
  deal.value = value;
  deal.position = 0.5;
  return deal;
}

std::vector<std::string> Fields(const std::string& csvLine) {
  std::vector<std::string> fields;
  std::istringstream in(csvLine);
  for (std::string field; std::getline(in, field, ',');) fields.push_back(field);
  return fields;
}

TEST(SummaryExport, CsvQuotesDisarmsFormulasAndKeepsNumbersNumbers) {
  std::ostringstream out;
  CsvWriter csv(out);
  csv.Header();
  csv.Row(Deal("=cmd|' /C calc'!A0", -12345678));
  csv.Row(Deal("Smith, \"Jones\" & Co\r\nLtd", 50000));
  csv.Row(Deal("@risk", 0));
  const std::string text = out.str();
  ASSERT_EQ(text.rfind("\xEF\xBB\xBFid,number,company,contact,status,", 0), 0u);
  std::vector<std::string> lines;
  for (std::size_t at = 0, end; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2) {
    lines.push_back(text.substr(at, end - at));
  }
  // Every row ends CRLF; the one inside the quoted company splits it here, as it would not for a
  // CSV reader.
  ASSERT_EQ(lines.size(), 5u);
  EXPECT_EQ(Fields(lines[1])[2], "'=cmd|' /C calc'!A0");
  // A negative amount is a number, not a formula.
  EXPECT_EQ(Fields(lines[1])[14], "-1234.5678");
  EXPECT_EQ(Fields(lines[1])[4], "Lost");
  EXPECT_EQ(Fields(lines[1])[3], "Ada");
  EXPECT_EQ(lines[2], "7,1007,\"Smith, \"\"Jones\"\" & Co");
  EXPECT_EQ(lines[3].substr(0, 8), "Ltd\",Ada");
  EXPECT_EQ(Fields(lines[4])[2], "'@risk");
  EXPECT_EQ(Fields(lines[4])[14], "0.00");
  EXPECT_EQ(MoneyText(50000), "5.00");
  EXPECT_EQ(MoneyText(55000), "5.50");
}

TEST(SummaryExport, JsonIsAnArrayOfRowsKeyedByColumn) {
  std::ostringstream out;
  {
    JsonWriter json(out);
    json.Row(Deal("Acme \"quoted\"", 729800000));
    json.Row(Deal("Ümlaut", 1));
  }
  const auto parsed = nlohmann::json::parse(out.str());
  ASSERT_EQ(parsed.size(), 2u);
  EXPECT_EQ(parsed[0]["company"], "Acme \"quoted\"");
  EXPECT_EQ(parsed[0]["value"], 72980.0);
  EXPECT_EQ(parsed[0]["status"], "Lost");
  EXPECT_EQ(parsed[1]["value"], 0.0001);
  EXPECT_EQ(parsed[1]["company"], "Ümlaut");
  std::ostringstream empty;
  { JsonWriter none(empty); }
  EXPECT_EQ(nlohmann::json::parse(empty.str()), nlohmann::json::array());
}

}  // namespace
}  // namespace pelkor
