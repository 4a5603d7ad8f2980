#include "tabs/environment/trial_close_history.h"

#include "contracts/names.h"
#include "contracts/record.h"
#include "locale/mod_locale.h"
#include "tabs/environment/close_rows.h"

namespace pelkedit {
namespace {

using close_page::kRingSlots;

constexpr const char* kLineBreak = "\r\n";

}  // namespace

std::string TrialCloseHistory(IRecord& rec, const std::string& shortDateFormat) {
  const std::int32_t first = rec.Get(prop::TrialCloseFirst).AsLong();
  if (first == rec.Get(prop::TrialCloseCurrent).AsLong()) return "Empty";
  std::string text;
  std::int32_t slot = first;
  // A ring never holds more entries than slots, whatever the record says.
  for (std::int32_t entry = 1;
       entry <= kRingSlots && slot != rec.Get(prop::TrialCloseCurrent).AsLong(); ++entry) {
    text += "Trial Close " + std::to_string(entry) + " @ " +
            FormatShortDate(rec.GetAt(prop::TrialCloseDate, slot).AsDate(), shortDateFormat) +
            kLineBreak;
    text += "Barriers:" + rec.GetAt(prop::CloseBarriers, slot).AsString() + kLineBreak;
    text += "Strategy:" + rec.GetAt(prop::CloseStrategy, slot).AsString() + kLineBreak + kLineBreak;
    slot = slot + 1 >= kRingSlots ? 0 : slot + 1;
  }
  return text;
}

}  // namespace pelkedit
