#pragma once

#include <cstdint>
#include <vector>

#include "data/ibo_store.h"

namespace pelkor::demo {

// Scale codes are positions in their answer scale; -1 is "not answered".
inline constexpr std::int32_t kUnanswered = -1;

inline constexpr std::int32_t kStatusOpen = 1;
inline constexpr std::int32_t kStatusWon = 2;
inline constexpr std::int32_t kStatusLost = 3;
inline constexpr std::int32_t kStatusCancelled = 4;

inline constexpr std::int32_t kResultNone = 0;
inline constexpr std::int32_t kResultWon = 1;
inline constexpr std::int32_t kResultLost = 2;

// An empty name means the decision maker is not known yet.
struct DecisionMaker {
  const char* name = "";
  std::int32_t influence = kUnanswered;
  const char* important = "";
  std::int32_t relationship = kUnanswered;
  std::int32_t proof = kUnanswered;
};

// A trial close; `enacted` is a date-time text, empty for the one still being worked on.
struct TrialClose {
  const char* enacted = "";
  const char* barriers = "";
  const char* strategy = "";
};

struct Contact {
  const char* first = "";
  const char* last = "";
  const char* company = "";
  const char* address = "";
  const char* phone = "";
  const char* email = "";
};

// One demonstration opportunity, in the words of the sales methodology. Dates are ISO texts;
// an empty `closed` means the opportunity has no close date.
struct Opportunity {
  IboTable table = IboTable::kMain;
  std::int32_t id = 0;
  std::int32_t status = kStatusOpen;
  bool expert = false;
  const char* started = "";
  const char* happens = "";
  const char* closed = "";
  std::int32_t wih = 1;
  std::int32_t wwgi = 1;
  std::int32_t userPriority = 3;
  std::int32_t advisorPriority = 3;
  std::int32_t levelNeed = kUnanswered;
  std::int32_t solutionMatch = kUnanswered;
  std::int32_t urgency = kUnanswered;
  std::int32_t budgetMatch = kUnanswered;
  std::int32_t funding = kUnanswered;
  std::int32_t familiarity = kUnanswered;
  std::int32_t compPressure = kUnanswered;
  DecisionMaker econ{};
  DecisionMaker tech{};
  DecisionMaker user{};
  const char* competitors = "";
  bool trialClose = false;
  bool decided = false;
  std::int32_t result = kResultNone;
  const char* reason = "";
  const char* winBidder = "";
  std::int32_t ringFirst = 0;
  std::vector<TrialClose> history{};
  TrialClose current{};
  Contact contact{};
  // The product view's text form (or the older tab-separated one); the total is its own.
  const char* products = "";
  const char* note = "";
};

// Open opportunities of the main table.
std::vector<Opportunity> OpenOpportunities();
// Won, lost and cancelled ones, including the archived one.
std::vector<Opportunity> ClosedOpportunities();

}  // namespace pelkor::demo
