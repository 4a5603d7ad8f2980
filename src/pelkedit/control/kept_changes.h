#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "contracts/journal.h"

namespace pelkedit {

class EditorContext;
class UndoRedo;

// Keeps the unsaved record in the host's journal after every change, removes it when the
// record is saved or its changes are given up, and offers what was kept when the record is
// opened again.
class ChangeKeeping {
 public:
  ChangeKeeping(EditorContext& ctx, UndoRedo& undo) : ctx_(ctx), undo_(undo) {}

  void SetJournal(std::shared_ptr<IChangeJournal> journal) { journal_ = std::move(journal); }
  // A load of `iboId` finished: what was kept of it is offered back.
  void Loaded(std::int32_t iboId);
  // After anything that may have changed or saved the record.
  void Update();
  // The stored row's version the record was read at, and a newer one the save is checked
  // against from now on.
  std::string VersionRead() const;
  void SaveOnVersion(const std::string& version);

 private:
  void Restore(const KeptChanges& kept);
  IRowVersions* Versions() const;
  // A journal that fails never stops the editing: the user hears of it once.
  void Guarded(const std::function<void()>& work);

  EditorContext& ctx_;
  UndoRedo& undo_;
  std::shared_ptr<IChangeJournal> journal_;
  std::optional<std::int32_t> iboId_;
  std::string procName_;
  std::string version_;
  bool failureShown_ = false;
};

}  // namespace pelkedit
