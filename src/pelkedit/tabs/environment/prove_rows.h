#pragma once

namespace pelkedit {

class EditorContext;
struct DecisionMaker;

// The Prove phase's row of one decision maker, refreshed from the Probe phase's widgets and
// the record (ProveRefreshEconInfo, ...): a known decision maker's echoes and answers, or
// "UNKNOWN" with the row's other widgets hidden.
void ProveRefreshInfo(EditorContext& ctx, const DecisionMaker& dm);
// Every row, Econ, Tech, User.
void ProveRefreshAll(EditorContext& ctx);

}  // namespace pelkedit
