// The yardstick for pelkor-edit's start-up: a bare Qt window showing one label, started and
// ended the same way (shown, its first paint done, then quit).
#include <QApplication>
#include <QLabel>
#include <QTimer>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QLabel label("Pelkor");
  label.resize(600, 440);
  label.show();
  QTimer::singleShot(0, &application, &QApplication::quit);
  return QApplication::exec();
}
