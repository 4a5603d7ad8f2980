// The yardstick for pelkor-edit's start-up: a bare Qt window showing one label, started and
// ended the same way (shown, its first paint done, then quit).
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QTimer>

namespace {

class QuitAfterPaint : public QObject {
 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      watched->removeEventFilter(this);
      QTimer::singleShot(0, qApp, &QApplication::quit);
    }
    return false;
  }
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QLabel label("Pelkor");
  label.resize(600, 440);
  QuitAfterPaint quit;
  label.installEventFilter(&quit);
  label.show();
  return QApplication::exec();
}
