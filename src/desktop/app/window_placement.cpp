#include "app/window_placement.h"

#include <QSettings>
#include <QWidget>

namespace pelkor::desktop {
namespace {

constexpr const char* kGeometryKey = "window/geometry";

QSettings UserSettings() {
  return QSettings(QSettings::IniFormat, QSettings::UserScope, "pelkor", "pelkor-edit");
}

}  // namespace

void RestorePlacement(QWidget& window) {
  // Qt keeps a saved place on a screen that is still there, else brings it onto one.
  window.restoreGeometry(UserSettings().value(kGeometryKey).toByteArray());
}

void SavePlacement(const QWidget& window) {
  UserSettings().setValue(kGeometryKey, window.saveGeometry());
}

}  // namespace pelkor::desktop
