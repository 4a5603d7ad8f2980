#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace pelkedit {

class EditorContext;
class IPlatform;

// A widget whose click opens a help topic, and the topic's map id.
struct HelpLink {
  std::string_view widget;
  std::int32_t mapId;
};

// Every label and picture that opens help, with its topic.
std::span<const HelpLink> HelpLinks();

// Opens topic `mapId` of the help file the configuration names, or says the file is missing.
void ShowContextHelp(EditorContext& ctx, std::int32_t mapId);
// The same request without the editor's tracing, for a host's own topics; a failure of the
// configuration is raised to the caller.
void OpenHelpTopic(IPlatform& platform, std::int32_t mapId);

// Gives every widget of HelpLinks() its click handler (WIDGET_Click) and, for labels, the
// pointer that says a click opens help.
void WireContextHelp(EditorContext& ctx);

}  // namespace pelkedit
