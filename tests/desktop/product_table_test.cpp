// The product list on the IBO Info tab through real widgets: an edit typed into the table
// reaches the record and the database with the total it makes; Insert adds a line; the last two
// columns show what the user picks; a list that cannot be read is shown as such and kept.
#include <QDateEdit>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QtTest>

#include "binding/picture_view.h"
#include "host_fixture.h"
#include "product_view/product_table.h"
#include "products/product_text.h"

using namespace host_fixture;
using pelkor::desktop::ProductTable;
using pelkor::desktop::ProductTableModel;
using Column = pelkor::ProductListView::Column;

namespace {

constexpr int kIboInfoX = 305;
constexpr int kEssentialsX = 40;
constexpr int kQuantityColumn = 1;

void PressMainTab(Host& host, int x) {
  QTest::mouseClick(host.Qt<pelkor::desktop::PictureView>("picMainTab"), Qt::LeftButton, {},
                    QPoint(x, 10));
}

void TypeIntoCell(QTableView* table, int row, int column, const QString& text) {
  table->setFocus();
  table->setCurrentIndex(table->model()->index(row, column));
  QTest::keyClick(table, Qt::Key_F2);
  QWidget* editor = QApplication::focusWidget();
  QVERIFY(editor != nullptr && editor != table);
  QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(editor, text);
  QTest::keyClick(editor, Qt::Key_Return);
  // The table commits an entry once the key has been handled.
  QTRY_VERIFY(QApplication::focusWidget() == table);
}

}  // namespace

class ProductTableTest : public QObject {
  Q_OBJECT

 private slots:
  void anEditReachesTheDatabaseWithItsTotal() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    PressMainTab(host, kIboInfoX);
    auto* table = host.Qt<QTableView>("ProductView1");
    QVERIFY(table != nullptr && table->isVisible());
    QCOMPARE(table->model()->rowCount(), 3);
    auto* owner = qobject_cast<ProductTable*>(table->parentWidget());
    QVERIFY(owner != nullptr);
    QVERIFY(table->toolTip().startsWith("Right click last two columns"));

    // 100 telematics units instead of 120: 20 x 349 less.
    TypeIntoCell(table, 0, kQuantityColumn, "100");
    QCOMPARE(table->model()->index(0, 4).data().toString(), QString("34,900.00"));
    bool totalShown = false;
    for (const QLabel* label : owner->findChildren<QLabel*>()) {
      totalShown = totalShown || label->text() == "Total 66,000.00";
    }
    QVERIFY(totalShown);
    PressMainTab(host, kEssentialsX);
    QCOMPARE(host.Rec().Get("TotalValueUnits").AsDouble(), 66000.0);
    QVERIFY(host.window->Component()->IboChanged());
    QTest::mouseClick(host.Qt<QPushButton>("cmdSave"), Qt::LeftButton);

