#include "app/window_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTextDocument>
#include <QTextEdit>

#include "app/host_help.h"

#include "app/host_window.h"
#include "contracts/names.h"
#include "control/tab_strips.h"
#include "widgets/controls.h"

namespace pelkor::desktop {
namespace {

constexpr int kLeftButton = 1;

// Presses the band `step` tabs on from `current` on a strip picture.
void PressNext(HostWindow& window, const char* stripName, const pelkedit::TabStrip& strip,
               std::int32_t current, int step) {
  const auto count = static_cast<int>(strip.bands.size());
  int at = 0;
  for (int i = 0; i < count; ++i) {
    if (strip.bands[static_cast<std::size_t>(i)].tab == current) at = i;
  }
  const pelkedit::TabBand& band =
      strip.bands[static_cast<std::size_t>(((at + step) % count + count) % count)];
  const float centre = static_cast<float>(band.first + band.last) / 2.0F;
  auto& picture = window.Component()->Widgets().Get<pelkedit::PictureBox>(stripName);
  // As the user's press on the strip: the field being edited commits first, and the focus then
  // goes to the page shown (after every user action).
  window.Binding()->Press(picture, kLeftButton, 0, centre, 0);
}

void Bind(HostWindow& window, const QKeySequence& keys, const std::function<void()>& action) {
  auto* shortcut = new QShortcut(keys, &window);
  shortcut->setContext(Qt::WindowShortcut);
  QObject::connect(shortcut, &QShortcut::activated, &window, action);
}

}  // namespace

void StepMainTab(HostWindow& window, int step) {
  if (window.Component() == nullptr || window.Binding() == nullptr) return;
  const auto& state = window.Component()->State();
  PressNext(window, pelkedit::widget::picMainTab, pelkedit::MainStrip(state.expertView),
            state.mainTab, step);
}

void StepPhase(HostWindow& window, int step) {
  if (window.Component() == nullptr || window.Binding() == nullptr) return;
  const auto& state = window.Component()->State();
  if (state.mainTab != pelkedit::tab::kSalesEnvironment) return;
  PressNext(window, pelkedit::widget::picSEnvTab, pelkedit::PhaseStrip(), state.sEnvTab, step);
}

void InstallWindowKeys(HostWindow& window) {
  // F1 opens the topic of the question in focus, or else the nearest one.
  Bind(window, QKeySequence(Qt::Key_F1), [&window] {
    if (window.Binding() != nullptr && window.Binding()->HelpForFocus()) return;
    ShowHelpTopic(window.Platform(), NearestHelpTopic(window, QApplication::focusWidget()));
  });
  HostWindow* w = &window;
  for (const auto& keys :
       {QKeySequence(Qt::CTRL | Qt::Key_Tab), QKeySequence(Qt::CTRL | Qt::Key_PageDown)}) {
    Bind(window, keys, [w] { StepMainTab(*w, 1); });
  }
  for (const auto& keys : {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab),
                           QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab),
                           QKeySequence(Qt::CTRL | Qt::Key_PageUp)}) {
    Bind(window, keys, [w] { StepMainTab(*w, -1); });
  }
  for (const auto& keys : {QKeySequence(Qt::ALT | Qt::Key_PageDown),
                           QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_PageDown)}) {
    Bind(window, keys, [w] { StepPhase(*w, 1); });
  }
  for (const auto& keys : {QKeySequence(Qt::ALT | Qt::Key_PageUp),
                           QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_PageUp)}) {
    Bind(window, keys, [w] { StepPhase(*w, -1); });
  }
  Bind(window, QKeySequence::Save, [w] {
    if (w->Binding() == nullptr) return;
    if (auto* save =
            qobject_cast<QPushButton*>(w->Binding()->WidgetFor(pelkedit::widget::cmdSave))) {
      save->click();
    }
  });
}

namespace {

class TextUndoFirst : public QObject {
 public:
  explicit TextUndoFirst(QWidget& window) : QObject(&window), window_(window) {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::ShortcutOverride) return false;
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || !window_.isAncestorOf(widget)) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool undo = key->matches(QKeySequence::Undo);
    const bool redo = key->matches(QKeySequence::Redo) ||
                      key->keyCombination() == QKeyCombination(Qt::CTRL, Qt::Key_Y);
    if (!undo && !redo) return false;
    // Swallowed unanswered, the override is not taken by the box and the shortcut goes to the
    // menu's action.
    return !BoxCanTakeBack(watched, undo);
  }

 private:
  static bool BoxCanTakeBack(QObject* watched, bool undo) {
    if (const auto* line = qobject_cast<QLineEdit*>(watched)) {
      return undo ? line->isUndoAvailable() : line->isRedoAvailable();
    }
    const QTextDocument* document = nullptr;
    if (const auto* plain = qobject_cast<QPlainTextEdit*>(watched)) document = plain->document();
    if (const auto* rich = qobject_cast<QTextEdit*>(watched)) document = rich->document();
    if (document == nullptr) return true;
    return undo ? document->isUndoAvailable() : document->isRedoAvailable();
  }

  QWidget& window_;
};

}  // namespace

void InstallTextUndoFirst(HostWindow& window) {
  auto* filter = new TextUndoFirst(window);
  // Every text box of the window, including those of pages built later.
  qApp->installEventFilter(filter);
}

}  // namespace pelkor::desktop
