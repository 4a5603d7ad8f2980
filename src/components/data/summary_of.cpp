#include <chrono>
#include <cstdio>

#include "advisor/sales_cycle.h"
#include "contracts/names.h"
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
    return ReadProductText(record.Get(pelkedit::prop::Products).AsString()).Total().Scaled();
  } catch (const std::exception&) {
    constexpr std::int64_t kPerHundredth = pelkedit::Currency::kScale / 100;
    const auto units =
        static_cast<std::int64_t>(record.Get(pelkedit::prop::TotalValueUnits).AsDouble());
    const auto hundredths =
        static_cast<std::int64_t>(record.Get(pelkedit::prop::TotalValueHundredths).AsDouble());
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
  s.id = record.Get(pelkedit::prop::IboId).AsLong();
  s.iboNumber = record.Get(pelkedit::prop::IboNumber).AsLong();
  s.company = record.Get(pelkedit::prop::ContactCompany).AsString();
  s.status = record.Get(pelkedit::prop::Status).AsLong();
  s.expert = record.Get(pelkedit::prop::ExpertMode).AsBool();
  s.firstName = record.Get(pelkedit::prop::ContactFirstName).AsString();
  s.lastName = record.Get(pelkedit::prop::ContactLastName).AsString();
  s.priority = record.Get(pelkedit::prop::UserPriority).AsLong();
  s.advisorPriority = record.Get(pelkedit::prop::AdvisorPriority).AsLong();
  s.wih = record.Get(pelkedit::prop::WIH).AsLong();
  s.wwgi = record.Get(pelkedit::prop::WWGI).AsLong();
  const Date wwih = record.Get(pelkedit::prop::WwihDate).AsDate();
  const Date closed = record.Get(pelkedit::prop::CloseDate).AsDate();
  s.wwihDate = DateText(wwih);
  s.closeDate = DateText(closed);
  s.result = record.Get(pelkedit::prop::CloseResult).AsLong();
  // Where the deal stood in its cycle when it was saved.
  s.position = PlaceInCycle(s.status, record.Get(pelkedit::prop::StartDate).AsDate(), wwih, closed,
                            TodayUtc())
                   .position;
  s.value = ValueOf(record);
  return s;
}

}  // namespace pelkor::data_detail
