#pragma once

#include <cstdint>

namespace pelkedit {

class EditorContext;
class IPlatform;

// Opens topic `mapId` of the help file the configuration names, or says the file is missing.
void ShowContextHelp(EditorContext& ctx, std::int32_t mapId);
// The same request without the editor's tracing, for a host's own topics; a failure of the
// configuration is raised to the caller.
void OpenHelpTopic(IPlatform& platform, std::int32_t mapId);

// Gives every widget the pages link to help its topic, its click handler (WIDGET_Click) and,
// for labels, the pointer that says a click opens help.
void WireContextHelp(EditorContext& ctx);

}  // namespace pelkedit
