// The Edit menu: Undo and Redo named after the step, their keys, and a text box's own typing
// taken back first.
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTimer>
#include <QtTest>

#include "app/merge_dialog.h"
#include "app/saved_versions_dialog.h"
#include "app/stored_version_dialog.h"
#include "binding/picture_view.h"
#include "host_fixture.h"
#include "products/product_list.h"
#include "products/product_text.h"

using namespace host_fixture;

namespace {

QAction* Action(HostWindow& window, const char* name) {
  return window.findChild<QAction*>(name);
}

}  // namespace

class EditMenuTest : public QObject {
  Q_OBJECT

 private slots:
  void undoAndRedoAreNamedAfterTheStepAndFollowTheRecord() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    QAction* undo = Action(*host.window, "actUndo");
    QAction* redo = Action(*host.window, "actRedo");
    QVERIFY(undo != nullptr && redo != nullptr);
    QVERIFY(!undo->isEnabled());
    QCOMPARE(undo->shortcut(), QKeySequence(QKeySequence::Undo));
    QCOMPARE(redo->shortcuts().size(), 2);

    auto* low = host.Qt<QRadioButton>("optWihLow");
    QTest::mouseClick(low, Qt::LeftButton, {}, QPoint(8, low->height() / 2));
    QCOMPARE(host.Rec().Get("WIH").AsLong(), kWihLow);
    QCOMPARE(undo->text(), QString("&Undo Will It Happen?"));
    QVERIFY(undo->isEnabled());

