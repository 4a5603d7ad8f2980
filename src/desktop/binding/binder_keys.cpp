// The keyboard: one Tab stop per option group with the arrows moving within it, label
// mnemonics that focus what the label names, the calendar from the keyboard, and buttons that
// act while Space is held as they do while the mouse is held.
#include <QDateTimeEdit>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "binding/binder.h"
#include "binding/date_widgets.h"

namespace pelkor::desktop {

using pelkedit::WidgetKind;

namespace {

// Letters the host window's own menus use.
const QString kMenuMnemonics = "FI";

// Captions mark a mnemonic the classic way: "&S" marks S and "&&" is one ampersand.
// The position of the marked character, or -1.
int MarkedMnemonic(const QString& caption) {
  for (int i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return i + 1;
    ++i;
  }
  return -1;
}

// The caption with '&' inserted before its character at `at`.
QString WithMnemonic(const QString& caption, int at) {
  return caption.left(at) + '&' + caption.mid(at);
}

// The letters captions mark themselves ("&Save").
QString MarkedMnemonics(const std::vector<pelkedit::Widget*>& models) {
  QString marked;
  for (const pelkedit::Widget* model : models) {
    const QString caption = QString::fromStdString(model->Caption());
    const int at = MarkedMnemonic(caption);
    if (at >= 0) marked += caption[at].toUpper();
  }
  return marked;
}

// The first letter of a word of the caption not yet taken, else any free letter; -1 if none.
int ChooseMnemonic(const QString& caption, QString& taken) {
  for (const bool wordStartsOnly : {true, false}) {
    for (int i = 0; i < caption.size(); ++i) {
      const QChar c = caption[i].toUpper();
      if (caption[i] == '&') continue;
      const bool wordStart = i == 0 || !caption[i - 1].isLetterOrNumber();
      if (!c.isLetter() || taken.contains(c) || (wordStartsOnly && !wordStart)) continue;
      taken += c;
      return i;
    }
  }
  return -1;
}

bool IsArrow(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right;
}

}  // namespace

QString Binder::Unmarked(const QString& caption) {
  QString text;
  for (int i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) ++i;
    text += caption[i];
  }
  return text;
}

void Binder::ChooseKeys() {
  // Mnemonics are unique within a frame (only one page's frame is shown at a time) and differ
  // from the menus' and from those the captions mark themselves.
  const QString reserved = kMenuMnemonics + MarkedMnemonics(registry_.All());
  std::map<const pelkedit::Widget*, QString> taken;
  // Rows that repeat a caption ("Relationship" for each decision maker) share its letter:
  // pressing it again moves on to the next of them.
  std::map<std::pair<const pelkedit::Widget*, QString>, int> chosen;
  const auto chooseFor = [&](const pelkedit::Widget& model) {
    const QString caption = QString::fromStdString(model.Caption());
    if (caption.isEmpty() || MarkedMnemonic(caption) >= 0) return;
    const auto key = std::make_pair(model.Parent(), caption);
    if (const auto same = chosen.find(key); same != chosen.end()) {
      mnemonics_[&model] = same->second;
      return;
    }
    auto [it, fresh] = taken.try_emplace(model.Parent(), reserved);
    mnemonics_[&model] = chosen[key] = ChooseMnemonic(caption, it->second);
  };
  const std::vector<pelkedit::Widget*>& models = registry_.All();
  for (std::size_t i = 0; i < models.size(); ++i) {
    const pelkedit::Widget& model = *models[i];
    if (model.Kind() == WidgetKind::kButton) chooseFor(model);
    if (model.Kind() != WidgetKind::kLabel) continue;
    // A label names the next widget the keyboard can reach on the same frame.
    for (std::size_t j = i + 1; j < models.size(); ++j) {
      const pelkedit::Widget& next = *models[j];
      if (next.Parent() != model.Parent()) continue;
      // A label names an input: a button beside it has a caption of its own.
      if (next.Kind() == WidgetKind::kLabel || next.Kind() == WidgetKind::kButton) break;
      const pelkedit::Widget* named = &next;
      // A frame holding an option pair stands for the options inside it.
      if (named->Kind() == WidgetKind::kFrame) named = FirstFocusableIn(*named);
      if (named == nullptr || !named->Focusable()) continue;
      buddies_[&model] = named;
      questions_[named] = &model;
      chooseFor(model);
      break;
    }
  }
}

