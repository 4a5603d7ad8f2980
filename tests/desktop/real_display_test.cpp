// What only a real X display shows: the phase strip painted when Sales Environment is first
// opened (no press on it), and the date stamp going where the note's caret is. Run under
// xvfb-run when there is no display.
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QtTest>
#include <set>

#include "binding/picture_view.h"
#include "host_fixture.h"

using namespace host_fixture;
using pelkor::desktop::PictureView;

namespace {

constexpr int kSalesEnvironmentX = 213;
constexpr int kIboNoteX = 376;
// Long enough for the X server to show what was painted.
constexpr int kSettleMs = 300;

void PressMainTab(Host& host, int x) {
  QTest::mouseClick(host.Qt<PictureView>("picMainTab"), Qt::LeftButton, {}, QPoint(x, 10));
}

// What the X server shows where `widget` is: the screen's pixels, not the widget's own drawing.
QImage OnScreen(QWidget* widget) {
  const QPoint origin = widget->mapToGlobal(QPoint(0, 0));
  return widget->screen()
      ->grabWindow(0, origin.x(), origin.y(), widget->width(), widget->height())
      .toImage();
}

std::set<QRgb> ColoursOf(const QImage& shot) {
  std::set<QRgb> colours;
  for (int y = 0; y < shot.height(); ++y) {
    for (int x = 0; x < shot.width(); ++x) colours.insert(shot.pixel(x, y));
  }
  return colours;
}

bool OpenOnScreen(Host& host) {
  if (!host.window->OpenIbo(kExpertIbo, kMainView)) return false;
  host.window->show();
  host.window->activateWindow();
  return QTest::qWaitForWindowExposed(host.window.get());
}

}  // namespace

class RealDisplayTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { QCOMPARE(QGuiApplication::platformName(), QString("xcb")); }

  void thePhaseStripIsPaintedWhenSalesEnvironmentOpens() {
    Host host;
    QVERIFY(OpenOnScreen(host));
    PressMainTab(host, kSalesEnvironmentX);
    auto* strip = host.Qt<PictureView>("picSEnvTab");
    QVERIFY(strip != nullptr && strip->isVisible());
    // What the screen showed before the press (Essentials' text) is gone by now.
    QTest::qWait(kSettleMs);
    // An empty band is one colour; the strip has its tabs' faces, edges and captions.
    QVERIFY(ColoursOf(OnScreen(strip)).size() > 8);
  }

  void theDateStampGoesWhereTheCaretIs() {
    Host host;
    QVERIFY(OpenOnScreen(host));
    PressMainTab(host, kIboNoteX);
    auto* note = host.Qt<QPlainTextEdit>("txtIboNote");
    QTest::mouseClick(note->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    QTest::keyClick(note, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(note, Qt::Key_Return);
    QTest::keyClicks(note, "Call with Helen: ");
    const QString before = note->toPlainText();
    QTest::mouseClick(host.Qt<QPushButton>("cmdDateStamp"), Qt::LeftButton);
    // Today's date, in whatever short format the user has, right after what was typed.
    QVERIFY(note->toPlainText().startsWith(before));
    QVERIFY(note->toPlainText()
                .mid(before.size())
                .contains(QString::number(QDate::currentDate().year())));
    // The caret follows the stamp, so typing goes on after it.
    QTest::mouseClick(note->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    QTest::keyClick(note, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(note, " went well");
    QVERIFY(note->toPlainText().endsWith(" went well"));
    QCOMPARE(note->toPlainText().count("Call with Helen: "), 1);

    // A word selected at the start is replaced by the stamp, not the text after the caret.
    QTextCursor cursor = note->textCursor();
    cursor.setPosition(0);
    cursor.movePosition(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
    const QString word = cursor.selectedText();
    note->setTextCursor(cursor);
    const QString rest = note->toPlainText().mid(word.size());
    QTest::mouseClick(host.Qt<QPushButton>("cmdDateStamp"), Qt::LeftButton);
    QVERIFY(note->toPlainText().endsWith(rest));
    QVERIFY(!note->toPlainText().startsWith(word));
  }
};

QTEST_MAIN(RealDisplayTest)
#include "real_display_test.moc"
