#include "app/window_keys.h"

#include <QApplication>

#include "app/host_help.h"

#include <QPushButton>
#include <QShortcut>

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

}  // namespace pelkor::desktop
