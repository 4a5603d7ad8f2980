// Model -> widget: copies a model's state into its Qt widget.
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextCursor>
#include <QTextEdit>
#include <cmath>

#include "binding/binder.h"
#include "binding/date_widgets.h"
#include "binding/picture_view.h"
#include "binding/rich_text.h"
#include "platform/platform.h"

namespace pelkor::desktop {

using pelkedit::WidgetKind;

namespace {

// Classic mouse pointer codes the editor uses, and the Qt shapes that show them.
constexpr std::int32_t kPointerDefault = 0;
constexpr std::int32_t kPointerArrow = 1;
constexpr std::int32_t kPointerCross = 2;
constexpr std::int32_t kPointerIBeam = 3;
constexpr std::int32_t kPointerHourglass = 11;
constexpr std::int32_t kPointerNoDrop = 12;
constexpr std::int32_t kPointerArrowHourglass = 13;
constexpr std::int32_t kPointerArrowQuestion = 14;
constexpr std::int32_t kPointerCustom = 99;

Qt::CursorShape ShapeOf(std::int32_t pointer) {
  switch (pointer) {
    case kPointerCross:
      return Qt::CrossCursor;
    case kPointerIBeam:
      return Qt::IBeamCursor;
    case kPointerHourglass:
      return Qt::WaitCursor;
    case kPointerNoDrop:
      return Qt::ForbiddenCursor;
    case kPointerArrowHourglass:
      return Qt::BusyCursor;
    case kPointerArrowQuestion:  // a click opens help
      return Qt::WhatsThisCursor;
    case kPointerCustom:  // the editor's own pointer marks clickable captions
      return Qt::PointingHandCursor;
    case kPointerArrow:
    default:
      return Qt::ArrowCursor;
  }
}

// Multi-line models keep CR LF line breaks; Qt's text widgets use LF.
QString ToWidgetText(const std::string& text) {
  return QString::fromStdString(text).replace("\r\n", "\n");
}

int Pixels(float value, bool inPixels, qreal zoom) {
  return static_cast<int>(
      std::lround((inPixels ? value : value / pelkedit::kTwipsPerPixel) * zoom));
}

// UTF-16 offset of a character position (positions in the models count code points).
int Utf16Offset(const QString& text, int characters) {
  int offset = 0;
  for (int i = 0; i < characters && offset < text.size(); ++i) {
    offset += text.at(offset).isHighSurrogate() ? 2 : 1;
  }
  return offset;
}

}  // namespace

void Binder::ApplyAll(Binding& binding) {
  const bool wasApplying = applying_;
  applying_ = true;
  for (const char* property :
       {"geometry", "enabled", "tooltip", "pointer", "font", "caption", "text", "list", "value",
        "bounds", "day", "dateorder", "picture", "locked", "visible"}) {
    Apply(binding, property);
  }
  binding.inner->setFocusPolicy(binding.model->Focusable() ? Qt::StrongFocus : Qt::NoFocus);
  applying_ = wasApplying;
}

void Binder::Apply(Binding& binding, const std::string& property) {
  if (binding.placed.isNull() || binding.inner.isNull()) return;
  const bool wasApplying = applying_;
  applying_ = true;
  pelkedit::Widget& model = *binding.model;
  if (property == "geometry") {
    ApplyGeometry(binding);
  } else if (property == "visible") {
    binding.placed->setVisible(model.Visible());
  } else if (property == "enabled") {
    binding.placed->setEnabled(model.Enabled());
  } else if (property == "tooltip") {
    binding.inner->setToolTip(QString::fromStdString(model.Tooltip()));
    ApplyAccessibleText(binding);
  } else if (property == "description") {
    ApplyAccessibleText(binding);
  } else if (property == "pointer") {
    if (model.Pointer() == kPointerDefault) {
      binding.placed->unsetCursor();
    } else {
      binding.placed->setCursor(ShapeOf(model.Pointer()));
    }
  } else if (property == "font") {
    if (!model.FontName().empty()) {
      QFont font = binding.inner->font();
      font.setFamily(AvailableFamily(model.FontName()));
      binding.inner->setFont(font);
    }
  } else if (property == "zorder") {
    binding.placed->raise();
  } else {
    ApplyKindSpecific(binding, property);
  }
  applying_ = wasApplying;
}

void Binder::ApplyGeometry(Binding& binding) {
  const pelkedit::Widget& m = *binding.model;
  const bool inPixels = m.PositionedInPixels();
  QRect rect(Pixels(m.Left(), inPixels, zoom_), Pixels(m.Top(), inPixels, zoom_),
             Pixels(m.Width(), inPixels, zoom_), Pixels(m.Height(), inPixels, zoom_));
  namespace anchor = pelkedit::anchor;
  const int how = m.Anchors();
  if (how & anchor::kFollowRight) rect.translate(extra_.width(), 0);
  if (how & anchor::kFollowBottom) rect.translate(0, extra_.height());
  if (how & anchor::kGrowWidth) rect.setWidth(rect.width() + extra_.width());
  if (how & anchor::kGrowHeight) rect.setHeight(rect.height() + extra_.height());
  if (how & anchor::kFollowHalfRight) rect.translate(extra_.width() / 2, 0);
  if (how & anchor::kGrowHalfWidth) rect.setWidth(rect.width() + extra_.width() / 2);
  binding.placed->setGeometry(rect);
}

void Binder::SetExtraRoom(QSize extra) {
  extra = extra.expandedTo(QSize(0, 0));
  if (extra == extra_) return;
  extra_ = extra;
  for (Binding& binding : bindings_) {
    if (binding.model->Anchors() != pelkedit::anchor::kNone) Apply(binding, "geometry");
  }
}

void Binder::ApplyKindSpecific(Binding& binding, const std::string& property) {
  pelkedit::Widget& model = *binding.model;
  const QString caption = QString::fromStdString(model.Caption());
  switch (model.Kind()) {
    case WidgetKind::kLabel:
      if (property == "caption") ApplyLabelCaption(binding);
      break;
    case WidgetKind::kButton:
      if (property == "caption") {
        static_cast<QPushButton*>(binding.inner.data())->setText(ShownCaption(model));
      }
      break;
    case WidgetKind::kFrame:
      if (property != "caption") break;
      binding.inner->setAccessibleName(caption);
      if (auto* group = qobject_cast<QGroupBox*>(binding.inner.data())) group->setTitle(caption);
      break;
    case WidgetKind::kOption: {
      auto* option = static_cast<QRadioButton*>(binding.inner.data());
      if (property == "caption") option->setText(caption);
      if (property == "value") {
        option->setChecked(static_cast<pelkedit::OptionButton&>(model).Value());
        if (!buddies_.empty()) UpdateTabStops(binding);
      }
      break;
    }
    case WidgetKind::kTextBox: {
      auto& box = static_cast<pelkedit::TextBox&>(model);
      const QString text = ToWidgetText(box.Text());
      if (auto* line = qobject_cast<QLineEdit*>(binding.inner.data())) {
        if (property == "text" && line->text() != text) {
          line->setText(text);
          // A text the editor puts into a field shows its start, as it reads; the user's own
          // typing keeps its place.
          if (!line->hasFocus()) line->setCursorPosition(0);
        }
        if (property == "locked") line->setReadOnly(box.Locked());
        if (property == "selection") {
          const int start = Utf16Offset(text, box.SelStart());
          line->setSelection(start, Utf16Offset(text, box.SelStart() + box.SelLength()) - start);
        }
      } else if (auto* plain = qobject_cast<QPlainTextEdit*>(binding.inner.data())) {
        if (property == "text" && plain->toPlainText() != text) {
          // What the editor inserts (a date stamp) leaves the caret after it, where the user's
          // typing goes on; the model takes that caret too.
          const QString old = plain->toPlainText();
          const QTextCursor before = plain->textCursor();
          const QString kept = old.mid(before.selectionEnd());
          const bool insertedAtCaret =
              !old.isEmpty() && text.startsWith(old.left(before.selectionStart())) &&
              text.endsWith(kept) && text.size() >= before.selectionStart() + kept.size();
          plain->setPlainText(text);
          if (insertedAtCaret) {
            QTextCursor cursor = plain->textCursor();
            cursor.setPosition(static_cast<int>(text.size() - kept.size()));
            plain->setTextCursor(cursor);
            SyncSelection(box, text, cursor.position(), cursor.position());
          }
        }
        if (property == "locked") plain->setReadOnly(box.Locked());
      }
      break;
    }
    case WidgetKind::kList:
      if (property == "list" || property == "listindex") ApplyList(binding);
      break;
    case WidgetKind::kPicture:
      if (property == "picture") ApplyPicture(binding);
      break;
    case WidgetKind::kDateEdit:
    case WidgetKind::kCalendar:
    case WidgetKind::kDateField:
      if (property == "bounds" || property == "dateorder") ApplyDayBounds(binding);
      if (property == "day" || property == "bounds") ApplyDay(binding);
      break;
    case WidgetKind::kRichText:
      if (property == "text" || property == "format" || property == "font") {
        auto* edit = static_cast<QTextEdit*>(binding.inner.data());
        RenderRichText(static_cast<pelkedit::RichTextBox&>(model), *edit->document());
      }
      break;
    case WidgetKind::kProductView:
      break;
  }
}

void Binder::ApplyList(Binding& binding) {
  auto& list = static_cast<pelkedit::ListBox&>(*binding.model);
  auto* combo = static_cast<QComboBox*>(binding.inner.data());
  QStringList items;
  for (std::int32_t i = 0; i < list.ListCount(); ++i) items << QString::fromStdString(list.List(i));
  QStringList shown;
  for (int i = 0; i < combo->count(); ++i) shown << combo->itemText(i);
  if (shown != items) {
    combo->clear();
    combo->addItems(items);
  }
  combo->setCurrentIndex(list.ListIndex());
}

void Binder::ApplyPicture(Binding& binding) {
  const auto& model = static_cast<const pelkedit::PictureBox&>(*binding.model);
  const int id = model.Picture() != 0 ? model.Picture() : model.DesignPicture();
  auto* view = static_cast<PictureView*>(binding.inner.data());
  if (id == 0) {
    view->SetPixmap(QPixmap());
    return;
  }
  view->SetPixmapSource([this, id] { return PictureOf(id); });
}

void Binder::ApplyDayBounds(Binding& binding) {
  const auto& model = static_cast<const pelkedit::DayValued&>(*binding.model);
  const QDate first = DateOfDay(ClampToShowable(model.MinDay()));
  const QDate last = DateOfDay(ClampToShowable(model.MaxDay()));
  if (auto* edit = qobject_cast<QDateEdit*>(binding.inner.data())) {
    edit->setDateRange(first, last);
    const int order = model.Kind() == WidgetKind::kDateEdit
                          ? static_cast<const pelkedit::DateEdit&>(model).DateOrder()
                          : DateOrderOf(options_.shortDateFormat);
    edit->setDisplayFormat(MaskedDateFormat(options_.shortDateFormat, order));
  } else if (auto* calendar = qobject_cast<CalendarBox*>(binding.inner.data())) {
    calendar->SetDateRange(first, last);
  }
}

void Binder::ApplyDay(Binding& binding) {
  const auto& model = static_cast<const pelkedit::DayValued&>(*binding.model);
  const QDate date = DateOfDay(ClampToShowable(model.Day()));
  if (auto* edit = qobject_cast<QDateEdit*>(binding.inner.data())) {
    if (edit->date() != date) edit->setDate(date);
  } else if (auto* calendar = qobject_cast<CalendarBox*>(binding.inner.data())) {
    calendar->SetSelectedDate(date);
  }
}

}  // namespace pelkor::desktop
