#include "app/host_help.h"

#include <QShortcut>

#include "app/host_window.h"
#include "contracts/names.h"
#include "control/tab_strips.h"
#include "help/context_help.h"
#include "values/error.h"

namespace pelkor::desktop {
namespace {

constexpr const char* kTitle = "Pelkor";

bool Within(const QWidget* focus, const QWidget* widget) {
  return widget != nullptr && focus != nullptr && (focus == widget || widget->isAncestorOf(focus));
}

}  // namespace

std::int32_t NearestHelpTopic(HostWindow& window, const QWidget* focus) {
  auto* component = window.Component();
  auto* binder = window.Binding();
  if (component == nullptr || binder == nullptr) return help_topic::kSaving;
  if (Within(focus, binder->PlacedWidgetFor(pelkedit::widget::ProductView1))) {
    return help_topic::kProducts;
  }
  if (Within(focus, binder->WidgetFor(pelkedit::widget::cmdSave)) ||
      Within(focus, binder->WidgetFor(pelkedit::widget::cmdCancel))) {
    return help_topic::kSaving;
  }
  const auto& state = component->State();
  switch (state.mainTab) {
    case pelkedit::tab::kSalesAdvisor:
      return help_topic::kSalesAdvisor;
    case pelkedit::tab::kSalesEnvironment:
      if (state.sEnvTab == pelkedit::tab::kProve) return help_topic::kProve;
      if (state.sEnvTab == pelkedit::tab::kClose) return help_topic::kClose;
      return help_topic::kProbe;
    case pelkedit::tab::kIboInfo:
      return help_topic::kContact;
    case pelkedit::tab::kIboNote:
      return help_topic::kNote;
    default:
      return help_topic::kEssentials;
  }
}

void ShowHelpTopic(QtPlatform& platform, std::int32_t mapId) {
  try {
    // The request the editor makes for its questions' labels, with its settings and checks.
    pelkedit::OpenHelpTopic(platform, mapId);
  } catch (const pelkedit::PelkError& error) {
    platform.MsgBox(error.Description(), pelkedit::MsgIcon::kExclamation, pelkedit::MsgButtons::kOk,
                    kTitle);
  }
}

void InstallHelpKey(QWidget& dialog, QtPlatform& platform, std::int32_t mapId) {
  auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &dialog);
  QObject::connect(key, &QShortcut::activated, &dialog,
                   [&platform, mapId] { ShowHelpTopic(platform, mapId); });
}

}  // namespace pelkor::desktop
