#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>
#include <functional>

#include "binding/date_widgets.h"
#include "dialogs/frm_start_date.h"
#include "platform/modal_dialog.h"
#include "platform/qt_platform.h"
#include "trace/mod_init.h"
#include "trace/trace_log.h"
#include "values/error.h"
#include "widgets/controls.h"

using namespace pelkedit;
using pelkor::desktop::DateOrderOf;
using pelkor::desktop::QtPlatform;

namespace {

// Runs `act` on the modal window once it is up.
void WhenModalShows(std::function<void(QWidget*)> act) {
  QTimer::singleShot(0, [act] {
    QWidget* modal = QApplication::activeModalWidget();
    QVERIFY(modal != nullptr);
    act(modal);
  });
}

// A dialog with one button that closes it, as the editor's dialogs do.
class OkDialog : public ModalDialog {
 public:
  OkDialog() {
    auto& ok = Widgets().Make<Button>("cmdOk");
    ok.SetCaption("OK");
    ok.Move(150, 150, 1200, 375);
    ok.onClick = [this] {
      accepted = true;
      Close();
    };
  }
  std::string Name() const override { return "frmOk"; }
  std::string Caption() const override { return "Confirm"; }
  int WidthPixels() const override { return 120; }
  int HeightPixels() const override { return 50; }
  bool loaded = false;
  bool accepted = false;

 protected:
  void OnLoad() override { loaded = true; }
};

}  // namespace

class PlatformTest : public QObject {
  Q_OBJECT

