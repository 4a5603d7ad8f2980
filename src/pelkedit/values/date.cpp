#include "values/date.h"

#include <cstdio>

namespace pelkedit {
namespace {

// Days from 1970-01-01 to a civil date and back (Howard Hinnant's algorithms).
constexpr std::int64_t DaysFromCivil(std::int64_t y, unsigned m, unsigned d) {
  y -= m <= 2;
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const auto yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<std::int64_t>(doe) - 719468;
}

struct Civil {
  std::int64_t year;
  unsigned month;
  unsigned day;
};

Civil CivilFromDays(std::int64_t z) {
  z += 719468;
  const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
  const auto doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const std::int64_t y = static_cast<std::int64_t>(yoe) + era * 400;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  const unsigned d = doy - (153 * mp + 2) / 5 + 1;
  const unsigned m = mp < 10 ? mp + 3 : mp - 9;
  return {y + (m <= 2), m, d};
}

// Constant-initialised, so that dates built during other files' static initialisation are right.
constexpr std::int64_t kEpochDaysFrom1970 = DaysFromCivil(1900, 1, 1);

constexpr int kEarliestYear = 100;
constexpr int kLatestYear = 9999;
constexpr std::int64_t kEarliestSeconds =
    (DaysFromCivil(kEarliestYear, 1, 1) - kEpochDaysFrom1970) * Date::kSecondsPerDay;
constexpr std::int64_t kLatestSeconds =
    (DaysFromCivil(kLatestYear, 12, 31) - kEpochDaysFrom1970 + 1) * Date::kSecondsPerDay - 1;

std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
  const std::int64_t q = a / b;
  return (a % b != 0 && ((a < 0) != (b < 0))) ? q - 1 : q;
}

Civil CivilOf(std::int64_t seconds) {
  return CivilFromDays(FloorDiv(seconds, Date::kSecondsPerDay) + kEpochDaysFrom1970);
}

}  // namespace

bool IsValidCivil(int year, int month, int day) {
  if (month < 1 || month > 12 || day < 1) return false;
  const auto y = static_cast<std::int64_t>(year);
  const auto days = DaysFromCivil(y, static_cast<unsigned>(month), static_cast<unsigned>(day));
  const Civil back = CivilFromDays(days);
  return back.year == y && back.month == static_cast<unsigned>(month) &&
         back.day == static_cast<unsigned>(day);
}

bool Date::IsRepresentable(std::int64_t seconds) {
  return seconds >= kEarliestSeconds && seconds <= kLatestSeconds;
}
Date Date::Earliest() {
  return Date(kEarliestSeconds);
}
Date Date::Latest() {
  return Date(kLatestSeconds - kLatestSeconds % kSecondsPerDay);
}

Date Date::FromDayNumber(std::int32_t day) {
  return Date(std::int64_t{day} * kSecondsPerDay);
}

Date Date::FromCivil(int year, int month, int day, int hour, int minute, int second) {
  const std::int64_t days =
      DaysFromCivil(year, static_cast<unsigned>(month), static_cast<unsigned>(day)) -
      kEpochDaysFrom1970;
  return Date(days * kSecondsPerDay + hour * 3600 + minute * 60 + second);
}

std::optional<Date> Date::Parse(const std::string& text) {
  int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0;
  char tail = 0;
  if (text.size() == 10) {
    if (std::sscanf(text.c_str(), "%4d-%2d-%2d%c", &y, &mo, &d, &tail) != 3) return std::nullopt;
  } else if (text.size() == 19) {
    if (std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d%c", &y, &mo, &d, &h, &mi, &s, &tail) !=
        6)
      return std::nullopt;
  } else {
    return std::nullopt;
  }
  if (!IsValidCivil(y, mo, d) || h > 23 || mi > 59 || s > 59 || h < 0 || mi < 0 || s < 0)
    return std::nullopt;
  return FromCivil(y, mo, d, h, mi, s);
}

std::int32_t Date::DayNumber() const {
  return static_cast<std::int32_t>(FloorDiv(seconds_, kSecondsPerDay));
}

int Date::Year() const {
  return static_cast<int>(CivilOf(seconds_).year);
}
int Date::Month() const {
  return static_cast<int>(CivilOf(seconds_).month);
}
int Date::Day() const {
  return static_cast<int>(CivilOf(seconds_).day);
}
int Date::SecondOfDay() const {
  return static_cast<int>(seconds_ - FloorDiv(seconds_, kSecondsPerDay) * kSecondsPerDay);
}

namespace {
// The number with leading zeros to at least `width` digits (a minus sign first).
std::string Padded(long long value, std::size_t width) {
  std::string digits = std::to_string(value < 0 ? -value : value);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return value < 0 ? "-" + digits : digits;
}
}  // namespace

std::string Date::ToIso() const {
  const Civil c = CivilOf(seconds_);
  std::string text = Padded(c.year, 4) + "-" + Padded(c.month, 2) + "-" + Padded(c.day, 2);
  const int sod = SecondOfDay();
  if (sod == 0) return text;
  return text + "T" + Padded(sod / 3600, 2) + ":" + Padded(sod / 60 % 60, 2) + ":" +
         Padded(sod % 60, 2);
}

}  // namespace pelkedit
