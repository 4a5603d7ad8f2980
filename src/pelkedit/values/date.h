#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

namespace pelkedit {

// A calendar date with a time of day, kept as whole seconds since 1900-01-01 00:00:00.
// Day numbers count whole days from 1900-01-01 (day 0); the proleptic Gregorian calendar
// gives 1900 no 29 February, as the date widgets expect.
class Date {
 public:
  static constexpr std::int64_t kSecondsPerDay = 86400;

  constexpr Date() = default;
  static Date FromDayNumber(std::int32_t day);
  static Date FromCivil(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
  // "YYYY-MM-DD" or "YYYY-MM-DDTHH:MM:SS"; nullopt when malformed or impossible.
  static std::optional<Date> Parse(const std::string& text);

  // Whole days from 1900-01-01 to this date (the time of day is dropped).
  std::int32_t DayNumber() const;
  std::int64_t SecondsSinceEpoch() const { return seconds_; }
  static Date FromSeconds(std::int64_t seconds) { return Date(seconds); }
  // Whether a count of seconds names a date from 0100-01-01 to 9999-12-31, the dates the
  // editor's arithmetic and its day numbers can hold.
  static bool IsRepresentable(std::int64_t seconds);
  static Date Earliest();
  static Date Latest();

  int Year() const;
  int Month() const;
  int Day() const;
  int SecondOfDay() const;
  bool HasTime() const { return SecondOfDay() != 0; }

  // "YYYY-MM-DD", with "THH:MM:SS" when the time is not midnight.
  std::string ToIso() const;

  friend constexpr auto operator<=>(const Date&, const Date&) = default;

 private:
  explicit constexpr Date(std::int64_t seconds) : seconds_(seconds) {}
  std::int64_t seconds_ = 0;
};

// Whether a year/month/day names a real day.
bool IsValidCivil(int year, int month, int day);

}  // namespace pelkedit