void Binder::ConnectKeys(Binding& binding) {
  const WidgetKind kind = binding.model->Kind();
  if (kind == WidgetKind::kOption || kind == WidgetKind::kDateEdit ||
      kind == WidgetKind::kDateField || kind == WidgetKind::kButton ||
      !binding.model->LookUpPicture().empty()) {
    binding.inner->installEventFilter(this);
  }
  if (IsLookupPicture(binding.model->Name())) {
    binding.inner->setFocusPolicy(Qt::StrongFocus);
    binding.inner->setToolTip(tr("Look up in the contact book (F4 in the name)"));
    binding.inner->setAccessibleName(tr("Look up in the contact book"));
  }
  if (kind == WidgetKind::kOption) UpdateTabStops(binding);
}

const pelkedit::Widget* Binder::FirstFocusableIn(const pelkedit::Widget& frame) const {
  for (const pelkedit::Widget* model : registry_.All()) {
    if (model->Parent() == &frame && model->Focusable()) return model;
  }
  return nullptr;
}

QString Binder::ShownCaption(const pelkedit::Widget& model) const {
  const QString caption = QString::fromStdString(model.Caption());
  const auto mnemonic = mnemonics_.find(&model);
  if (mnemonic == mnemonics_.end() || mnemonic->second < 0) return caption;
  return WithMnemonic(caption, mnemonic->second);
}

void Binder::ApplyLabelCaption(Binding& binding) {
  if (!binding.inner) return;
  auto* label = static_cast<QLabel*>(binding.inner.data());
  const auto buddy = buddies_.find(binding.model);
  if (buddy == buddies_.end()) {
    label->setTextFormat(Qt::PlainText);
    label->setText(Unmarked(QString::fromStdString(binding.model->Caption())));
    return;
  }
  label->setText(ShownCaption(*binding.model));
  label->setBuddy(TabStopOf(*buddy->second));
  if (const auto named = index_.find(buddy->second); named != index_.end()) {
    ApplyAccessibleText(bindings_[named->second]);
  }
}

QWidget* Binder::TabStopOf(const pelkedit::Widget& model) {
  const auto it = index_.find(&model);
  if (it == index_.end()) return nullptr;
  Binding& binding = bindings_[it->second];
  if (model.Kind() != WidgetKind::kOption) return binding.inner;
  for (Binding* member : GroupOf(binding)) {
    if (member->inner && member->inner->focusPolicy() & Qt::TabFocus) return member->inner;
  }
  return binding.inner;
}

std::vector<Binder::Binding*> Binder::GroupOf(Binding& option) {
  const auto* group = static_cast<const pelkedit::OptionButton&>(*option.model).Group();
  if (group == nullptr) return {&option};
  std::vector<Binding*> members;
  for (const pelkedit::OptionButton* member : group->Members()) {
    const auto it = index_.find(member);
    if (it != index_.end()) members.push_back(&bindings_[it->second]);
  }
  return members;
}

// Tab reaches a group once: on its selected option, or its first when none is selected.
void Binder::UpdateTabStops(Binding& option) {
  const std::vector<Binding*> members = GroupOf(option);
  Binding* stop = members.front();
  for (Binding* member : members) {
    if (static_cast<const pelkedit::OptionButton&>(*member->model).Value()) stop = member;
  }
  for (Binding* member : members) {
    if (member->inner)
      member->inner->setFocusPolicy(member == stop ? Qt::StrongFocus : Qt::ClickFocus);
  }
  // The labels of the group now name its new Tab stop.
  for (const auto& [label, buddy] : buddies_) {
    if (std::find_if(members.begin(), members.end(), [buddy = buddy](const Binding* m) {
          return m->model == buddy;
        }) != members.end()) {
      ApplyLabelCaption(bindings_[index_.at(label)]);
    }
  }
}

// The look-up picture of a name box, when the key opens it: F4 or Alt+Down in the box, Space
// or Enter on the picture.
pelkedit::Widget* Binder::LookupOpenedBy(const Binding& binding, const QKeyEvent& key) const {
  const std::string& name = binding.model->Name();
  const bool drop =
      key.key() == Qt::Key_F4 || (key.key() == Qt::Key_Down && key.modifiers() & Qt::AltModifier);
  if (const std::string& picture = binding.model->LookUpPicture(); !picture.empty() && drop) {
    return registry_.Find(picture);
  }
  const bool press =
      key.key() == Qt::Key_Space || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  return press && IsLookupPicture(name) ? binding.model : nullptr;
}

