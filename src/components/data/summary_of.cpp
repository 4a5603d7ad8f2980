#include <chrono>
#include <cstdio>

#include "advisor/sales_cycle.h"
#include "data/ibo_row.h"
#include "products/product_text.h"
#include "values/currency.h"

namespace pelkor::data_detail {
namespace {

using pelkedit::Date;

// The record's placeholder for a date not given (1904-01-01) and anything before it.
const Date kLastNoDate = Date::FromCivil(1904, 1, 1);

std::string DateText(const Date& date) {
  if (date <= kLastNoDate) return "";
  return date.ToIso().substr(0, std::string("YYYY-MM-DD").size());
}

// The total the product list gives; a list that cannot be read counts with the total the
// editor last stored beside it.
std::int64_t ValueOf(pelkedit::IRecord& record) {
  try {
    return ReadProductText(record.Get("Products").AsString()).Total().Scaled();
  } catch (const std::exception&) {
    constexpr std::int64_t kPerHundredth = pelkedit::Currency::kScale / 100;
    const auto units = static_cast<std::int64_t>(record.Get("TotalValueUnits").AsDouble());
    const auto hundredths =
        static_cast<std::int64_t>(record.Get("TotalValueHundredths").AsDouble());
    return units * pelkedit::Currency::kScale + hundredths * kPerHundredth;
  }
}

std::tm UtcNow() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm utc{};
  ::gmtime_r(&now, &utc);
  return utc;
}

}  // namespace

pelkedit::Date TodayUtc() {
  const std::tm utc = UtcNow();
  return Date::FromCivil(utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday);
}

std::string SaveStamp() {
  const std::tm utc = UtcNow();
  char text[sizeof "YYYY-MM-DD HH:MM:SS"];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &utc);
  return text;
}

IboSummary SummaryOf(pelkedit::IRecord& record) {
  IboSummary s;
  s.id = record.Get("IboId").AsLong();
  s.iboNumber = record.Get("IboNumber").AsLong();
  s.company = record.Get("ContactCompany").AsString();
  s.status = record.Get("Status").AsLong();
  s.expert = record.Get("ExpertMode").AsBool();
  s.firstName = record.Get("ContactFirstName").AsString();
  s.lastName = record.Get("ContactLastName").AsString();
  s.priority = record.Get("UserPriority").AsLong();
  s.advisorPriority = record.Get("AdvisorPriority").AsLong();
  s.wih = record.Get("WIH").AsLong();
  s.wwgi = record.Get("WWGI").AsLong();
  const Date wwih = record.Get("WwihDate").AsDate();
  const Date closed = record.Get("CloseDate").AsDate();
  s.wwihDate = DateText(wwih);
  s.closeDate = DateText(closed);
  s.result = record.Get("CloseResult").AsLong();
  // Where the deal stood in its cycle when it was saved.
  s.position =
      PlaceInCycle(s.status, record.Get("StartDate").AsDate(), wwih, closed, TodayUtc()).position;
  s.value = ValueOf(record);
  return s;
}

}  // namespace pelkor::data_detail
