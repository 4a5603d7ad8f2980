#pragma once

#include <string>

#include "control/editor_events.h"
#include "values/date.h"

namespace pelkor {

// Where a deal stands in its sales cycle, from its dates and status as of today.
struct CyclePlace {
  // Part of the cycle from the start date to the expected date that has passed: 0 at the start;
  // above 1 once the expected date has passed; 1 for a won deal; for a lost or cancelled one,
  // the part that had passed when it closed (at most 1).
  double position = 0;
  // Whether the expected date lies after the start date (a cycle has a length at all).
  bool dated = false;
  // Open and past the expected date.
  bool late = false;
  // Days from the start to today (or to the close), and from today to the expected date.
  int daysPassed = 0;
  int daysLeft = 0;
  std::string line1;
  std::string line2;
};

// `status` is an EditIBOStatusEnum code.
CyclePlace PlaceInCycle(int status, pelkedit::Date start, pelkedit::Date expected,
                        pelkedit::Date closed, pelkedit::Date today);

}  // namespace pelkor
