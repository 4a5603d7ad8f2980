#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "control/tab_strips.h"

namespace pelkedit {

class Frame;
class WidgetRegistry;

// The host changes a page may react to.
enum class HostChange { kStartDate, kStatus, kUpgrade };
// Why a page is asked to write back what only its widgets still hold.
enum class CollectReason { kLeaving, kSaving };

// A widget of a page whose click opens a help topic, and the topic's map id.
struct HelpLink {
  std::string_view widget;
  std::int32_t mapId;
};

// What a page's tab says, and on the Sales Environment, what its phase's tab says.
struct PageCaption {
  const char* tab;
  const char* phase = nullptr;
};

// One page of the editor: Essentials, Sales Advisor, a Sales Environment phase, IBO Info or
// IBO Note. The editor holds its pages in one ordered list (the order a load fills them) and
// walks it at every moment below; a page reacts to the moments it cares about.
class TabPage {
 public:
  virtual ~TabPage() = default;
  // The main tab (and on the Sales Environment, the phase) the page is shown on.
  virtual TabPlace Place() const = 0;
  virtual PageCaption Caption() const = 0;
  // The labels and pictures of the page that open help, with their topics.
  virtual std::span<const HelpLink> HelpTopics() const { return {}; }
  // Creates the page's widgets on its frame, positions in twips.
  virtual void Build(WidgetRegistry& widgets, Frame& frame) = 0;
  // Connects the widgets' events to the page's handlers.
  virtual void Wire() {}
  // A new engine has been set up from the record and evaluated, early in a load.
  virtual void EngineReady() {}
  // Fills the widgets from a freshly loaded record (Loading is set).
  virtual void Load() {}
  // The page's main tab became the current one.
  virtual void Show() {}
  // The page's tab is left, or the record is about to be saved.
  virtual void Collect(CollectReason /*reason*/) {}
  // A host change has reached the engine and the record (every page, in list order)...
  virtual void HostChanged(HostChange /*change*/) {}
  // ...then the pages of the current main tab redraw what it moved.
  virtual void RedrawShown(HostChange /*change*/) {}
};

}  // namespace pelkedit
