#pragma once

#include <memory>
#include <string>
#include <vector>

#include "contracts/record.h"
#include "platform/object_factory.h"
#include "values/variant.h"

namespace pelkor {

// Source of every error the record object and its storage form raise.
inline constexpr const char* kRecordSource = "PelkComn.IboProperties";

// The display text of an EditIBOStatusEnum code ("Open", "Won", ...); "Unknown" for any other.
std::string StatusTextOf(std::int32_t status);

// One property of the record as callers reach it by name. Indexed properties hold one value
// per trial-close slot (0..9) and are reached through GetAt/SetAt; read-only properties are
// derived from others and refuse writes.
struct PropertyInfo {
  std::string name;
  pelkedit::VariantType type;
  bool indexed;
  bool readOnly;
};

// Every property of the record, stored ones first in storage order, then the derived ones:
//   DmEconImportantKnown, DmTechImportantKnown, DmUserImportantKnown
//                     True when the matching Dm...Important text is not empty.
//   CompetitorsKnown  True when Competitors is not empty.
//   TrialCloseFact    How many enacted trial closes the ring keeps: the slots from
//                     TrialCloseFirst up to, not including, TrialCloseCurrent, wrapping from
//                     9 to 0; 0 (no history) to 9 (full ring).
// The ring indexes TrialCloseFirst and TrialCloseCurrent only take 0..9 (error 380 otherwise),
// so the history walk always ends.
const std::vector<PropertyInfo>& RecordSchema();

// A new record with the defaults of a fresh opportunity: open, not expert, medium answers,
// unanswered scales (-1), priorities 3, dates 1904-01-01 ("no date"), empty texts.
std::shared_ptr<pelkedit::IRecord> CreateIboProperties();

// The size helper: GetPhysicalSize is the byte count of a storage form, as a Long.
std::shared_ptr<pelkedit::ISizeHelper> CreateIboSizeCalculator();

// Registers the record object and the size helper under their programmatic identifiers.
void RegisterRecordComponents(pelkedit::ObjectFactory& factory);

}  // namespace pelkor