    // Ctrl+Z from an option (no text box): the editor's undo.
    QTest::keyClick(low, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(host.Rec().Get("WIH").AsLong(), kWihHigh);
    QVERIFY(host.Qt<QRadioButton>("optWihHigh")->isChecked());
    QVERIFY(!host.window->isWindowModified());
    QCOMPARE(redo->text(), QString("&Redo Will It Happen?"));

    // Ctrl+Y applies it again.
    QTest::keyClick(host.Qt<QRadioButton>("optWihHigh"), Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(host.Rec().Get("WIH").AsLong(), kWihLow);
    QVERIFY(host.Qt<QRadioButton>("optWihLow")->isChecked());
    QVERIFY(host.window->isWindowModified());
  }

  void ctrlZInATextBoxTakesBackItsTypingFirst() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    QTest::mouseClick(host.Qt<pelkor::desktop::PictureView>("picMainTab"), Qt::LeftButton, {},
                      QPoint(305, 10));
    auto* company = host.Qt<QLineEdit>("txtConCompany");
    const QString stored = company->text();
    company->setFocus();
    QTest::keyClick(company, Qt::Key_End);
    QTest::keyClicks(company, " AG");
    QCOMPARE(company->text(), stored + " AG");

    // The box's own undo: nothing reached the record yet.
    QTest::keyClick(company, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(company->text(), stored);
    QVERIFY(!host.window->Component()->CanUndo());

    // Typed and committed by leaving the box, the change is the editor's to take back.
    QTest::keyClicks(company, " Ltd");
    host.Qt<QLineEdit>("txtConPhone")->setFocus();
    QCOMPARE(QString::fromStdString(host.Rec().Get("ContactCompany").AsString()), stored + " Ltd");
    QCOMPARE(Action(*host.window, "actUndo")->text(), QString("&Undo Company"));
    Action(*host.window, "actUndo")->trigger();
    QCOMPARE(QString::fromStdString(host.Rec().Get("ContactCompany").AsString()), stored);
    QCOMPARE(company->text(), stored);
  }

  void historyShowsWhatDiffersAndRestoresAVersionAsUnsavedChanges() {
    Host host;
    {
      // Someone saved IBO 1001 with WIH Low; the stored record now says High again.
      const auto store = pelkor::OpenIboStore(host.dbPath);
      const auto record = host.Stored(kExpertIbo);
      record->Set("WIH", kWihLow);
      std::int64_t version = store->FindVersioned(pelkor::IboTable::kMain, kExpertIbo)->version;
      version = store->Update(pelkor::IboTable::kMain, kExpertIbo, record->GetIboData(), version);
      record->Set("WIH", kWihHigh);
      store->Update(pelkor::IboTable::kMain, kExpertIbo, record->GetIboData(), version);
    }
    QVERIFY(host.Open(kExpertIbo));
    int versionsListed = 0;
    QStringList differing;
    QTimer::singleShot(0, [&] {
      auto* dialog = host.window->findChild<pelkor::desktop::SavedVersionsDialog*>();
      QVERIFY(dialog != nullptr);
      auto* list = dialog->findChild<QTableWidget*>("tblVersions");
      versionsListed = list->rowCount();
      auto* differences = dialog->findChild<QTableWidget*>("tblVersionDifferences");
      for (int row = 0; row < differences->rowCount(); ++row) {
        differing << differences->item(row, 0)->text();
      }
      dialog->findChild<QPushButton*>("cmdRestoreVersion")->click();
    });
    host.window->findChild<QAction*>("actHistory")->trigger();
    // The newest kept version is the one with WIH Low.
    QCOMPARE(versionsListed, 2);
    QVERIFY(differing.contains("Will It Happen?"));
    QCOMPARE(host.Rec().Get("WIH").AsLong(), kWihLow);
    QVERIFY(host.Qt<QRadioButton>("optWihLow")->isChecked());
    QVERIFY(host.window->isWindowModified());
    // One step, named as such, that Undo takes back.
    QCOMPARE(Action(*host.window, "actUndo")->text(), QString("&Undo Restore Saved Version"));
    Action(*host.window, "actUndo")->trigger();
    QCOMPARE(host.Rec().Get("WIH").AsLong(), kWihHigh);
  }

  void theComparisonSpeaksInTheEditorsWords() {
    const auto yours = pelkor::CreateIboProperties();
    const auto stored = pelkor::CreateIboProperties();
    yours->Set("SEnvBudgetMatch", 2);
    yours->Set("CloseTC", true);
    yours->SetAt("CloseBarriers", 2, std::string("No budget"));
    const auto lineOf = [](const char* product, const char* quantity, const char* price) {
      pelkor::ProductLine line;
      line.product = product;
      line.quantity = pelkor::ParseAmount(quantity, "quantity");
      line.unitPrice = pelkor::ParseAmount(price, "price");
      return line;
    };
    pelkor::ProductList before;
    before.lines = {lineOf("Pump", "2", "1150"), lineOf("Valve", "1", "10")};
    pelkor::ProductList after;
    after.lines = {lineOf("Pump", "3", "1150"), lineOf("Hose", "1", "5")};
    const std::string kLines = pelkor::WriteProductText(before);
    const std::string kOtherLines = pelkor::WriteProductText(after);
    yours->Set("Products", std::string(kOtherLines));
    stored->Set("Products", std::string(kLines));
    QStringList lines;
    for (const auto& difference : pelkor::desktop::DifferencesBetween(*yours, *stored)) {
      lines << difference.property + " | " + difference.yours + " | " + difference.stored;
    }
    QVERIFY2(lines.contains("Trial Close? | Yes | No"), qPrintable(lines.join("\n")));
    QVERIFY2(lines.contains("Barriers? (trial close 3) | No budget | "),
             qPrintable(lines.join("\n")));
    QVERIFY2(lines.contains("Products | Changed: Pump x 3.00 at 1,150.00, was Pump x 2.00 at "
                            "1,150.00 | "),
             qPrintable(lines.join("\n")));
    QVERIFY2(lines.contains("Products | Removed: Valve x 1.00 at 10.00 | "),
             qPrintable(lines.join("\n")));
    QVERIFY2(lines.contains("Products | Added: Hose x 1.00 at 5.00 | "),
             qPrintable(lines.join("\n")));
    QVERIFY2(std::any_of(lines.begin(), lines.end(),
                         [](const QString& line) { return line.startsWith("Budget match? | "); }),
             qPrintable(lines.join("\n")));
  }

  // After a refused save, Merge gives the stored version with the user's changes, the user
  // picking where both changed the same answer; the merged IBO then saves.
  void aRefusedSaveIsMergedInsteadOfRetyped() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    auto* low = host.Qt<QRadioButton>("optWihLow");
    QTest::mouseClick(low, Qt::LeftButton, {}, QPoint(8, low->height() / 2));
    host.Rec().Set("ContactCompany", std::string("Harbor Mine"));
    {
      const auto store = pelkor::OpenIboStore(host.dbPath);
      const auto theirs = host.Stored(kExpertIbo);
      theirs->Set("ContactCompany", std::string("Harbor West"));
      theirs->Set("IboNote", std::string("Called on Monday"));
      const auto read = store->FindVersioned(pelkor::IboTable::kMain, kExpertIbo)->version;
      store->Update(pelkor::IboTable::kMain, kExpertIbo, theirs->GetIboData(), read);
    }
    host.Qt<QPushButton>("cmdSave")->click();
    QCOMPARE(host.messages.size(), std::size_t(1));

    QStringList conflicts;
    QTimer::singleShot(0, [&] {
      auto* compare =
          qobject_cast<pelkor::desktop::StoredVersionDialog*>(QApplication::activeModalWidget());
      QVERIFY(compare != nullptr);
      QTimer::singleShot(0, [&] {
        auto* merge = host.window->findChild<pelkor::desktop::MergeDialog*>();
        QVERIFY(merge != nullptr);
        auto* table = merge->findChild<QTableWidget*>("tblConflicts");
        for (int row = 0; row < table->rowCount(); ++row) {
          conflicts << table->item(row, 0)->text() + " | " + table->item(row, 1)->text() + " | " +
                           table->item(row, 2)->text();
        }
        merge->accept();  // keeps the user's answers, the first choice
      });
      compare->findChild<QPushButton*>("merge")->click();
    });
    host.window->CompareWithStored();
    QCOMPARE(conflicts, QStringList{"Company | Harbor Mine | Harbor West"});
    QCOMPARE(host.Rec().Get("ContactCompany").AsString(), std::string("Harbor Mine"));
    QCOMPARE(host.Rec().Get("IboNote").AsString(), std::string("Called on Monday"));
    QCOMPARE(host.Rec().Get("WIH").AsLong(), kWihLow);
    QVERIFY(host.window->Component()->IboChanged());

    host.Qt<QPushButton>("cmdSave")->click();
    QTRY_VERIFY(!host.window->isVisible());
    const auto saved = host.Stored(kExpertIbo);
    QCOMPARE(saved->Get("ContactCompany").AsString(), std::string("Harbor Mine"));
    QCOMPARE(saved->Get("IboNote").AsString(), std::string("Called on Monday"));
    QCOMPARE(saved->Get("WIH").AsLong(), kWihLow);
  }
};

QTEST_MAIN(EditMenuTest)
#include "edit_menu_test.moc"
