#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "contracts/advisor.h"
#include "contracts/record.h"
#include "control/edit_history.h"
#include "control/editor_events.h"
#include "control/editor_state.h"
#include "control/record_tap.h"
#include "control/tab_page.h"
#include "platform/platform.h"
#include "widgets/controls.h"
#include "widgets/widget_registry.h"

namespace pelkedit {

class Navigation;
class RecordSaving;

// When a change the user makes is skipped rather than made.
enum EditGuard : unsigned {
  kAlways = 0,
  kNotWhileLoading = 1U << 0U,     // a load is filling the widgets
  kNotWhileRefreshing = 1U << 1U,  // the Close phase is filling or rebuilding its rows
};

// One change the user makes to the record: what Undo calls it, and when it is skipped.
struct Edit {
  // NOLINTNEXTLINE(google-explicit-constructor): written as {step, guards, unchanged}
  Edit(std::string name, unsigned skippedWhile = kNotWhileLoading,
       std::function<bool()> alreadyHeld = {})
      : step(std::move(name)), guards(skippedWhile), unchanged(std::move(alreadyHeld)) {}
  std::string step;
  unsigned guards;
  // Skipped, too, when this says the record (or the engine) already holds the change.
  std::function<bool()> unchanged;
};

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

  // The one path of every change the user makes to the record: skipped while one of its guards
  // holds; otherwise `change` runs as one step (a change inside another joins it, and a host
  // call makes none), and when it reports a change (returns true, or nothing) the record is
  // marked dirty. Returns whether it changed the record.
  template <typename Change>
  bool EditRecord(const Edit& edit, Change&& change) {
    if (Skipped(edit.guards) || (edit.unchanged && edit.unchanged())) return false;
    const StepScope scope(*this, edit.step);
    bool changed = true;
    if constexpr (std::is_void_v<std::invoke_result_t<Change>>) {
      change();
    } else {
      changed = change();
    }
    if (changed) MarkIboAsDirty();
    return changed;
  }
  // Several changes the user makes at once (a contact picked, a product list handed over) that
  // Undo takes back together; each change still marks the record itself.
  template <typename Changes>
  void OneStep(const std::string& name, Changes&& changes) {
    const StepScope scope(*this, name);
    changes();
  }
  // Where the user is: the main tab, and on the Sales Environment its phase.
  TabPlace CurrentPlace() const;
  // The caption of a question's label, as a step is named after it.
  std::string CaptionOf(const char* label) const;
  // Runs a call of the host: what it writes is no step of the user's.
  template <typename Call>
  void HostCall(Call&& call) {
    ++hostCalls_;
    const struct Leave {
      int& calls;
      ~Leave() { --calls; }
    } leave{hostCalls_};
    call();
    if (afterChange) afterChange();
  }
  EditHistory history;
  // Runs after each change to the record (a step, an undo, a host's call) and after a save or
  // changes given up: the unsaved record is kept then, or what was kept is removed.
  std::function<void()> afterChange;

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

  // The engine's set-up at a load (InitAdvisor); an undo sets one up without copying its
  // results, so the record stays exactly what it was.
  void InitAdvisor(bool copyResults = true);

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

 private:
  bool Skipped(unsigned guards) const;
  // Opens the user's step (when no host call runs) and closes it however the change ends.
  class StepScope {
   public:
    StepScope(EditorContext& ctx, const std::string& name);
    ~StepScope();
    StepScope(const StepScope&) = delete;
    StepScope& operator=(const StepScope&) = delete;

   private:
    EditorContext& ctx_;
    bool opened_;
  };
  mutable RecordTap tap_{record, history};
  int hostCalls_ = 0;
};

}  // namespace pelkedit
