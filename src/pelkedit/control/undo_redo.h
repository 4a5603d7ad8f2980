#pragma once

#include <string>

#include "control/edit_history.h"
#include "control/tab_strips.h"

namespace pelkedit {

class EditorContext;

// Undo and redo of the user's steps: the record is rebuilt as it stood at the step's boundary,
// the engine is set up from it again, the pages show it and the step's tab comes to the front.
class UndoRedo {
 public:
  explicit UndoRedo(EditorContext& ctx) : ctx_(ctx) {}

  void Undo();
  void Redo();
  // The name of the step Undo (Redo) would take back (apply again); empty when there is none.
  std::string UndoName() const;
  std::string RedoName() const;
  // Rebuilds the record at the history's position and shows it on `place` as a load would,
  // the record's copies of the engine's results left as they are.
  void ShowRebuilt(const TabPlace& place);

 private:
  // Typing not yet committed in the focused box becomes a step first, as its lost focus would.
  void EndTyping();
  // Moves over the next step one way (`next` finds it, `step` moves) and shows the result.
  void Move(const char* procedure, const EditStep* (EditHistory::*next)() const,
            void (EditHistory::*step)());

  EditorContext& ctx_;
};

}  // namespace pelkedit
