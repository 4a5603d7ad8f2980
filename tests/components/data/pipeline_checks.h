#pragma once

#include "team_editing.h"

namespace pelkor::testing {

// New deals, then a pipeline over them: searches ignore case and accents and take their
// wildcards literally, filters combine, every summary column sorts both ways, and pages
// neither repeat nor skip a deal.
void ExpectPipelineFindsSortsAndPages(const Connect& connect);

// The forecast sums the open deals expected before today (overdue) and in the twelve months
// from today's, by month and matrix cell, everybody's or one owner's; deals with no date, a later
// one or another status are left out, and a day that is not a date is refused.
void ExpectForecastSumsTheMonthsShown(const Connect& connect);

// The contact book searched by the database: every word, case and accents ignored, by last and
// first name, a page at a time with the count of all matches.
void ExpectContactSearch(const Connect& connect);

// Eight processes, each with its own connection, create deals at once: every id and every IBO
// number is different.
void ExpectEightCreatorsGetUniqueNumbers(const Connect& connect);

// Archive and restore move a deal whole between the tables, and refuse (moving nothing) one
// saved by someone since it was read; only the archive's deals can be deleted.
void ExpectArchiveNeverOverridesASave(const Connect& connect);

// Each save keeps the version it replaces (the latest 50), with when and by whom; a refused
// save keeps nothing.
void ExpectSavesKeepTheVersionsTheyReplace(const Connect& connect);

}  // namespace pelkor::testing
