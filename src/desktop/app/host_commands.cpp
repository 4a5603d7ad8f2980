// The host's menu commands: opening another IBO, the IBO menu's changes, and the comparison
// with the stored version after a refused save.
#include "app/host_window.h"

#include "app/host_help.h"

#include "app/merge_dialog.h"
#include "app/saved_versions_dialog.h"
#include "app/stored_version_dialog.h"
#include "record/ibo_properties.h"
#include "record/record_merge.h"

namespace pelkor::desktop {

void HostWindow::ChooseIbo() {
  // Deals are found in the pipeline, searched and sorted by the database.
  if (pipelineOpener_) pipelineOpener_();
}

bool HostWindow::SwitchTo(std::int32_t iboId, std::int32_t view) {
  if (!ReleaseCurrent()) return false;
  return OpenIbo(iboId, view);
}

void HostWindow::ChangeStartDate() {
  if (component_) ChangeCall([this] { component_->IboChangeStartDate(); });
}

void HostWindow::ChangeStatus(std::int32_t status) {
  if (component_) ChangeCall([this, status] { component_->IboChangeStatus(status); });
  // A status the change did not reach stays checked as it was.
  if (component_) HostCall([this] { SetIBOStatus(component_->IboStatus()); });
}

// As the user's own actions: through the binder, so that an error is shown and the pages and
// the menu follow.
void HostWindow::Undo() {
  if (component_ && binder_) binder_->Run([this] { component_->Undo(); });
}

void HostWindow::Redo() {
  if (component_ && binder_) binder_->Run([this] { component_->Redo(); });
}

void HostWindow::UpgradeToExpert() {
  if (!component_) return;
  // The upgrade cannot be undone: the user confirms it first.
  const auto answer = platform_.MsgBox(
      tr("Upgrade this IBO to Expert Mode? The Sales Environment questions become part of it, "
         "and an IBO cannot go back to Basic Mode.")
          .toStdString(),
      pelkedit::MsgIcon::kQuestion, pelkedit::MsgButtons::kYesNo, tr("Expert Mode").toStdString());
  if (answer != pelkedit::MsgAnswer::kYes) return;
  ChangeCall([this] { component_->IboUpgradeToExpert(); });
}

void HostWindow::CompareWithStored() {
  if (!component_) return;
  const IboTable table = TableForProcedure(pelkedit::RetrievalProcedureOf(view_));
  std::vector<PropertyDifference> differences;
  const bool compared = HostCall([&] {
    const auto stored = CreateIboProperties();
    stored->SetIboData(environment_.Db()->Read(table, iboId_));
    differences = DifferencesBetween(*component_->Record(), *stored);
  });
  if (!compared) return;
  StoredVersionDialog dialog(iboId_, std::move(differences), this);
  InstallHelpKey(dialog, platform_, help_topic::kComparison);
  const int choice = dialog.exec();
  // The user chose to discard the changes: the component is replaced without asking again.
  if (choice == StoredVersionDialog::kReopen) OpenIbo(iboId_, view_);
  if (choice == StoredVersionDialog::kMerge) MergeWithStored();
}

void HostWindow::MergeWithStored() {
  const IboTable table = TableForProcedure(pelkedit::RetrievalProcedureOf(view_));
  const std::string read = component_->VersionRead();
  std::optional<VersionedIbo> stored;
  std::optional<SavedVersion> opened;
  if (!HostCall([&] {
        stored = environment_.Db()->FindVersioned(table, iboId_);
        for (SavedVersion& version : environment_.Db()->History(table, iboId_)) {
          if (std::to_string(version.version) == read) opened = std::move(version);
        }
      })) {
    return;
  }
  if (!stored || !opened) {
    platform_.MsgBox(tr("The version of IBO %1 you opened is no longer kept, so your changes "
                        "cannot be merged. Copy the list of differences, reopen the stored "
                        "version and make your changes there.")
                         .arg(iboId_)
                         .toStdString(),
                     pelkedit::MsgIcon::kExclamation, pelkedit::MsgButtons::kOk,
                     tr("Merge").toStdString());
    return;
  }
  const auto base = CreateIboProperties();
  const auto theirs = CreateIboProperties();
  MergedRecord merged;
  if (!HostCall([&] {
        base->SetIboData(opened->data);
        theirs->SetIboData(stored->data);
        merged = MergeRecords(*base, *component_->Record(), *theirs);
      })) {
    return;
  }
  if (!merged.conflicts.empty()) {
    MergeDialog dialog(merged.conflicts, *component_->Record(), *theirs, this);
    if (dialog.exec() != QDialog::Accepted) return;
    const std::vector<bool> keepMine = dialog.KeepMine();
    for (std::size_t i = 0; i < merged.conflicts.size(); ++i) {
      if (keepMine[i]) TakeMine(*merged.record, *component_->Record(), merged.conflicts[i]);
    }
  }
  const pelkedit::Blob result = merged.record->GetIboData();
  const std::string version = std::to_string(stored->version);
  if (!binder_) return;
  // One step the user can undo; the save is then checked against the version merged with.
  binder_->Run([&] {
    component_->TakeRecord(result, "Merge with Stored Version");
    component_->SaveOnVersion(version);
  });
}

void HostWindow::ShowHistory() {
  if (!component_) return;
  const IboTable table = TableForProcedure(pelkedit::RetrievalProcedureOf(view_));
  std::vector<SavedVersion> versions;
  if (!HostCall([&] { versions = environment_.Db()->History(table, iboId_); })) return;
  SavedVersionsDialog dialog(iboId_, std::move(versions), *component_->Record(), this);
  if (dialog.exec() != QDialog::Accepted || dialog.Chosen() == nullptr) return;
  const pelkedit::Blob data = dialog.Chosen()->data;
  if (binder_) binder_->Run([&] { component_->TakeRecord(data, "Restore Saved Version"); });
}

}  // namespace pelkor::desktop
