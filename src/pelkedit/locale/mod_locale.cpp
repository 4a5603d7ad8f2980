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

}  // namespace pelkedit
