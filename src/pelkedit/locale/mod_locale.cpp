#include "locale/mod_locale.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>

#include "platform/platform.h"
#include "values/error.h"

namespace pelkedit {
namespace {

constexpr std::size_t kLocaleBufferChars = 255;

// The classic runtime's conversion of a text to a number, as the caller's assignment does it.
std::int32_t TextToLong(const std::string& text) {
  const char* begin = text.c_str();
  while (*begin == ' ') ++begin;
  char* end = nullptr;
  errno = 0;
  const double value = std::strtod(begin, &end);
  while (end != nullptr && *end == ' ') ++end;
  if (end == begin || end == nullptr || *end != '\0' || errno != 0 || std::isnan(value) ||
      std::abs(value) > 2147483647.0) {
    Raise(errnum::kTypeMismatch, "PelkEdit.modLocale::GetUserDateOrder");
  }
  return static_cast<std::int32_t>(std::nearbyint(value));
}

}  // namespace

std::int32_t GetUserDateOrder(IPlatform& platform) {
  std::string buffer(kLocaleBufferChars, ' ');
  // Half of the buffer's length, rounded half to even: 127.5 gives 128.
  const auto size = static_cast<std::int32_t>(std::nearbyint(kLocaleBufferChars / 2.0));
  const std::int32_t written =
      platform.GetLocaleInfoA(kLocaleUserDefault, kLocaleIDate, buffer, size);
  if (written == 0) return 0;
  const auto count = static_cast<std::size_t>(written > 0 ? written - 1 : 0);
  return TextToLong(buffer.substr(0, count));
}

std::optional<std::int32_t> DateOrderFromFormat(const std::string& shortDateFormat) {
  for (const char c : shortDateFormat) {
    switch (c) {
      case 'M':
      case 'm':
        return kDateOrderMonthFirst;
      case 'd':
      case 'D':
        return kDateOrderDayFirst;
      case 'y':
      case 'Y':
        return kDateOrderYearFirst;
      default:
        break;
    }
  }
  return std::nullopt;
}

Date GetDateFromLong(std::int32_t lDays) {
  return Date::FromDayNumber(lDays);
}

std::int32_t DayNumberOf(const Date& date) {
  return date.DayNumber();
}

namespace {

constexpr int kTwoDigitYears = 100;
constexpr std::size_t kShortName = 3;
const char* const kMonthNames[] = {"January",   "February", "March",    "April",
                                   "May",       "June",     "July",     "August",
                                   "September", "October",  "November", "December"};
const char* const kDayNames[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                 "Thursday", "Friday", "Saturday"};
constexpr int kDaysPerWeek = 7;
// 1900-01-01 was a Monday.
constexpr int kWeekdayOfDayZero = 1;

// A name in full (four letters or more of the pattern) or by its first three letters.
std::string Name(const char* name, std::size_t run) {
  return run >= 4 ? std::string(name) : std::string(name).substr(0, kShortName);
}

std::string Digits(int value, std::size_t width) {
  std::string text = std::to_string(value);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

}  // namespace

std::string FormatShortDate(const Date& date, const std::string& format) {
  std::string text;
  for (std::size_t i = 0; i < format.size();) {
    const char c = format[i];
    std::size_t run = 1;
    while (i + run < format.size() && format[i + run] == c) ++run;
    if (c == 'd' && run >= kShortName) {
      const int weekday =
          ((DayNumberOf(date) + kWeekdayOfDayZero) % kDaysPerWeek + kDaysPerWeek) % kDaysPerWeek;
      text += Name(kDayNames[weekday], run);
    } else if (c == 'd') {
      text += Digits(date.Day(), run >= 2 ? 2 : 1);
    } else if (c == 'M' && run >= kShortName) {
      text += Name(kMonthNames[date.Month() - 1], run);
    } else if (c == 'M') {
      text += Digits(date.Month(), run >= 2 ? 2 : 1);
    } else if (c == 'y') {
      text += run >= 4 ? Digits(date.Year(), 4) : Digits(date.Year() % kTwoDigitYears, 2);
    } else {
      text.append(run, c);
    }
    i += run;
  }
  return text;
}

}  // namespace pelkedit