 private slots:
  void messageBoxShowsTheTextAndReturnsTheAnswer() {
    ObjectFactory factory;
    QtPlatform platform(factory);
    QString seenText, seenTitle;
    QMessageBox::Icon seenIcon = QMessageBox::NoIcon;
    int buttonCount = 0;
    WhenModalShows([&](QWidget* modal) {
      auto* box = qobject_cast<QMessageBox*>(modal);
      QVERIFY(box != nullptr);
      seenText = box->text();
      seenTitle = box->windowTitle();
      seenIcon = box->icon();
      buttonCount = static_cast<int>(box->buttons().size());
      box->button(QMessageBox::No)->click();
    });
    const MsgAnswer answer = platform.MsgBox("Save changes to this IBO?", MsgIcon::kQuestion,
                                             MsgButtons::kYesNoCancel, "Pelkor");
    QCOMPARE(answer, MsgAnswer::kNo);
    QCOMPARE(seenText, QString("Save changes to this IBO?"));
    QCOMPARE(seenTitle, QString("Pelkor"));
    QCOMPARE(seenIcon, QMessageBox::Question);
    QCOMPARE(buttonCount, 3);

    WhenModalShows([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    QCOMPARE(platform.MsgBox("Invalid", MsgIcon::kExclamation, MsgButtons::kOk, "Invalid date"),
             MsgAnswer::kOk);
  }

  void closeRequestIsDeliveredAfterTheHandlerReturns() {
    ObjectFactory factory;
    QtPlatform platform(factory);
    QWidget host;
    host.show();
    platform.SetHostWindow(&host);
    platform.PostMessage(platform.HostWindowHandle(), kWmClose, 0, 0);
    QVERIFY(host.isVisible());  // still inside the handler
    QTRY_VERIFY(!host.isVisible());

    // Other windows and other messages are not the host's close request.
    host.show();
    platform.PostMessage(platform.HostWindowHandle() + 1, kWmClose, 0, 0);
    platform.PostMessage(platform.HostWindowHandle(), kWmClose + 1, 0, 0);
    QCoreApplication::processEvents();
    QVERIFY(host.isVisible());
  }

  void hourglassIsShownAndRestored() {
    ObjectFactory factory;
    QtPlatform platform(factory);
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    platform.SetScreenPointer(MousePointer::kHourglass);
    QCOMPARE(platform.ScreenPointer(), MousePointer::kHourglass);
    QVERIFY(QGuiApplication::overrideCursor() != nullptr);
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    platform.SetScreenPointer(MousePointer::kHourglass);  // twice, one restore still suffices
    platform.SetScreenPointer(MousePointer::kDefault);
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    QCOMPARE(platform.ScreenPointer(), MousePointer::kDefault);
  }

  void clockAndLocaleComeFromTheSystem() {
    ObjectFactory factory;
    QtPlatform platform(factory);
    const QDate today = QDate::currentDate();
    QCOMPARE(platform.Today(), Date::FromCivil(today.year(), today.month(), today.day()));
    QVERIFY(!platform.Today().HasTime());
    QCOMPARE(platform.Now().DayNumber(), pelkor::desktop::DayOfDate(QDate::currentDate()));
    QCOMPARE(QString::fromStdString(platform.ShortDateFormat()),
             QLocale::system().dateFormat(QLocale::ShortFormat));

    QCOMPARE(DateOrderOf("M/d/yy"), 0);
    QCOMPARE(DateOrderOf("dd.MM.yyyy"), 1);
    QCOMPARE(DateOrderOf("yyyy-MM-dd"), 2);

    std::string buffer(255, ' ');
    const std::int32_t written =
        platform.GetLocaleInfoA(kLocaleUserDefault, kLocaleIDate, buffer, 128);
    QCOMPARE(written, 2);  // one digit and the terminating zero
    QCOMPARE(buffer.substr(0, 1),
             std::to_string(DateOrderOf(QString::fromStdString(platform.ShortDateFormat()))));
    QCOMPARE(buffer.size(), std::size_t(255));
    QCOMPARE(platform.GetLocaleInfoA(kLocaleUserDefault, kLocaleIDate, buffer, 1), 0);
    QCOMPARE(platform.GetLocaleInfoA(kLocaleUserDefault, 0x1F, buffer, 128), 0);
  }

  void modalDialogRunsUntilTheModelCloses() {
    ObjectFactory factory;
    QtPlatform platform(factory);
    OkDialog dialog;
    QString title;
    QSize size;
    WhenModalShows([&](QWidget* modal) {
      title = modal->windowTitle();
      size = modal->size();
      auto* ok = modal->findChild<QPushButton*>("cmdOk");
      QVERIFY(ok != nullptr);
      QTest::mouseClick(ok, Qt::LeftButton);
    });
    platform.ShowModal(dialog);
    QVERIFY(dialog.loaded);
    QVERIFY(dialog.accepted);
    QVERIFY(!dialog.IsOpen());
    QCOMPARE(title, QString("Confirm"));
    // The design's height; wider than the design where the title needs it.
    QCOMPARE(size.height(), 50);
    QVERIFY(size.width() >= 120);

    // The window's close box closes the model without its button.
    OkDialog second;
    WhenModalShows([](QWidget* modal) { modal->close(); });
    platform.ShowModal(second);
    QVERIFY(second.loaded);
    QVERIFY(!second.accepted);
    QVERIFY(!second.IsOpen());
  }

  void startDateDialogTakesEnterAndEscape() {
    ObjectFactory factory;
    QtPlatform platform(factory);
    const QString log = QDir::temp().filePath("pelk-platform-test.log");
    pelkor::RegisterTraceComponent(factory, platform, log.toStdString());
    Main(platform);
    const Date wwih = Date::FromCivil(2026, 6, 30);

    // Enter presses Save: an accepted date closes the dialog.
    FrmStartDate accepted(platform);
    accepted.DialogInit(Date::FromCivil(2026, 1, 5), wwih);
    WhenModalShows([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Return); });
    platform.ShowModal(accepted);
    QVERIFY(!accepted.DialogCancel());
    QVERIFY(accepted.StartDate() == Date::FromCivil(2026, 1, 5));

    // Escape is the close box: the dialog is cancelled.
    FrmStartDate escaped(platform);
    escaped.DialogInit(Date::FromCivil(2026, 1, 5), wwih);
    WhenModalShows([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    platform.ShowModal(escaped);
    QVERIFY(escaped.DialogCancel());
    UnloadLibrary();
    QFile::remove(log);
  }

  void collaboratorsComeFromTheFactory() {
    ObjectFactory factory;
    factory.Register("PelkConf.Config", [] { return std::make_shared<ComObject>(); });
    QtPlatform platform(factory);
    QVERIFY(platform.CreateObject("PelkConf.Config") != nullptr);
    factory.FailCreate("PelkConf.Config");
    try {
      platform.CreateObject("PelkConf.Config");
      QFAIL("creation should fail");
    } catch (const PelkError& e) {
      QCOMPARE(e.Number(), errnum::kCannotCreateObject);
    }
  }

  void aProgramThatCannotStartIsAnError() {
    ObjectFactory factory;
    QtPlatform platform(factory);
    try {
      platform.StartProcess("/nonexistent/keyhh.exe -100 help.chm");
      QFAIL("start should fail");
    } catch (const PelkError& e) {
      QVERIFY(e.Description().find("/nonexistent/keyhh.exe") != std::string::npos);
    }
  }
};

QTEST_MAIN(PlatformTest)
#include "platform_test.moc"
