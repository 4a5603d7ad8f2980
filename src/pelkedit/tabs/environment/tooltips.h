#pragma once

namespace pelkedit {

class EditorContext;

// The full questions behind the Sales Environment's short captions, set once at creation
// (InitTooltips). Labels of a phase not built yet are left for that phase.
void InitTooltips(EditorContext& ctx);

}  // namespace pelkedit
