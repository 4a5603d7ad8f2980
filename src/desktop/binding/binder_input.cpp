// Widget -> model: the user's input, raised on the models as the classic controls raised it.
#include <QComboBox>
#include <QDate>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "binding/binder.h"
#include "binding/date_widgets.h"

namespace pelkor::desktop {

using pelkedit::WidgetKind;

namespace {

// Classic mouse button and shift-state codes.
constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
constexpr int kMiddleButton = 4;
constexpr int kShiftMask = 1;
constexpr int kCtrlMask = 2;
constexpr int kAltMask = 4;

int ButtonCode(Qt::MouseButton button) {
  switch (button) {
    case Qt::RightButton:
      return kRightButton;
    case Qt::MiddleButton:
      return kMiddleButton;
    default:
      return kLeftButton;
  }
}

int ShiftCode(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? kShiftMask : 0) |
         (modifiers.testFlag(Qt::ControlModifier) ? kCtrlMask : 0) |
         (modifiers.testFlag(Qt::AltModifier) ? kAltMask : 0);
}

std::string ToModelText(const QString& text, bool multiline) {
  QString result = text;
  if (multiline) result.replace("\n", "\r\n");
  return result.toStdString();
}

// A widget's UTF-16 position as the model counts it: code points, and a line break of a
// multi-line box as the two characters the model holds for it.
int ModelOffset(const QString& text, int position, bool multiline) {
  int offset = 0;
  for (int i = 0; i < position && i < text.size(); ++i) {
    if (text.at(i).isLowSurrogate()) continue;
    offset += multiline && text.at(i) == '\n' ? 2 : 1;
  }
  return offset;
}

}  // namespace

// The caret and selection the user sees in a multi-line box are the model's: procedures that
// insert at the caret (the note's date stamp) use the place the user chose. (The model's
// selection goes back to a box only for single-line fields, which keep their own.)
void SyncSelection(pelkedit::TextBox& box, const QString& text, int start, int end) {
  const bool multiline = box.Multiline();
  const int modelStart = ModelOffset(text, start, multiline);
  const int modelLength = ModelOffset(text, end, multiline) - modelStart;
  if (box.SelStart() == modelStart && box.SelLength() == modelLength) return;
  box.SetSelection(modelStart, modelLength);
}

void Binder::ConnectInput(Binding& binding) {
  switch (binding.model->Kind()) {
    case WidgetKind::kPicture:
    case WidgetKind::kLabel:
    case WidgetKind::kButton:
    case WidgetKind::kFrame:
      ConnectButtonLike(binding);
      break;
    case WidgetKind::kOption: {
      auto* option = static_cast<QRadioButton*>(binding.inner.data());
      pelkedit::Widget* model = binding.model;
      connect(option, &QRadioButton::clicked, this, [this, model] {
        Dispatch([this, model] {
          model->UserClick();
          // A click on the selected option leaves it selected.
          Apply(bindings_[index_.at(model)], "value");
        });
      });
      break;
    }
    case WidgetKind::kList: {
      auto* combo = static_cast<QComboBox*>(binding.inner.data());
      auto* list = static_cast<pelkedit::ListBox*>(binding.model);
      connect(combo, &QComboBox::activated, this,
              [this, list](int index) { Dispatch([list, index] { list->SetListIndex(index); }); });
      break;
    }
    case WidgetKind::kTextBox:
      ConnectText(binding);
      break;
    case WidgetKind::kDateEdit:
    case WidgetKind::kCalendar:
    case WidgetKind::kDateField:
      ConnectDates(binding);
      break;
    case WidgetKind::kRichText:
    case WidgetKind::kProductView:
      break;
  }
}

void Binder::ConnectButtonLike(Binding& binding) {
  binding.inner->installEventFilter(this);
  auto* button = qobject_cast<QPushButton*>(binding.inner.data());
  if (button == nullptr) return;
  pelkedit::Widget* model = binding.model;
  connect(button, &QPushButton::clicked, this, [this, model] {
    Dispatch([this, model] {
      // A click from the keyboard (a mnemonic) moves the focus first, as a press would.
      registry_.MoveFocus(model);
      model->UserClick();
    });
  });
}

