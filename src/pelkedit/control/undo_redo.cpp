#include "control/undo_redo.h"

#include "contracts/names.h"
#include "control/caption.h"
#include "control/editor_context.h"
#include "control/navigation.h"
#include "trace/error_paths.h"

namespace pelkedit {

void UndoRedo::EndTyping() {
  Widget* focused = ctx_.widgets.Focused();
  if (focused == nullptr || !focused->onLostFocus) return;
  const WidgetKind kind = focused->Kind();
  if (kind != WidgetKind::kTextBox && kind != WidgetKind::kDateEdit) return;
  focused->onLostFocus();
}

void UndoRedo::Undo() {
  Move("Undo", &EditHistory::NextUndo, &EditHistory::StepBack);
}

void UndoRedo::Redo() {
  Move("Redo", &EditHistory::NextRedo, &EditHistory::StepForward);
}

void UndoRedo::Move(const char* procedure, const EditStep* (EditHistory::*next)() const,
                    void (EditHistory::*step)()) {
  RunMethod(EditorContext::Proc(procedure), [&] {
    EndTyping();
    const EditStep* over = (ctx_.history.*next)();
    if (over == nullptr) return;
    const TabPlace place = over->place;
    (ctx_.history.*step)();
    ShowRebuilt(place);
  });
}

std::string UndoRedo::UndoName() const {
  const EditStep* step = ctx_.history.NextUndo();
  return step == nullptr ? std::string() : step->name;
}

std::string UndoRedo::RedoName() const {
  const EditStep* step = ctx_.history.NextRedo();
  return step == nullptr ? std::string() : step->name;
}

void UndoRedo::ShowRebuilt(const TabPlace& place) {
  IRecord& rec = *ctx_.record;
  {
    // The writes that rebuild the record are not new writes of the user's.
    ctx_.history.SetReplaying(true);
    const struct Done {
      EditHistory& history;
      ~Done() { history.SetReplaying(false); }
    } done{ctx_.history};
    for (const RecordWrite* write : ctx_.history.Replay()) {
      if (write->whole) {
        rec.SetIboData(*write->whole);
      } else if (write->index) {
        rec.SetAt(write->name, *write->index, write->value);
      } else {
        rec.Set(write->name, write->value);
      }
    }
  }
  // As a load fills the pages, except that the record's copies of the results stay as they
  // were at that step.
  ctx_.state.loading = true;
  ctx_.state.expertView = rec.Get(prop::ExpertMode).AsBool();
  ctx_.navigation->LoadMainTabPictures(ctx_.state.expertView);
  ctx_.InitAdvisor(false);
  ctx_.ForPages([](TabPage& page) { page.Load(); });
  ctx_.navigation->ShowPlace(place);
  ctx_.state.loading = false;
  ctx_.state.iboChanged = !ctx_.history.Clean();
  ctx_.events.SetFormCaption(FormCaptionOf(rec));
  ctx_.events.SetIBOStatus(rec.Get(prop::Status).AsLong());
  ctx_.events.SetExpertMode(ctx_.state.expertView);
  if (ctx_.afterChange) ctx_.afterChange();
}

}  // namespace pelkedit
