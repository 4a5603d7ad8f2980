#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "contracts/advisor.h"
#include "contracts/record.h"
#include "control/editor_events.h"
#include "control/editor_state.h"
#include "control/tab_page.h"
#include "platform/platform.h"
#include "widgets/controls.h"
#include "widgets/widget_registry.h"

namespace pelkedit {

class Navigation;
class RecordSaving;

// What every tab and procedure of the component shares: state, widgets, collaborators, the
// host, and the other tabs' procedures.
class EditorContext {
 public:
  EditorContext(IPlatform& platform, IEditorEvents& events);
  ~EditorContext();

  IPlatform& platform;
  IEditorEvents& events;
  EditorState state;
  WidgetRegistry widgets;

  std::shared_ptr<IDataAccess> data;
  std::shared_ptr<IRecord> record;
  std::shared_ptr<IAdvisor> advisor;

  // The collaborators; error 91 when one could not be created.
  IRecord& Rec() const;
  IAdvisor& Adv() const;
  IDataAccess& Data() const;

  // "PelkEdit.PelkIboEdit::<procedure>"
  static std::string Proc(std::string_view procedure);

  template <typename W>
  W& Get(const std::string& name) const {
    return widgets.Get<W>(name);
  }

  void MarkIboAsDirty();
  // Writes the engine's results into the record properties of the same names, in the order
  // given (each change copies its own set, in its own order).
  void CopyAdvisorResults(const std::vector<const char*>& results) const;
  // Moves ctl to the left position and centres it vertically on container.
  void CenterControl(float left, Widget& ctl, const Widget& container);
  // Question tooltips of the Sales Environment, set once at creation by the page that owns
  // the questions.
  std::function<void()> initTooltips;
  void InitTooltips() const;

  // The engine's set-up at a load (InitAdvisor).
  void InitAdvisor();

  std::unique_ptr<Navigation> navigation;
  std::unique_ptr<RecordSaving> saving;
  // Every page, in the order a load fills them.
  std::vector<std::unique_ptr<TabPage>> pages;
  // Calls `moment` on every page in list order; ForPagesOn only on the pages of one main tab
  // (and, when `phase` is not kNoPhase, of one Sales Environment phase).
  template <typename Moment>
  void ForPages(Moment&& moment) const {
    for (const auto& page : pages) moment(*page);
  }
  template <typename Moment>
  void ForPagesOn(std::int32_t mainTab, std::int32_t phase, Moment&& moment) const {
    for (const auto& page : pages) {
      const TabPlace place = page->Place();
      if (place.mainTab != mainTab) continue;
      if (phase != tab::kNoPhase && place.phase != phase) continue;
      moment(*page);
    }
  }
};

}  // namespace pelkedit
