#include "control/edit_history.h"

#include <utility>

namespace pelkedit {

void EditHistory::Loaded(Blob loaded) {
  log_.clear();
  steps_.clear();
  log_.push_back(RecordWrite{std::move(loaded), {}, {}, {}});
  applied_ = 0;
  position_ = log_.size();
  saved_ = position_;
}

EditHistory::Memento EditHistory::Keep() const {
  return Memento{log_, steps_, applied_, position_, saved_};
}

void EditHistory::Restore(Memento memento) {
  log_ = std::move(memento.log);
  steps_ = std::move(memento.steps);
  applied_ = memento.applied;
  position_ = memento.position;
  saved_ = memento.saved;
  depth_ = 0;
}

void EditHistory::DropRedo() {
  if (position_ == log_.size()) return;
  log_.resize(position_);
  steps_.resize(applied_);
  // The saved record lay on the dropped branch: nothing reachable is clean any more.
  if (saved_ && *saved_ > position_) saved_.reset();
}

void EditHistory::Written(RecordWrite write) {
  if (replaying_) return;
  DropRedo();
  log_.push_back(std::move(write));
  position_ = log_.size();
  if (depth_ > 0) return;
  // The host changed the record: undoing a step before that would silently take the host's
  // change back too, so the steps before it can no longer be undone.
  steps_.clear();
  applied_ = 0;
}

void EditHistory::Open(std::string name, TabPlace place) {
  if (depth_++ > 0) return;
  DropRedo();
  open_ = EditStep{std::move(name), place, position_, position_};
}

void EditHistory::Close() {
  if (depth_ == 0 || --depth_ > 0) return;
  if (position_ == open_.begin) return;
  open_.end = position_;
  steps_.push_back(std::move(open_));
  applied_ = steps_.size();
}

bool EditHistory::WantsCopy() const {
  std::size_t since = 0;
  for (std::size_t at = position_; at > 0 && !log_[at - 1].whole; --at) ++since;
  return depth_ == 0 && since >= kWritesBetweenCopies;
}

void EditHistory::Copied(Blob record) {
  // The record as it stands: no step of its own, and nothing it can drop.
  if (position_ != log_.size()) return;
  log_.push_back(RecordWrite{std::move(record), {}, std::nullopt, {}});
  position_ = log_.size();
  if (saved_ == position_ - 1) saved_ = position_;
}

const EditStep* EditHistory::NextUndo() const {
  return applied_ == 0 ? nullptr : &steps_[applied_ - 1];
}

const EditStep* EditHistory::NextRedo() const {
  return applied_ == steps_.size() ? nullptr : &steps_[applied_];
}

void EditHistory::StepBack() {
  if (const EditStep* step = NextUndo()) {
    position_ = step->begin;
    --applied_;
  }
}

void EditHistory::StepForward() {
  if (const EditStep* step = NextRedo()) {
    position_ = step->end;
    ++applied_;
  }
}

std::vector<const RecordWrite*> EditHistory::Replay() const {
  std::size_t from = position_;
  while (from > 0 && !log_[from - 1].whole) --from;
  std::vector<const RecordWrite*> writes;
  if (from == 0) return writes;
  for (std::size_t at = from - 1; at < position_; ++at) writes.push_back(&log_[at]);
  return writes;
}

}  // namespace pelkedit
