#include "control/kept_changes.h"

#include "contracts/names.h"
#include "control/editor_context.h"
#include "control/undo_redo.h"
#include "values/error.h"

namespace pelkedit {
namespace {

constexpr const char* kRestoreTitle = "Unsaved changes";

std::string RestoreQuestion(std::int32_t number, bool changedElsewhere) {
  std::string text = "IBO " + std::to_string(number) +
                     " has unsaved changes, kept when the editor last stopped without saving "
                     "them. Restore them?";
  if (!changedElsewhere) return text;
  return text +
         "\n\nThe stored IBO was changed by someone else since. The restored changes can be "
         "looked at, but saving them will be refused; compare them with the stored version "
         "first.";
}

}  // namespace

IRowVersions* ChangeKeeping::Versions() const {
  return dynamic_cast<IRowVersions*>(ctx_.data.get());
}

void ChangeKeeping::Loaded(std::int32_t iboId) {
  iboId_ = iboId;
  procName_ = RetrievalProcedureOf(ctx_.state.dbView);
  if (!journal_) return;
  IRowVersions* versions = Versions();
  version_ = versions != nullptr ? versions->VersionRead(iboId, procName_) : std::string();
  std::optional<KeptChanges> kept;
  Guarded([&] { kept = journal_->Find(iboId, procName_); });
  if (!kept) return;
  const bool changedElsewhere = kept->version != version_;
  const MsgAnswer answer = ctx_.platform.MsgBox(
      RestoreQuestion(ctx_.Rec().Get(prop::IboNumber).AsLong(), changedElsewhere),
      MsgIcon::kQuestion, MsgButtons::kYesNo, kRestoreTitle);
  if (answer != MsgAnswer::kYes) {
    Guarded([&] { journal_->Remove(iboId, procName_); });
    return;
  }
  Restore(*kept);
}

std::string ChangeKeeping::VersionRead() const {
  IRowVersions* versions = Versions();
  if (versions == nullptr || !iboId_) return std::string();
  return versions->VersionRead(*iboId_, procName_);
}

void ChangeKeeping::SaveOnVersion(const std::string& version) {
  IRowVersions* versions = Versions();
  if (versions == nullptr || !iboId_) return;
  versions->ExpectVersion(*iboId_, procName_, version);
  version_ = version;
  Update();
}

void ChangeKeeping::Restore(const KeptChanges& kept) {
  // The save is held to the version the changes were made on: if someone saved since, it is
  // refused like any stale save.
  if (IRowVersions* versions = Versions())
    versions->ExpectVersion(*iboId_, procName_, kept.version);
  version_ = kept.version;
  ctx_.Rec().SetIboData(kept.record);
  undo_.ShowRebuilt(TabPlace{});
}

void ChangeKeeping::Update() {
  if (!journal_ || !iboId_) return;
  Guarded([&] {
    if (ctx_.history.Clean() || !ctx_.state.iboChanged) {
      journal_->Remove(*iboId_, procName_);
    } else {
      journal_->Keep(*iboId_, procName_, KeptChanges{version_, ctx_.Rec().GetIboData()});
    }
  });
}

void ChangeKeeping::Guarded(const std::function<void()>& work) {
  try {
    work();
  } catch (const PelkError& error) {
    // Editing goes on; the user hears once that a crash could now lose changes.
    if (failureShown_) return;
    failureShown_ = true;
    ctx_.platform.MsgBox("Unsaved changes cannot be kept for recovery after a crash: " +
                             error.Description() + "\nSave your changes to keep them.",
                         MsgIcon::kExclamation, MsgButtons::kOk, kRestoreTitle);
  }
}

}  // namespace pelkedit
