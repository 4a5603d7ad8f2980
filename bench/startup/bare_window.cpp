// The yardstick for pelkor-edit's start-up: a bare Qt window showing one label, started and
// ended the same way (shown, its first paint done, then quit). An argument WIDTHxHEIGHT gives
// it the size of the window it is compared with, bounded to 90% of the screen as the pipeline
// is: the window's pixels cost memory and time of their own.
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QScreen>
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

constexpr QSize kDefaultSize(600, 440);
constexpr double kScreenShare = 0.9;

QSize SizeAsked(const QStringList& arguments) {
  const QStringList parts = arguments.size() > 1 ? arguments.at(1).split('x') : QStringList();
  if (parts.size() != 2) return kDefaultSize;
  const QSize size(parts.at(0).toInt(), parts.at(1).toInt());
  if (size.isEmpty()) return kDefaultSize;
  return size.boundedTo(QApplication::primaryScreen()->availableGeometry().size() * kScreenShare);
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
