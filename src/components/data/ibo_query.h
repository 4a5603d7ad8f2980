#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "values/date.h"

namespace pelkor {

enum class IboTable;

// What a pipeline shows of one IBO, kept beside its record and written with it.
struct IboSummary {
  std::int32_t id = 0;
  bool archived = false;
  std::int32_t iboNumber = 0;
  std::string company;
  std::int32_t status = 0;
  bool expert = false;
  std::string firstName;
  std::string lastName;
  std::int32_t priority = 0;
  std::int32_t advisorPriority = 0;
  std::int32_t wih = 0;
  std::int32_t wwgi = 0;
  std::string wwihDate;   // YYYY-MM-DD, "" when none
  std::string closeDate;  // YYYY-MM-DD, "" when none
  std::int32_t result = 0;
  double position = 0;
  std::int64_t value = 0;  // ten-thousandths, as the product list's total
  std::string owner;
  std::string savedAt;  // "YYYY-MM-DD HH:MM:SS" UTC
  std::string savedBy;
  std::int64_t version = 0;
};

// The columns a pipeline can sort by, named as the command line and exports name them.
enum class SummaryColumn {
  kId,
  kNumber,
  kCompany,
  kContact,
  kStatus,
  kMode,
  kPriority,
  kAdvisorPriority,
  kWih,
  kWwgi,
  kWwihDate,
  kCloseDate,
  kResult,
  kPosition,
  kValue,
  kOwner,
  kSavedAt,
  kSavedBy,
};

// Every column, in display order.
const std::vector<SummaryColumn>& SummaryColumns();
const char* SummaryColumnName(SummaryColumn column);
std::optional<SummaryColumn> SummaryColumnNamed(const std::string& name);

// One page of a pipeline: which table, which deals, in which order, and how many.
struct IboQuery {
  IboTable table{};
  // Matched against number, company and contact, ignoring case and accents.
  std::string search;
  // EditIBOStatusEnum codes; empty for every status.
  std::vector<std::int32_t> statuses;
  // Only the deals this person created; empty for everybody's.
  std::string owner;
  SummaryColumn sort = SummaryColumn::kId;
  bool descending = false;
  std::int64_t offset = 0;
  std::int64_t limit = 100;
  // Whether the page's total counts every match, a cost that grows with them. A caller that
  // wants only the first rows (the matrix) leaves it out: its total stops at a few thousand.
  bool countAll = true;
};

struct IboPage {
  std::vector<IboSummary> rows;
  // Rows matching the query, over every page; without countAll, at most a few thousand.
  std::int64_t total = 0;
};

// What a new deal starts with.
struct NewIbo {
  std::string company;
  std::string firstName;
  std::string lastName;
  bool expert = false;
  std::optional<pelkedit::Date> wwihDate;
};

struct CreatedIbo {
  std::int32_t id = 0;
  std::int32_t number = 0;
};

// The months a forecast covers: today's and the ones after it, overdue deals aside.
constexpr int kForecastMonths = 12;

// The open deals' value by the month they are expected to happen and by their matrix cell.
struct ForecastBucket {
  std::string month;  // "YYYY-MM"; "overdue" for a date before today
  std::int32_t wih = 0;
  std::int32_t wwgi = 0;
  std::int64_t value = 0;  // ten-thousandths
  std::int64_t deals = 0;
};

// A page of the contact book matching a search.
struct ContactQuery {
  std::string search;
  std::int64_t offset = 0;
  std::int64_t limit = 100;
};

// The text the search columns hold and searches are compared with: lower case, accents taken
// off Latin letters, so that "Müller" is found by "muller" and "MÜLLER".
std::string FoldForSearch(const std::string& text);

// Who is working: $PELKOR_USER, else the login name.
std::string CurrentUserName();

}  // namespace pelkor
