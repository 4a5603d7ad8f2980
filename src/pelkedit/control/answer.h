#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "values/variant.h"

namespace pelkedit {

class EditorContext;

// One question the user answers with a list or an option group: the procedure that commits it
// (its name in the trace), the engine fact and the record property it sets, and the engine
// results copied back into the record afterwards, in that order.
struct Answer {
  const char* step;  // what Undo calls it
  const char* procedure;
  const char* fact;
  const char* property;
  std::vector<const char*> results;
};

// The four engine results most changes copy back into the record, in their order.
extern const std::vector<const char*> kAdvisorResults;

// The commit itself as the step `edit`, inside the procedure that calls it (it has no trace of
// its own): the fact, Evaluate, the property, the results in the order given, MarkIboAsDirty.
void CommitAnswer(EditorContext& ctx, const struct Edit& edit, const char* fact,
                  const char* property, const Variant& value,
                  const std::vector<const char*>& results);

// Commits an answer in the order the editor requires: the fact, Evaluate, then (unless a load
// is filling the widgets) the property, the results and MarkIboAsDirty; `redraw` runs last
// inside the same procedure. A failure takes the method path, so the calling handler shows it.
void ApplyAnswer(EditorContext& ctx, const Answer& answer, const Variant& value,
                 const std::function<void()>& redraw = {});

// Wires each option PREFIX + level of a group to commit its code (0, 1, ...) through `answer`,
// each click handler named "<option>_Click" and doing nothing while Loading is set.
void WireOptionAnswer(EditorContext& ctx, const std::string& prefix,
                      std::initializer_list<const char*> levels, const Answer& answer,
                      const std::function<void()>& redraw);

}  // namespace pelkedit
