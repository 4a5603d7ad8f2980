#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>
#include <deque>
#include <memory>
#include <optional>

#include "app/editor_environment.h"
#include "app/host_window.h"
#include "app/stored_version_dialog.h"
#include "app/window_placement.h"
#include "binding/date_widgets.h"
#include "binding/picture_view.h"
#include "data/demo_seed.h"
#include "host_fixture.h"
#include "record/ibo_properties.h"

using namespace pelkedit;
using pelkor::desktop::EditorEnvironment;
using pelkor::desktop::HostWindow;
using pelkor::desktop::PictureView;
using pelkor::desktop::QtPlatform;

namespace {

using namespace host_fixture;

// A click where the user clicks an option: on its round button.
void ClickOption(QRadioButton* option) {
  QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(8, option->height() / 2));
}

}  // namespace

class HostWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void opensTheIboWithTitleStatusAndMode() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    // The editor's caption, the company, and the unsaved-changes marker.
    const QString company = QString::fromStdString(
        host.window->Component()->Record()->Get("ContactCompany").AsString());
    QVERIFY(host.window->windowTitle().startsWith("IBO#"));
    QVERIFY(!company.isEmpty() && host.window->windowTitle().contains(company));
    QVERIFY(host.window->windowTitle().endsWith("[*]"));
    QVERIFY(!host.window->isWindowModified());
    QCOMPARE(host.window->StatusText(), QString("Status: Open"));
    QCOMPARE(host.window->ModeText(), QString("Expert mode"));
    QCOMPARE(host.window->Form()->size(), QSize(600, 400));

    // An IBO that does not exist is reported and the one shown stays.
    HostWindow* window = host.window.get();
    QVERIFY(!window->OpenIbo(987654, kMainView));
    QCOMPARE(host.messages.size(), std::size_t(1));
    QCOMPARE(host.messages[0].icon, MsgIcon::kCritical);
    QVERIFY(host.Qt<QRadioButton>("optWihHigh")->isChecked());

    window->ChangeStatus(eEditStatusWon);
    QCOMPARE(window->StatusText(), QString("Status: Won"));
  }

  void aRuleFileThatCannotBeUsedIsToldOnceAndTheDealsStillOpen() {
    QTemporaryDir rules;
    const QString broken = rules.filePath("broken.rules");
    QFile file(broken);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[ratings]\nwih = 1 +\n");
    file.close();
    qputenv("PELKOR_ADVISOR_RULES", broken.toUtf8());
    Host host;
    qunsetenv("PELKOR_ADVISOR_RULES");
    QVERIFY(host.Open(kExpertIbo));
    QCOMPARE(host.messages.size(), std::size_t(1));
    QCOMPARE(host.messages[0].icon, MsgIcon::kExclamation);
    QVERIFY(QString::fromStdString(host.messages[0].text).contains("gives no advice"));
    QVERIFY(QString::fromStdString(host.messages[0].text).contains(broken));
    // The next deal opens with the same engine that gives no advice, and is not told again.
    QVERIFY(host.window->OpenIbo(kBasicIbo, kMainView));
    QCOMPARE(host.messages.size(), std::size_t(1));
  }

  void clickOnAnOptionUpdatesTheRecordAndMarksItDirty() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    QCOMPARE(host.Rec().Get("WIH").AsLong(), kWihHigh);
    QVERIFY(!host.window->Component()->IboChanged());
    ClickOption(host.Qt<QRadioButton>("optWihLow"));
    QCOMPARE(host.Rec().Get("WIH").AsLong(), kWihLow);
    QVERIFY(host.window->Component()->IboChanged());
    QVERIFY(host.window->isWindowModified());
    QVERIFY(host.Qt<QRadioButton>("optWihLow")->isChecked());
    QVERIFY(!host.Qt<QRadioButton>("optWihHigh")->isChecked());
  }

  void typedWwihDateIsCommittedWhenTheFocusMovesAndARefusedOneIsRestored() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    auto* edit = host.Qt<QDateEdit>("deWwih");
    QCOMPARE(edit->date(), QDate(2026, 9, 30));

    TypeDate(edit, QDate(2026, 12, 15));
    QCOMPARE(edit->date(), QDate(2026, 12, 15));
    QVERIFY(!host.window->Component()->IboChanged());  // not before the field is left
    // Tab reaches the calendar button first: still the same field.
    QTest::keyClick(edit, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget()->objectName(), QString("deWwihDrop"));
    QVERIFY(!host.window->Component()->IboChanged());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(!edit->hasFocus());
    QCOMPARE(QDateOf(host.Rec().Get("WwihDate").AsDate()), QDate(2026, 12, 15));
    QVERIFY(host.window->Component()->IboChanged());
    QVERIFY(host.messages.empty());

    TypeDate(edit, QDate(2026, 1, 5));  // before the start date
    ClickOption(host.Qt<QRadioButton>("optWwgiHigh"));
    QCOMPARE(host.messages.size(), std::size_t(1));
    QCOMPARE(host.messages[0].text,
             std::string("WWIH date must be greater or equal to Start Date."));
    QCOMPARE(edit->date(), QDate(2026, 12, 15));
    QCOMPARE(QDateOf(host.Rec().Get("WwihDate").AsDate()), QDate(2026, 12, 15));
  }

  void pressOnTheMainStripSwitchesTheTab() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    auto* strip = host.Qt<PictureView>("picMainTab");
    QVERIFY(host.Qt<QWidget>("fraMainEssentials")->isVisible());
    QTest::mouseClick(strip, Qt::LeftButton, {}, QPoint(122, 10));
    QCOMPARE(host.window->Component()->State().mainTab, 1);
    QVERIFY(host.Qt<QWidget>("fraMainSalesAdvisor")->isVisible());
    QVERIFY(!host.Qt<QWidget>("fraMainEssentials")->isVisible());
    QTest::mouseClick(strip, Qt::LeftButton, {}, QPoint(376, 10));
    QCOMPARE(host.window->Component()->State().mainTab, 4);
    QVERIFY(host.Qt<QWidget>("fraMainIBONote")->isVisible());
  }

  void saveWritesTheDatabaseAndClosesWithoutAskingAgain() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    ClickOption(host.Qt<QRadioButton>("optWihLow"));
    QTest::mouseClick(host.Qt<QPushButton>("cmdSave"), Qt::LeftButton);
    QTRY_VERIFY(!host.window->isVisible());
    QVERIFY(host.messages.empty());
    QCOMPARE(host.Stored(kExpertIbo)->Get("WIH").AsLong(), kWihLow);
  }

  void closeBoxKeepsTheWindowAndTheEditsOnCancelAndSavesOnYes() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    ClickOption(host.Qt<QRadioButton>("optWihLow"));

    host.answers = {MsgAnswer::kCancel};
    host.window->close();
    QCOMPARE(host.messages.size(), std::size_t(1));
    QCOMPARE(host.messages[0].title, std::string(kSavePromptTitle));
    QVERIFY(host.window->isVisible());
    QVERIFY(host.window->Component()->IboChanged());
    QVERIFY(host.Qt<QRadioButton>("optWihLow")->isChecked());
    QCOMPARE(host.Stored(kExpertIbo)->Get("WIH").AsLong(), kWihHigh);

    host.answers = {MsgAnswer::kYes};
    host.window->close();
    QVERIFY(!host.window->isVisible());
    QCOMPARE(host.messages.size(), std::size_t(2));
    QCOMPARE(host.Stored(kExpertIbo)->Get("WIH").AsLong(), kWihLow);
  }

  void openingAnotherIboAsksAboutTheEditsFirst() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    ClickOption(host.Qt<QRadioButton>("optWihLow"));
    host.answers = {MsgAnswer::kCancel};
    QVERIFY(!host.window->SwitchTo(kBasicIbo, pelkedit::view::kMain));
    QCOMPARE(host.messages.size(), std::size_t(1));
    QVERIFY(host.window->Component()->IboChanged());
    QCOMPARE(host.Rec().Get("WIH").AsLong(), kWihLow);
    QCOMPARE(host.window->ModeText(), QString("Expert mode"));
    QCOMPARE(host.window->IboId(), kExpertIbo);

    host.answers = {MsgAnswer::kNo};
    QVERIFY(host.window->SwitchTo(kBasicIbo, pelkedit::view::kMain));
    QCOMPARE(host.messages.size(), std::size_t(2));
    QCOMPARE(host.window->ModeText(), QString("Basic mode"));
    QCOMPARE(host.window->IboId(), kBasicIbo);
    QVERIFY(!host.window->Component()->IboChanged());
    QVERIFY(host.Qt<QRadioButton>("optWihMedium")->isChecked());
    QCOMPARE(host.Stored(kExpertIbo)->Get("WIH").AsLong(), kWihHigh);
  }

  // Someone else saves the IBO while it is open here: Save is refused, the edits stay, and the
  // comparison shows both versions' values before the stored one is reopened.
  void aRefusedSaveLeadsToTheStoredVersion() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    ClickOption(host.Qt<QRadioButton>("optWihLow"));
    const auto theirs = host.Stored(kExpertIbo);
    theirs->Set("ContactCompany", std::string("Harbor Freight West"));
    pelkor::OpenIboStore(host.dbPath)->Write(pelkor::IboTable::kMain, theirs->GetIboData());

    QTest::mouseClick(host.Qt<QPushButton>("cmdSave"), Qt::LeftButton);
    QCOMPARE(host.messages.size(), std::size_t(1));
    QVERIFY(host.messages[0].text.find("was changed by someone else") != std::string::npos);
    QVERIFY(host.window->isVisible());
    QVERIFY(host.window->Component()->IboChanged());
    QVERIFY(host.window->statusBar()->currentMessage().contains("Compare with Stored Version"));
    QCOMPARE(host.Stored(kExpertIbo)->Get("WIH").AsLong(), kWihHigh);

    QString listed;
    QTimer::singleShot(0, [&listed] {
      auto* dialog =
          qobject_cast<pelkor::desktop::StoredVersionDialog*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr);
      listed = dialog->AsText();
      QTimer::singleShot(0, [] {
        auto* confirm = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(confirm != nullptr);
        confirm->button(QMessageBox::Yes)->click();
      });
      dialog->findChild<QPushButton*>("reopen")->click();
    });
    host.window->CompareWithStored();
    // The answer and the company, and the priority that follows the answer; not the
    // editor's own bookkeeping.
    QCOMPARE(listed.section('\n', 1),
             QString("Your Priority\t5\t2\nWill It Happen?\tLow\tHigh\n"
                     "Company\tHarbor Freight Logistics\tHarbor Freight West\n"));

    // Reopened: the stored version, unchanged, with its own answers.
    QVERIFY(!host.window->Component()->IboChanged());
    QCOMPARE(host.Rec().Get("ContactCompany").AsString(), std::string("Harbor Freight West"));
    QVERIFY(host.Qt<QRadioButton>("optWihHigh")->isChecked());
    ClickOption(host.Qt<QRadioButton>("optWihLow"));
    QTest::mouseClick(host.Qt<QPushButton>("cmdSave"), Qt::LeftButton);
    QTRY_VERIFY(!host.window->isVisible());
    QCOMPARE(host.Stored(kExpertIbo)->Get("WIH").AsLong(), kWihLow);
    QCOMPARE(host.Stored(kExpertIbo)->Get("ContactCompany").AsString(),
             std::string("Harbor Freight West"));
  }

  // A database the user may only read says so as soon as it is opened; a save is refused with
  // the reason and the edits stay on screen.
  void aReadOnlyDatabaseSaysSoWhenOpenedAndKeepsTheEdits() {
    Host host;
    QVERIFY(QFile::setPermissions(QString::fromStdString(host.dbPath), QFileDevice::ReadOwner));
    QVERIFY(host.Open(kExpertIbo));
    QVERIFY(host.window->windowTitle().contains("(read-only)"));
    QVERIFY(host.Qt<QLabel>("lblHostTable")->text().contains("Read-only database"));
    ClickOption(host.Qt<QRadioButton>("optWihLow"));
    QTest::mouseClick(host.Qt<QPushButton>("cmdSave"), Qt::LeftButton);
    QVERIFY(host.window->isVisible());
    QVERIFY(!host.messages.empty());
    QVERIFY(host.messages.back().text.find("read-only") != std::string::npos);
    QVERIFY(host.Qt<QRadioButton>("optWihLow")->isChecked());
    QVERIFY(host.window->Component()->IboChanged());
  }

  // The window comes back where, and as large as, it was left; the contact's fields grow with
  // it, in both columns.
  void theWindowKeepsItsPlaceAndTheContactFieldsGrow() {
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
    {
      Host host;
      QVERIFY(host.Open(kExpertIbo));
      QTest::mouseClick(host.Qt<pelkor::desktop::PictureView>("picMainTab"), Qt::LeftButton, {},
                        QPoint(305, 10));
      auto* email = host.Qt<QLineEdit>("txtConEmail");
      auto* address = host.Qt<QLineEdit>("txtConAddress");
      const int emailWidth = email->width();
      const int addressWidth = address->width();
      host.window->resize(host.window->size() + QSize(300, 120));
      QTRY_VERIFY(email->width() > emailWidth);
      QVERIFY(address->width() > addressWidth);
      QVERIFY(address->geometry().right() < host.Qt<QLabel>("lblConEmail")->geometry().left());
      QVERIFY(email->geometry().right() <= email->parentWidget()->width());
      pelkor::desktop::SavePlacement(*host.window);
    }
    Host again;
    pelkor::desktop::RestorePlacement(*again.window);
    QVERIFY(again.window->width() >= 900);
    qunsetenv("XDG_CONFIG_HOME");
  }

  void closeBoxWithNoDiscardsTheEdits() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    ClickOption(host.Qt<QRadioButton>("optWihLow"));
    host.answers = {MsgAnswer::kNo};
    host.window->close();
    QVERIFY(!host.window->isVisible());
    QCOMPARE(host.Stored(kExpertIbo)->Get("WIH").AsLong(), kWihHigh);
  }
};

QTEST_MAIN(HostWindowTest)
#include "host_window_test.moc"