void Binder::ConnectText(Binding& binding) {
  auto* box = static_cast<pelkedit::TextBox*>(binding.model);
  if (auto* line = qobject_cast<QLineEdit*>(binding.inner.data())) {
    connect(line, &QLineEdit::textEdited, this, [this, box](const QString& text) {
      if (applying_) return;
      Dispatch([box, text] { box->UserType(ToModelText(text, false)); });
    });
    return;
  }
  auto* plain = static_cast<QPlainTextEdit*>(binding.inner.data());
  connect(plain, &QPlainTextEdit::textChanged, this, [this, box, plain] {
    if (applying_) return;
    const QString text = plain->toPlainText();
    const QTextCursor cursor = plain->textCursor();
    const int start = cursor.selectionStart();
    const int end = cursor.selectionEnd();
    Dispatch([box, text, start, end] {
      box->UserType(ToModelText(text, true));
      SyncSelection(*box, text, start, end);
    });
  });
  // A caret moved within the text the model already has; while typing, the text comes first.
  const auto selection = [this, box, plain] {
    if (applying_) return;
    const QString text = plain->toPlainText();
    if (ToModelText(text, true) != box->Text()) return;
    const QTextCursor cursor = plain->textCursor();
    SyncSelection(*box, text, cursor.selectionStart(), cursor.selectionEnd());
  };
  connect(plain, &QPlainTextEdit::cursorPositionChanged, this, selection);
  connect(plain, &QPlainTextEdit::selectionChanged, this, selection);
}

void Binder::ConnectDates(Binding& binding) {
  auto* model = static_cast<pelkedit::DayValued*>(binding.model);
  if (auto* box = qobject_cast<DateEditBox*>(binding.placed.data())) {
    auto* dateEdit = static_cast<pelkedit::DateEdit*>(model);
    connect(box->DropButton(), &QToolButton::clicked, this,
            [this, dateEdit] { Dispatch([dateEdit] { dateEdit->UserDrop(); }); });
  }
  if (auto* edit = qobject_cast<QDateEdit*>(binding.inner.data())) {
    connect(edit, &QDateEdit::dateChanged, this, [this, model](const QDate& date) {
      if (applying_) return;
      Dispatch([this, model, date] {
        // Keep the model current as the user types; a refused day puts the model's back.
        if (!model->UserSetDay(DayOfDate(date))) Apply(bindings_[index_.at(model)], "day");
      });
    });
    return;
  }
  auto* box = static_cast<CalendarBox*>(binding.placed.data());
  auto* calendar = static_cast<pelkedit::Calendar*>(model);
  connect(box, &CalendarBox::datePicked, this, [this, calendar](const QDate& date) {
    Dispatch([calendar, date] { calendar->UserDateClick(date.year(), date.month(), date.day()); });
  });
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  const bool key = type == QEvent::KeyPress || type == QEvent::KeyRelease;
  const bool mouse = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
                     type == QEvent::MouseButtonDblClick;
  if (!key && !mouse) return QObject::eventFilter(watched, event);
  auto* widget = qobject_cast<QWidget*>(watched);
  Binding* binding = widget == nullptr ? nullptr : Find(widget);
  if (binding == nullptr || binding->inner != widget) return QObject::eventFilter(watched, event);
  if (key) return KeyEvent(*binding, event);
  // Option buttons and date edits are watched for their keys only.
  const WidgetKind kind = binding->model->Kind();
  if (kind == WidgetKind::kOption || kind == WidgetKind::kDateEdit ||
      kind == WidgetKind::kDateField) {
    return false;
  }
  MouseEvent(*binding, event);
  return QObject::eventFilter(watched, event);
}

void Binder::Press(pelkedit::Widget& model, int button, int shift, float x, float y) {
  const bool takesFocus = model.Kind() == WidgetKind::kPicture &&
                          static_cast<const pelkedit::PictureBox&>(model).TakesFocus();
  Dispatch([this, &model, button, shift, x, y, takesFocus] {
    if (takesFocus) registry_.MoveFocus(nullptr);
    model.UserMouseDown(button, shift, x, y);
  });
}

bool Binder::MouseEvent(Binding& binding, QEvent* event) {
  const auto* mouse = static_cast<QMouseEvent*>(event);
  const int button = ButtonCode(mouse->button());
  const int shift = ShiftCode(mouse->modifiers());
  // The models measure in the design's pixels.
  const auto x = static_cast<float>(mouse->position().x() / zoom_);
  const auto y = static_cast<float>(mouse->position().y() / zoom_);
  pelkedit::Widget* model = binding.model;
  const bool isButton = model->Kind() == WidgetKind::kButton;
  if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick) {
    Press(*model, button, shift, x, y);
    return true;
  }
  const bool inside = binding.inner && binding.inner->rect().contains(mouse->position().toPoint());
  Dispatch([model, button, shift, x, y, inside, isButton] {
    model->UserMouseUp(button, shift, x, y);
    // Push buttons raise their click through the button itself; the others click on release.
    if (inside && !isButton && button == kLeftButton) model->UserClick();
  });
  return true;
}

}  // namespace pelkor::desktop
