#include "advisor/sales_cycle.h"

#include <algorithm>
#include <array>

#include "contracts/advisor.h"

namespace pelkor {
namespace {

const std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string DayText(pelkedit::Date date) {
  return std::to_string(date.Day()) + " " + kMonths.at(static_cast<std::size_t>(date.Month() - 1)) +
         " " + std::to_string(date.Year());
}

std::string Days(int count) {
  return std::to_string(count) + (count == 1 ? " day" : " days");
}

const char* PhaseOf(double position) {
  if (position < pelkedit::cycle::kProveStarts) return "Probe phase";
  if (position < pelkedit::cycle::kCloseStarts) return "Prove phase";
  return "Close phase";
}

bool Closed(int status) {
  return status == pelkedit::eEditStatusWon || status == pelkedit::eEditStatusLost ||
         status == pelkedit::eEditStatusCancelled;
}

// The record's "no date" (1904-01-01) and anything before the start give no close day.
bool RealClose(pelkedit::Date closed, pelkedit::Date start) {
  return closed >= start;
}

}  // namespace

CyclePlace PlaceInCycle(int status, pelkedit::Date start, pelkedit::Date expected,
                        pelkedit::Date closed, pelkedit::Date today) {
  CyclePlace place;
  const int startDay = start.DayNumber();
  const int expectedDay = expected.DayNumber();
  const pelkedit::Date until = Closed(status) && RealClose(closed, start) ? closed : today;
  const int untilDay = until.DayNumber();
  const int length = expectedDay - startDay;
  place.dated = length > 0;
  place.daysPassed = std::max(0, untilDay - startDay);
  place.daysLeft = expectedDay - untilDay;
  if (place.dated) place.position = std::max(0.0, double(untilDay - startDay) / length);
  if (status == pelkedit::eEditStatusWon) {
    place.position = 1;
    place.line1 = "Won";
  } else if (status == pelkedit::eEditStatusLost || status == pelkedit::eEditStatusCancelled) {
    place.position = std::min(place.position, 1.0);
    place.line1 = status == pelkedit::eEditStatusLost ? "Lost" : "Cancelled";
  }
  if (Closed(status)) {
    place.line2 = RealClose(closed, start)
                      ? "Closed " + DayText(closed) + ", after " + Days(place.daysPassed)
                      : "No close date recorded";
    return place;
  }
  place.late = place.dated && place.daysLeft < 0;
  place.line1 = PhaseOf(place.position);
  if (!place.dated) {
    place.line2 = "No expected date after the start yet";
  } else if (untilDay < startDay) {
    place.line2 = "Starts in " + Days(startDay - untilDay);
  } else if (place.late) {
    place.line2 = Days(-place.daysLeft) + " past the expected date";
  } else {
    place.line2 = "Day " + std::to_string(place.daysPassed) + " of " + std::to_string(length) +
                  ", " + Days(place.daysLeft) + " to go";
  }
  return place;
}

}  // namespace pelkor
