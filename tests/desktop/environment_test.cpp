// The Sales Environment through real widgets: a pick in a real drop-down list commits, and a
// name typed into its box is committed when the user clicks another main tab.
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QtTest>

#include "binding/picture_view.h"
#include "host_fixture.h"

using namespace host_fixture;

namespace {

// Main strip positions (expert): the middle of the Sales Environment and IBO Info bands.
constexpr int kSalesEnvironmentX = 213;
constexpr int kIboInfoX = 305;

void PressMainTab(Host& host, int x) {
  QTest::mouseClick(host.Qt<pelkor::desktop::PictureView>("picMainTab"), Qt::LeftButton, {},
                    QPoint(x, 10));
}

}  // namespace

class EnvironmentTest : public QObject {
  Q_OBJECT

 private slots:
  void pickingInADropDownListCommitsTheAnswer() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    PressMainTab(host, kSalesEnvironmentX);
    auto* funding = host.Qt<QComboBox>("cboProbeFunding");
    QVERIFY(funding->isVisible());
    const int before = funding->currentIndex();
    const int picked = before == 3 ? 1 : 3;
    funding->showPopup();
    QAbstractItemView* list = funding->view();
    QTRY_VERIFY(list->isVisible());
    list->setCurrentIndex(list->model()->index(picked, 0));
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(host.Rec().Get("SEnvFunding").AsLong(), picked);
    QVERIFY(host.window->Component()->IboChanged());
    QVERIFY(host.window->isWindowModified());
  }

  void aTypedNameIsCommittedWhenAnotherMainTabIsClicked() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    PressMainTab(host, kSalesEnvironmentX);
    auto* name = host.Qt<QLineEdit>("txtProbeTechName");
    name->setFocus();
    name->selectAll();
    QTest::keyClicks(name, "Grace Okafor");
    QCOMPARE(host.Rec().Get("DmTechName").AsString(), std::string("Marcus Oyelaran"));
    PressMainTab(host, kIboInfoX);
    QCOMPARE(host.window->Component()->State().mainTab, 3);
    QCOMPARE(host.Rec().Get("DmTechName").AsString(), std::string("Grace Okafor"));
    // The Prove phase, first shown now, names the same person.
    PressMainTab(host, kSalesEnvironmentX);
    QTest::keyClick(host.window.get(), Qt::Key_PageDown, Qt::AltModifier);
    auto* prove = host.Qt<QLineEdit>("txtProveTechName");
    QVERIFY(prove != nullptr && prove->isVisible());
    QCOMPARE(prove->text(), QString("Grace Okafor"));
  }
};

QTEST_MAIN(EnvironmentTest)
#include "environment_test.moc"
