#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

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
class EssentialsTab;
class MatrixPriority;
class AdvisorTab;
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
  void CopyAdvisorResults(std::initializer_list<const char*> results) const;
  // Moves ctl to the left position and centres it vertically on container.
  void CenterControl(float left, Widget& ctl, const Widget& container);
  // Question tooltips of the Sales Environment, set once at creation by the tab that owns
  // the questions.
  std::function<void()> initTooltips;
  void InitTooltips() const;

  // The tabs' procedures.
  std::unique_ptr<Navigation> navigation;
  std::unique_ptr<EssentialsTab> essentials;
  std::unique_ptr<MatrixPriority> matrix;
  std::unique_ptr<AdvisorTab> advisorTab;
  std::unique_ptr<RecordSaving> saving;
  // Tab pages that fill themselves from the record and collect their widgets back into it.
  // A page that is not part of this build has no widgets to fill or collect.
  std::array<std::unique_ptr<TabPage>, kTabPageCount> pages;
  TabPage* Page(TabPageId id) const { return pages[static_cast<std::size_t>(id)].get(); }
  // Fill or collect a page when it exists.
  void InitPage(TabPageId id) const;
  void SavePage(TabPageId id) const;
};

}  // namespace pelkedit
