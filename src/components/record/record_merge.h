#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contracts/record.h"

namespace pelkor {

// One answer both people changed, differently, since the version the user opened.
struct MergeConflict {
  std::string property;
  std::optional<std::int32_t> slot;  // a trial-close slot of an indexed property
};

struct MergedRecord {
  std::shared_ptr<pelkedit::IRecord> record;
  std::vector<MergeConflict> conflicts;
};

// A three-way merge: the stored record (`theirs`) with the user's changes (`mine`, against
// `base`, the version the user opened) applied wherever the other person did not change the
// same answer. Where both changed it, the stored answer stands until TakeMine. The product
// list's total follows the list. The editor's own bookkeeping (dirty flags, the modified date,
// the advisor's results) is left as stored: the editor writes it again.
MergedRecord MergeRecords(pelkedit::IRecord& base, pelkedit::IRecord& mine,
                          pelkedit::IRecord& theirs);

// Takes the user's answer for one conflict into the merged record.
void TakeMine(pelkedit::IRecord& merged, pelkedit::IRecord& mine, const MergeConflict& conflict);

}  // namespace pelkor