    const auto stored = host.Stored(kExpertIbo);
    QCOMPARE(stored->Get("TotalValueUnits").AsDouble(), 66000.0);
    QCOMPARE(stored->Get("TotalValueHundredths").AsDouble(), 0.0);
    const pelkor::ProductList list = pelkor::ReadProductText(stored->Get("Products").AsString());
    QCOMPARE(list.lines.at(0).quantity.ToString(), std::string("100"));
    QCOMPARE(list.lines.at(0).note,
             std::string("Two batches of 60; vans are fitted at the Eastgate depot."));
  }

  void insertAddsALineAndTheLastColumnsShowWhatIsChosen() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    PressMainTab(host, kIboInfoX);
    auto* table = host.Qt<QTableView>("ProductView1");
    auto* model = qobject_cast<ProductTableModel*>(table->model());
    const int before = model->rowCount();
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Insert);
    QCOMPARE(model->rowCount(), before + 1);
    QWidget* editor = QApplication::focusWidget();
    QTest::keyClicks(editor, "Extended warranty");
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(model->View().List().lines.back().product, std::string("Extended warranty"));

    QCOMPARE(model->headerData(5, Qt::Horizontal, Qt::DisplayRole).toString(), QString("Delivery"));
    model->Choose(5, Column::kNote);
    QCOMPARE(model->headerData(5, Qt::Horizontal, Qt::DisplayRole).toString(), QString("Note"));
    // The other chosen column gives the note up rather than show it twice.
    QCOMPARE(model->headerData(6, Qt::Horizontal, Qt::DisplayRole).toString(), QString("Delivery"));
    // The discount has a column of its own, no right-click needed.
    QCOMPARE(model->headerData(3, Qt::Horizontal, Qt::DisplayRole).toString(),
             QString("Discount %"));
    TypeIntoCell(table, before, 3, "25");
    QCOMPARE(model->View().List().lines.back().discountPercent.ToString(), std::string("25"));

    // Delete removes the current line again.
    table->setFocus();
    table->setCurrentIndex(model->index(before, 0));
    QTest::keyClick(table, Qt::Key_Delete);
    QCOMPARE(model->rowCount(), before);
  }

  // Cancel answered No after a product edit closes the window and writes nothing, though closing
  // collects the IBO Info tab again.
  void cancelAnsweredNoAfterAProductEditCloses() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    PressMainTab(host, kIboInfoX);
    TypeIntoCell(host.Qt<QTableView>("ProductView1"), 0, kQuantityColumn, "100");
    host.answers = {MsgAnswer::kNo};
    QTest::mouseClick(host.Qt<QPushButton>("cmdCancel"), Qt::LeftButton);
    QTRY_VERIFY(!host.window->isVisible());
    QCOMPARE(host.messages.size(), std::size_t{1});
    const auto stored = host.Stored(kExpertIbo);
    QCOMPARE(pelkor::ReadProductText(stored->Get("Products").AsString()).lines.at(0).quantity,
             pelkor::Currency::Parse("120"));
  }

  // After Cancel on the editor's question, the close box asks again (the editor asks only
  // once) and does what the answer says: Cancel keeps the window, Yes saves and closes.
  void afterACancelledQuestionClosingStillAsks() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    PressMainTab(host, kIboInfoX);
    TypeIntoCell(host.Qt<QTableView>("ProductView1"), 0, kQuantityColumn, "100");
    host.answers = {MsgAnswer::kCancel};
    QTest::mouseClick(host.Qt<QPushButton>("cmdCancel"), Qt::LeftButton);
    QVERIFY(host.window->isVisible());

    host.answers = {MsgAnswer::kCancel};
    host.window->close();
    QVERIFY(host.window->isVisible());
    QCOMPARE(host.messages.size(), std::size_t{2});

    host.answers = {MsgAnswer::kYes};
    host.window->close();
    QTRY_VERIFY(!host.window->isVisible());
    QCOMPARE(host.messages.size(), std::size_t{3});
    const auto stored = host.Stored(kExpertIbo);
    QCOMPARE(pelkor::ReadProductText(stored->Get("Products").AsString()).lines.at(0).quantity,
             pelkor::Currency::Parse("100"));
  }

  // A line typed by keyboard: Tab goes from cell to cell past the worked-out value, the
  // delivery date is typed in the user's format, and after the last cell the focus leaves the
  // table without creating anything.
  void aLineIsTypedWithTabBetweenItsCells() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    PressMainTab(host, kIboInfoX);
    auto* table = host.Qt<QTableView>("ProductView1");
    auto* model = qobject_cast<ProductTableModel*>(table->model());
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Insert);
    const int row = model->rowCount() - 1;
    const auto typeAndTab = [&](const QString& text) {
      QWidget* editor = QApplication::focusWidget();
      QVERIFY(editor != nullptr && editor != table);
      if (!text.isEmpty()) QTest::keyClicks(editor, text);
      QTest::keyClick(editor, Qt::Key_Tab);
    };
    typeAndTab("Driver training (hours)");
    typeAndTab("7.5");
    typeAndTab("120");
    typeAndTab("10");
    // The value is skipped: the delivery date's editor follows, a date field with a calendar.
    auto* date = qobject_cast<QDateEdit*>(QApplication::focusWidget());
    QVERIFY(date != nullptr);
    QVERIFY(date->calendarPopup());
    date->setDate(QDate(2027, 3, 15));
    typeAndTab("");
    QWidget* note = QApplication::focusWidget();
    QTest::keyClicks(note, "On site");
    QTest::keyClick(note, Qt::Key_Return);
    QTRY_VERIFY(QApplication::focusWidget() == table);

    const pelkor::ProductLine& line = model->View().List().lines.at(static_cast<std::size_t>(row));
    QCOMPARE(line.product, std::string("Driver training (hours)"));
    QCOMPARE(line.quantity.ToString(), std::string("7.5"));
    QCOMPARE(line.discountPercent.ToString(), std::string("10"));
    QCOMPARE(line.deliveryDate, std::string("2027-03-15"));
    QCOMPARE(line.note, std::string("On site"));
    QCOMPARE(model->index(row, 4).data().toString(), QString("810.00"));
    QCOMPARE(model->index(row, 5).data().toString(),
             QDate(2027, 3, 15).toString(ProductTableModel::DateFormat()));

    // From the last cell, Tab leaves the table; nothing is added.
    const int rows = model->rowCount();
    table->setCurrentIndex(model->index(row, 6));
    QTest::keyClick(table, Qt::Key_Tab);
    QVERIFY(QApplication::focusWidget() != table);
    QCOMPARE(model->rowCount(), rows);
  }

  void aRefusedEntryIsExplainedAndChangesNothing() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    PressMainTab(host, kIboInfoX);
    auto* table = host.Qt<QTableView>("ProductView1");
    auto* owner = qobject_cast<ProductTable*>(table->parentWidget());
    TypeIntoCell(table, 0, kQuantityColumn, "a dozen");
    QCOMPARE(table->model()->index(0, kQuantityColumn).data().toString(), QString("120"));
    bool explained = false;
    for (const QLabel* label : owner->findChildren<QLabel*>()) {
      explained = explained || label->text().contains("is not a number");
    }
    QVERIFY(explained);
    QVERIFY(!host.window->Component()->IboChanged());
  }
};

QTEST_MAIN(ProductTableTest)
#include "product_table_test.moc"
