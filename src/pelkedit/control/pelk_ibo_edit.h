#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "contracts/record.h"
#include "control/editor_events.h"
#include "control/editor_state.h"
#include "control/tab_strips.h"
#include "values/variant.h"
#include "widgets/widget_registry.h"

namespace pelkedit {

class IPlatform;
class IRecord;
class IAdvisor;
class EditorContext;
class UndoRedo;
class ChangeKeeping;
class IChangeJournal;

// The editor component for one IBO. Construction is the control's creation, destruction its
// termination; the host drives it through the public methods and listens to IEditorEvents.
// The library must have started on the thread (Main) before a component is created.
class PelkIboEdit {
 public:
  PelkIboEdit(IPlatform& platform, IEditorEvents& events);
  ~PelkIboEdit();
  PelkIboEdit(const PelkIboEdit&) = delete;
  PelkIboEdit& operator=(const PelkIboEdit&) = delete;

  // Read-only properties.
  bool IboSaved() const;
  std::int32_t IboStatus() const;
  bool IboChanged() const;

  // Methods; an error inside one reaches the caller as a PelkError.
  void IboChangeStartDate();
  void IboUpgradeToExpert();
  void IboChangeStatus(std::int32_t status);
  void InitIBOInfo();
  void ShowIbo(std::int32_t iboId, std::int32_t view);
  void FormClose();

  // Where the host keeps unsaved changes for recovery after a crash; none by default.
  void SetJournal(std::shared_ptr<IChangeJournal> journal);

  // The user takes another form of the open record (an earlier saved version) as one step:
  // unsaved changes to look at, undo or save (a save checked against the version read, as any).
  void TakeRecord(const Blob& data, const std::string& step);

  // The version of the stored row the record was read at ("" when the data object cannot say),
  // and a new one the next save is checked against: after a merge with the stored record, the
  // version merged with.
  std::string VersionRead() const;
  void SaveOnVersion(const std::string& version);

  // The user's Undo and Redo (also of the desktop's Edit menu); with nothing to take back (or
  // apply again) they change nothing.
  void Undo();
  void Redo();
  bool CanUndo() const;
  bool CanRedo() const;
  // The name of the step each would take back or apply again ("Will It Happen?").
  std::string UndoName() const;
  std::string RedoName() const;

  // For hosts that draw the component and for observation.
  WidgetRegistry& Widgets();
  const EditorState& State() const;
  // The caption of a tab of a strip, as its page declares it ("Sales Advisor", "Probe").
  std::string TabCaption(const TabStrip& strip, std::int32_t tab) const;
  // A state field by its name (IboChanged, MainTab, ...); nullopt for an unknown name.
  std::optional<Variant> StateByName(const std::string& name) const;
  // The collaborators the component holds now (null when one could not be created).
  std::shared_ptr<IRecord> Record() const;
  std::shared_ptr<IAdvisor> Advisor() const;

 private:
  void Load(std::int32_t iboId, std::int32_t view);

  std::unique_ptr<EditorContext> ctx_;
  std::unique_ptr<UndoRedo> undo_;
  std::unique_ptr<ChangeKeeping> keeping_;
};

}  // namespace pelkedit
