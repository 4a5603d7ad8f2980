#pragma once

namespace pelkedit {

class WidgetRegistry;

// Creates the component's widget models with their captions, positions (twips on frames,
// pixels inside pictures) and groups.
void BuildEditorLayout(WidgetRegistry& widgets);

}  // namespace pelkedit
