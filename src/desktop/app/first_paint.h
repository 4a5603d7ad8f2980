#pragma once

#include <QObject>

class QWidget;

namespace pelkor::desktop {

// Quits the application once `window` has painted for the first time (start-up measurements).
class QuitAfterFirstPaint : public QObject {
 public:
  explicit QuitAfterFirstPaint(QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace pelkor::desktop
