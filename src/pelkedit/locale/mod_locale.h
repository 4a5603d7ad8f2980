#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "values/date.h"

namespace pelkedit {

class IPlatform;

// Date order codes of the user's short-date format.
inline constexpr std::int32_t kDateOrderMonthFirst = 0;
inline constexpr std::int32_t kDateOrderDayFirst = 1;
inline constexpr std::int32_t kDateOrderYearFirst = 2;

// The user's date order code from the platform's locale service; 0 when the service fails.
// A non-numeric answer raises a type mismatch in the caller.
std::int32_t GetUserDateOrder(IPlatform& platform);

// The order code that a short-date format such as "d/M/yyyy" implies: whichever of day,
// month and year it names first (either case); nullopt when it names none of them.
std::optional<std::int32_t> DateOrderFromFormat(const std::string& shortDateFormat);

// The date (no time of day) in a short-date format such as "M/d/yyyy", "dd.MM.yy" or
// "d MMM yyyy": d and dd the day, ddd and dddd its weekday's name, M and MM the month, MMM and
// MMMM its name, yy and yyyy the year; anything else is kept as it stands.
std::string FormatShortDate(const Date& date, const std::string& shortDateFormat);

// 1900-01-01 plus lDays days (negative values go back before 1900).
Date GetDateFromLong(std::int32_t lDays);
// Whole days from 1900-01-01 to the date.
std::int32_t DayNumberOf(const Date& date);

}  // namespace pelkedit
