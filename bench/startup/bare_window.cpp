// The yardstick for pelkor-edit's start-up: a bare Qt window showing one label, started and
// ended the same way (shown, its first paint done, then quit). The argument "pipeline" gives it
// the size a new user's pipeline takes on this screen: the window's pixels cost memory and time
// of their own.
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QScreen>
#include <QTimer>

#include "pipeline/pipeline_size.h"

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

// The editor's window at its design size.
constexpr QSize kEditorSize(600, 440);

QSize SizeAsked(const QStringList& arguments) {
  if (arguments.size() < 2 || arguments.at(1) != "pipeline") return kEditorSize;
  return pelkor::desktop::NewUserPipelineSize(QApplication::primaryScreen());
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QLabel label("Pelkor");
  label.resize(SizeAsked(QApplication::arguments()));
  QuitAfterPaint quit;
  label.installEventFilter(&quit);
  label.show();
  return QApplication::exec();
}
