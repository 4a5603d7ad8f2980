#pragma once

#include <string>

#include "control/tab_strips.h"

namespace pelkedit {

class Frame;
class WidgetRegistry;

// Creates the component's shell: the main strip, one frame per main tab, the Sales
// Environment's phase strip and phase frames. Pages build their own widgets on the frame
// FrameOf gives them; the Save and Cancel buttons come last, after every page's widgets, so
// that the keyboard reaches them last.
void BuildEditorShell(WidgetRegistry& widgets);
void BuildEditorButtons(WidgetRegistry& widgets);

// The frame a main tab shows, and the frame of a Sales Environment phase.
const char* MainFrameName(std::int32_t mainTab);
const char* PhaseFrameName(std::int32_t phase);
Frame& FrameOf(WidgetRegistry& widgets, const TabPlace& place);

}  // namespace pelkedit
