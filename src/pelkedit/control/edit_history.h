#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "contracts/record.h"
#include "control/tab_strips.h"
#include "values/variant.h"

namespace pelkedit {

// One write the component made to its record: a property (indexed or not), or the whole record
// in storage form.
struct RecordWrite {
  std::optional<Blob> whole;
  std::string name;
  std::optional<std::int32_t> index;
  Variant value;
};

// One step the user made: what Undo calls it, the tab it was made on, and the writes it made.
struct EditStep {
  std::string name;
  TabPlace place;
  std::size_t begin = 0;
  std::size_t end = 0;
};

// Undo and redo as a log of the record's writes since it was loaded. The record at any step's
// boundary is the loaded record with the log's writes up to there applied again, so a step
// needs no copy of the record and the component asks its collaborators nothing extra while
// the user works. The host's calls write into the log too, outside any step, and end what can
// be undone.
class EditHistory {
 public:
  // A load put `loaded` into the record: both lists are emptied and the record is clean.
  void Loaded(Blob loaded);
  // Everything written since Loaded, and the steps and positions, for a load that fails.
  struct Memento {
    std::vector<RecordWrite> log;
    std::vector<EditStep> steps;
    std::size_t applied = 0;
    std::size_t position = 0;
    std::optional<std::size_t> saved;
  };
  Memento Keep() const;
  void Restore(Memento memento);

  // A write the record took (not while the history itself replays writes).
  void Written(RecordWrite write);
  // After this many writes since the last whole record, a copy of the record is logged, so that
  // rebuilding it never replays more than that.
  static constexpr std::size_t kWritesBetweenCopies = 256;
  bool WantsCopy() const;
  void Copied(Blob record);

  // The outermost step opens and closes the unit Undo takes back; a step that wrote nothing
  // leaves nothing to undo.
  void Open(std::string name, TabPlace place);
  void Close();
  bool InStep() const { return depth_ > 0; }

  // The record was saved as it stands.
  void Saved() { saved_ = position_; }
  // Whether the record is what it was when loaded or last saved.
  bool Clean() const { return saved_ == position_; }

  const EditStep* NextUndo() const;
  const EditStep* NextRedo() const;
  // Moves over the next step back or forward; the record must then be rebuilt with Replay.
  void StepBack();
  void StepForward();
  // The writes that rebuild the record at the current position, from the last whole record.
  std::vector<const RecordWrite*> Replay() const;
  bool Replaying() const { return replaying_; }
  void SetReplaying(bool replaying) { replaying_ = replaying; }

 private:
  void DropRedo();

  std::vector<RecordWrite> log_;
  std::vector<EditStep> steps_;
  std::size_t applied_ = 0;   // steps the record holds
  std::size_t position_ = 0;  // writes the record holds
  std::optional<std::size_t> saved_ = 0;
  int depth_ = 0;
  EditStep open_;
  bool replaying_ = false;
};

}  // namespace pelkedit
