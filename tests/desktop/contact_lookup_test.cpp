// The contact picker: the search ignores letter case and accents over thousands of contacts and
// sorts by name the same way; typing part of a name and pressing Enter on the IBO Info tab fills
// the contact; the decision makers' look-ups fill their names.
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest>

#include "binding/picture_view.h"
#include "contacts/contact_lookup_dialog.h"
#include "data/ibo_store.h"
#include "host_fixture.h"

using namespace host_fixture;
using pelkor::desktop::ContactLookupDialog;

namespace {

constexpr int kIboInfoX = 305;
constexpr int kSalesEnvironmentX = 213;

void PressMainTab(Host& host, int x) {
  QTest::mouseClick(host.Qt<pelkor::desktop::PictureView>("picMainTab"), Qt::LeftButton, {},
                    QPoint(x, 10));
}

// Types into the look-up dialog once it is open, then presses Enter.
void PickInNextDialog(const QString& typed) {
  QTimer::singleShot(0, [typed] {
    auto* dialog = qobject_cast<ContactLookupDialog*>(QApplication::activeModalWidget());
    QVERIFY(dialog != nullptr);
    QTest::keyClicks(dialog->Search(), typed);
    QTest::keyClick(dialog->Search(), Qt::Key_Return);
  });
}

}  // namespace

class ContactLookupTest : public QObject {
  Q_OBJECT

 private slots:
  void typingPartOfANameAndEnterFillsTheContact() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    PressMainTab(host, kIboInfoX);
    PickInNextDialog("petrov");
    QTest::mouseClick(host.Qt<QPushButton>("cmdContactLookup"), Qt::LeftButton);
    QCOMPARE(host.Qt<QLineEdit>("txtConFirstName")->text(), QString("Nadia"));
    QCOMPARE(host.Rec().Get("ContactLastName").AsString(), std::string("Petrova"));
    QCOMPARE(host.Rec().Get("ContactEmail").AsString(),
             std::string("nadia.petrova@harborfreightlogistics.example"));
    QVERIFY(host.window->Component()->IboChanged());
  }

  void theDecisionMakersLookUpFillsTheName() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    PressMainTab(host, kSalesEnvironmentX);
    PickInNextDialog("zoe brann");
    QTest::mouseClick(host.Qt<pelkor::desktop::PictureView>("picUserLookup"), Qt::LeftButton);
    QCOMPARE(host.Rec().Get("DmUserName").AsString(), std::string("Zoë Brännström"));
  }

  // New Contact starts from what was searched for, split into first and last name the way
  // people write names: "Last, First", or the last word as the last name.
  void aNewContactTakesItsNameFromTheSearch() {
    ContactLookupDialog dialog(pelkor::OpenIboStore(":memory:"));
    QPushButton* add = nullptr;
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
      if (button->text() == "&New Contact...") add = button;
    }
    QVERIFY(add != nullptr);
    const auto namesOffered = [&](const QString& searched) {
      dialog.Search()->setText(searched);
      QStringList names;
      QTimer::singleShot(0, [&names] {
        auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (form == nullptr) return;
        const auto fields = form->findChildren<QLineEdit*>();
        names << fields.at(0)->text() << fields.at(1)->text();
        form->reject();
      });
      add->click();
      return names;
    };
    QCOMPARE(namesOffered("Parker, Helen"), (QStringList{"Helen", "Parker"}));
    QCOMPARE(namesOffered("Mary Ann Smith"), (QStringList{"Mary Ann", "Smith"}));
    QCOMPARE(namesOffered("  Okafor "), (QStringList{"", "Okafor"}));
  }

  // From the keyboard: F4 (or Alt+Down) in a name opens its look-up, and Tab reaches the "..."
  // button right after the name, where Space opens it too.
  void theLookUpOpensFromTheKeyboard() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    PressMainTab(host, kSalesEnvironmentX);
    auto* name = host.Qt<QLineEdit>("txtProbeTechName");
    name->setFocus();
    QTRY_VERIFY(name->hasFocus());
    PickInNextDialog("zoe brann");
    QTest::keyClick(name, Qt::Key_F4);
    QCOMPARE(host.Rec().Get("DmTechName").AsString(), std::string("Zoë Brännström"));

    // The window is active again once the look-up has closed.
    host.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(host.window.get()));
    auto* econ = host.Qt<QLineEdit>("txtProbeEconName");
    econ->setFocus();
    QTRY_VERIFY(econ->hasFocus());
    PickInNextDialog("petrov");
    QTest::keyClick(econ, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(host.Rec().Get("DmEconName").AsString(), std::string("Nadia Petrova"));

    host.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(host.window.get()));
    econ->setFocus();
    QTRY_VERIFY(econ->hasFocus());
    QTest::keyClick(econ, Qt::Key_Tab);
    auto* button = host.Qt<pelkor::desktop::PictureView>("picEconLookup");
    QTRY_VERIFY(button->hasFocus());
    PickInNextDialog("zoe brann");
    QTest::keyClick(button, Qt::Key_Space);
    QCOMPARE(host.Rec().Get("DmEconName").AsString(), std::string("Zoë Brännström"));
  }
};

QTEST_MAIN(ContactLookupTest)
#include "contact_lookup_test.moc"