bool Binder::IsLookupPicture(const std::string& name) const {
  return lookUpPictures_.count(name) != 0;
}

bool Binder::KeyEvent(Binding& binding, QEvent* event) {
  const auto* key = static_cast<QKeyEvent*>(event);
  const bool press = event->type() == QEvent::KeyPress;
  pelkedit::Widget* model = binding.model;
  if (pelkedit::Widget* lookup = LookupOpenedBy(binding, *key)) {
    if (press && !key->isAutoRepeat()) {
      // The name typed so far is committed first, as a click on the picture would do.
      Dispatch([this, lookup, model] {
        registry_.MoveFocus(nullptr);
        lookup->UserClick();
        // Typing in the box goes on after the look-up and is committed when the box is left.
        if (model->Focusable()) registry_.MoveFocus(model);
      });
    }
    return true;
  }
  switch (model->Kind()) {
    case WidgetKind::kOption: {
      if (!press || !IsArrow(key->key())) return false;
      const std::vector<Binding*> members = GroupOf(binding);
      const auto at = std::find(members.begin(), members.end(), &binding) - members.begin();
      const bool forward = key->key() == Qt::Key_Down || key->key() == Qt::Key_Right;
      const auto next = at + (forward ? 1 : -1);
      // The arrows stop at the ends of the group: they never reach the next question.
      if (next < 0 || next >= static_cast<std::ptrdiff_t>(members.size())) return true;
      Binding* target = members[static_cast<std::size_t>(next)];
      target->inner->setFocus(Qt::TabFocusReason);
      static_cast<QRadioButton*>(target->inner.data())->click();
      return true;
    }
    case WidgetKind::kDateEdit: {
      const bool opens = key->key() == Qt::Key_F4 ||
                         (key->key() == Qt::Key_Down && key->modifiers() & Qt::AltModifier);
      if (!opens) return press && TypeIntoDate(binding, event);
      if (press) {
        auto* dateEdit = static_cast<pelkedit::DateEdit*>(model);
        Dispatch([dateEdit] { dateEdit->UserDrop(); });
      }
      return true;
    }
    case WidgetKind::kDateField:
      return press && TypeIntoDate(binding, event);
    case WidgetKind::kButton: {
      if (key->key() != Qt::Key_Space || key->isAutoRepeat()) return false;
      // Space held works as the mouse held: the button's press and release reach the model.
      if (press) {
        Dispatch([model] { model->UserMouseDown(1, 0, 0, 0); });
      } else {
        Dispatch([model] { model->UserMouseUp(1, 0, 0, 0); });
      }
      return false;  // the button still clicks on release, as Space does
    }
    default:
      return false;
  }
}

// Qt moves on to the next part of a date as soon as one is complete, so the separator typed
// after it would skip a part: "27/11/2026" would become 27/09/1. A separator right after such
// a move is taken as the move itself.
bool Binder::TypeIntoDate(Binding& binding, QEvent* event) {
  auto* edit = qobject_cast<QDateTimeEdit*>(binding.inner.data());
  const auto* key = static_cast<QKeyEvent*>(event);
  const QString text = key->text();
  if (edit == nullptr || text.size() != 1) {
    movedOnIn_ = nullptr;
    return false;
  }
  const QChar typed = text.front();
  if (typed.isDigit()) {
    const auto before = edit->currentSection();
    static_cast<QObject*>(edit)->event(event);
    movedOnIn_ = edit->currentSection() != before ? edit : nullptr;
    return true;
  }
  const bool separator = !typed.isLetterOrNumber() && !typed.isSpace();
  const bool swallow = separator && movedOnIn_ == edit;
  movedOnIn_ = nullptr;
  return swallow;
}

bool Binder::HelpForFocus() {
  const pelkedit::Widget* focused = registry_.Focused();
  if (focused == nullptr) return false;
  const auto* option = dynamic_cast<const pelkedit::OptionButton*>(focused);
  for (const auto& [label, named] : buddies_) {
    const auto* namedOption = dynamic_cast<const pelkedit::OptionButton*>(named);
    const bool sameGroup = option != nullptr && namedOption != nullptr &&
                           option->Group() != nullptr && option->Group() == namedOption->Group();
    if (named != focused && !sameGroup) continue;
    pelkedit::Widget* model = bindings_[index_.at(label)].model;
    if (!model->onClick) return false;
    Dispatch([model] { model->UserClick(); });
    return true;
  }
  return false;
}

}  // namespace pelkor::desktop
