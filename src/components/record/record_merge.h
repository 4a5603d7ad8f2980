#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contracts/record.h"

namespace pelkor {

// One stored value of a record: a property, or one trial-close slot of an indexed property.
struct RecordValue {
  std::string property;
  std::optional<std::int32_t> slot;
};
// One answer both people changed, differently, since the version the user opened.
using MergeConflict = RecordValue;

// Whether the editor writes the property by itself (the save bookkeeping, and the advisor's
// results, which follow from the answers): comparisons and merges leave it out.
bool IsEditorBookkeeping(const std::string& property);

// Calls `each` for every value a person answers or types (not the derived properties nor the
// editor's bookkeeping), in the record's order, each trial-close slot of the indexed ones.
void ForEachAnswer(const std::function<void(const RecordValue&)>& each);

pelkedit::Variant ValueOf(pelkedit::IRecord& record, const RecordValue& at);

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
