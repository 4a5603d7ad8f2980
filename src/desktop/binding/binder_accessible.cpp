// Screen readers: an input is named by its question (the label that names it) and described by
// its tooltip, else by its help topic's first sentence; an option also says which question it
// answers; a picture, and an input no label names, by the description its page gives it.
#include <QWidget>

#include "binding/binder.h"

namespace pelkor::desktop {

using pelkedit::WidgetKind;

const pelkedit::Widget* Binder::QuestionOf(const pelkedit::Widget& model) const {
  if (const auto it = questions_.find(&model); it != questions_.end()) return it->second;
  if (model.Kind() != WidgetKind::kOption || model.Parent() == nullptr) return nullptr;
  // An option answers the question that names the first option of its group.
  const pelkedit::Widget* first = FirstFocusableIn(*model.Parent());
  const auto it = first == nullptr ? questions_.end() : questions_.find(first);
  return it == questions_.end() ? nullptr : it->second;
}

void Binder::ApplyAccessibleText(Binding& binding) {
  if (!binding.inner) return;
  const pelkedit::Widget& model = *binding.model;
  QWidget& widget = *binding.inner;
  if (model.Kind() == WidgetKind::kPicture) {
    const QString shown = QString::fromStdString(model.Description());
    if (!shown.isEmpty()) widget.setAccessibleName(shown);
    if (shown.isEmpty() && !model.Tooltip().empty()) {
      widget.setAccessibleName(QString::fromStdString(model.Tooltip()));
    }
    return;
  }
  const pelkedit::Widget* question = QuestionOf(model);
  const QString own = QString::fromStdString(model.Description());
  QString description = widget.toolTip();
  if (description.isEmpty() && question != nullptr && question->HelpTopic() != 0 &&
      options_.helpSentence) {
    description = options_.helpSentence(question->HelpTopic());
  }
  const bool namesItself = !model.Caption().empty() && model.Kind() != WidgetKind::kFrame;
  if (question != nullptr && model.Kind() == WidgetKind::kOption) {
    description = Unmarked(QString::fromStdString(question->Caption())) +
                  (description.isEmpty() ? "" : " " + description);
  } else if (question != nullptr) {
    widget.setAccessibleName(Unmarked(QString::fromStdString(question->Caption())));
  } else if (!namesItself && !own.isEmpty()) {
    // An input no label names, with no caption of its own, is named by its page's words.
    widget.setAccessibleName(own);
  }
  if (description.isEmpty() && (question != nullptr || namesItself)) description = own;
  widget.setAccessibleDescription(description);
  // The box around it (a product table's) and the part that takes the focus for it (a
  // calendar's day grid) say the same; a calendar made later takes these from its box.
  if (binding.placed && binding.placed != binding.inner) {
    binding.placed->setAccessibleName(widget.accessibleName());
    binding.placed->setAccessibleDescription(description);
  }
  for (QWidget* part = widget.focusProxy(); part != nullptr; part = part->focusProxy()) {
    part->setAccessibleName(widget.accessibleName());
    part->setAccessibleDescription(description);
  }
}

}  // namespace pelkor::desktop
