#include "app/first_paint.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace pelkor::desktop {

QuitAfterFirstPaint::QuitAfterFirstPaint(QWidget& window) : QObject(&window) {
  window.installEventFilter(this);
}

bool QuitAfterFirstPaint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Paint) {
    watched->removeEventFilter(this);
    // After this paint has reached the screen.
    QTimer::singleShot(0, qApp, &QApplication::quit);
  }
  return false;
}

}  // namespace pelkor::desktop
