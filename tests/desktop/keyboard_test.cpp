// The desktop from the keyboard: tab switching, option groups, the calendar, "Advisor says"
// held with Space, Ctrl+S; and the window growing.
#include <QCalendarWidget>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <QtTest>

#include "app/window_keys.h"
#include "binding/picture_view.h"
#include "control/tab_strips.h"
#include "host_fixture.h"

using namespace host_fixture;
namespace tab = pelkedit::tab;

namespace {

void Keys(HostWindow& window, int key, Qt::KeyboardModifiers modifiers) {
  QWidget* target = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &window;
  QTest::keyClick(target, static_cast<Qt::Key>(key), modifiers);
}

}  // namespace

class KeyboardTest : public QObject {
  Q_OBJECT

 private slots:
  void ctrlTabAndCtrlPageDownReachEveryTabAndLeavingCommitsTheTypedDate() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    HostWindow& window = *host.window;
    const auto mainTab = [&] { return window.Component()->State().mainTab; };

    // A date typed on Essentials is committed when Ctrl+Tab leaves the tab.
    const QDate typed(2026, 10, 15);
    TypeDate(host.Qt<QDateEdit>("deWwih"), typed);
    Keys(window, Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(mainTab(), tab::kSalesAdvisor);
    QCOMPARE(QDateOf(host.Rec().Get("WwihDate").AsDate()), typed);
    QVERIFY(window.isWindowModified());

    std::vector<std::int32_t> visited{mainTab()};
    for (int i = 0; i < 4; ++i) {
      Keys(window, Qt::Key_PageDown, Qt::ControlModifier);
      visited.push_back(mainTab());
    }
    QCOMPARE(visited, (std::vector<std::int32_t>{tab::kSalesAdvisor, tab::kSalesEnvironment,
                                                 tab::kIboInfo, tab::kIboNote, tab::kEssentials}));
    QVERIFY(host.Qt<QWidget>("fraMainEssentials")->isVisible());
    Keys(window, Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(mainTab(), tab::kIboNote);
    Keys(window, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(mainTab(), tab::kIboInfo);

    // The phases step on the Sales Environment only.
    pelkor::desktop::StepMainTab(window, -1);
    QCOMPARE(mainTab(), tab::kSalesEnvironment);
    Keys(window, Qt::Key_PageDown, Qt::AltModifier);
    QCOMPARE(window.Component()->State().sEnvTab, tab::kProve);
    Keys(window, Qt::Key_PageDown, Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(window.Component()->State().sEnvTab, tab::kClose);
    QVERIFY(host.Qt<QWidget>("fraMainSEnvClose")->isVisible());
  }

  // The sales-cycle graph is drawn from the date just typed, whichever way Essentials is left:
  // the field being edited loses the focus before the tab changes.
  void theGraphShowsTheDateJustTypedAfterCtrlTabOrAClickOnTheStrip() {
    constexpr int kSalesAdvisorX = 120;
    for (const bool byClick : {false, true}) {
      Host host;
      QVERIFY(host.Open(kExpertIbo));
      const QDate typed = QDate::currentDate().addDays(60);
      TypeDate(host.Qt<QDateEdit>("deWwih"), typed);
      if (byClick) {
        QTest::mouseClick(host.Qt<pelkor::desktop::PictureView>("picMainTab"), Qt::LeftButton, {},
                          QPoint(kSalesAdvisorX, 10));
      } else {
        Keys(*host.window, Qt::Key_Tab, Qt::ControlModifier);
      }
      QCOMPARE(host.window->Component()->State().mainTab, tab::kSalesAdvisor);
      QCOMPARE(QDateOf(host.Rec().Get("WwihDate").AsDate()), typed);
      const std::string graph =
          host.window->Component()->Widgets().Get<pelkedit::TextBox>("txtSalesCycle").Text();
      QVERIFY2(graph.find("past the expected date") == std::string::npos, graph.c_str());
      // The focus went on to the page shown, not back to the hidden date.
      QVERIFY(QApplication::focusWidget() == nullptr || QApplication::focusWidget()->isVisible());
    }
  }

  // A basic IBO has no Sales Environment to step through.
  void basicModeStepsOverTheSalesEnvironment() {
    Host basic;
    QVERIFY(basic.Open(kBasicIbo));
    Keys(*basic.window, Qt::Key_Tab, Qt::ControlModifier);
    Keys(*basic.window, Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(basic.window->Component()->State().mainTab, tab::kIboInfo);
  }

  void arrowsMoveWithinAGroupAndTabStopsOncePerQuestion() {
    Host host;
    QVERIFY(host.Open(kBasicIbo));  // WIH Medium
    auto* medium = host.Qt<QRadioButton>("optWihMedium");
    auto* high = host.Qt<QRadioButton>("optWihHigh");
    QVERIFY(medium->focusPolicy() & Qt::TabFocus);
    QVERIFY(!(host.Qt<QRadioButton>("optWihLow")->focusPolicy() & Qt::TabFocus));

    const std::int32_t wwgi = host.Rec().Get("WWGI").AsLong();
    medium->setFocus();
    QTest::keyClick(medium, Qt::Key_Down);
    QVERIFY(high->isChecked());
    QVERIFY(high->hasFocus());
    QCOMPARE(host.Rec().Get("WIH").AsLong(), 2);
    // The end of the group: the next question is not reached.
    QTest::keyClick(high, Qt::Key_Down);
    QVERIFY(high->isChecked());
    QVERIFY(high->hasFocus());
    QCOMPARE(host.Rec().Get("WWGI").AsLong(), wwgi);
    QVERIFY(high->focusPolicy() & Qt::TabFocus);
    QVERIFY(!(medium->focusPolicy() & Qt::TabFocus));

    // Tab leaves the group for the next question's selected option.
    QTest::keyClick(high, Qt::Key_Tab);
    const char* const wwgiOptions[] = {"optWwgiLow", "optWwgiMedium", "optWwgiHigh"};
    QCOMPARE(QApplication::focusWidget()->objectName(), QString(wwgiOptions[wwgi]));

    // The question's label focuses its group by its mnemonic.
    auto* label = host.Qt<QLabel>("lblEssentWIH");
    QVERIFY(label->text().contains('&'));
    QCOMPARE(label->buddy(), high);
  }

  void altDownOpensTheCalendarAndSpaceHeldShowsTheAdvisorsView() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    auto* date = host.Qt<QDateEdit>("deWwih");
    date->setFocus();
    const QDate before = date->date();
    QTest::keyClick(date, Qt::Key_Down, Qt::AltModifier);
    QVERIFY(host.Qt<QCalendarWidget>("dtWwih")->isVisible());
    QCOMPARE(date->date(), before);
    QTest::keyClick(host.Qt<QCalendarWidget>("dtWwih"), Qt::Key_Escape);

    // A whole date typed over the field replaces it as typed.
    date->setFocus(Qt::TabFocusReason);
    const QDate typed(2026, 11, 27);
    QTest::keyClicks(date, typed.toString(date->displayFormat()));
    QCOMPARE(date->date(), typed);

    auto* says = host.Qt<QPushButton>("cmdAdvisorSays");
    says->setFocus();
    QVERIFY(!says->toolTip().isEmpty());
    QTest::keyPress(says, Qt::Key_Space);
    QVERIFY(host.Qt<pelkor::desktop::PictureView>("picAdvPriority")->isVisible());
    QTest::keyRelease(says, Qt::Key_Space);
    QVERIFY(!host.Qt<pelkor::desktop::PictureView>("picAdvPriority")->isVisible());
  }

  void ctrlSSavesAndClosesTheWindow() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    QTest::mouseClick(host.Qt<QRadioButton>("optWihLow"), Qt::LeftButton, {}, QPoint(8, 8));
    Keys(*host.window, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(host.window->Component()->IboSaved());
    QCOMPARE(host.Stored(kExpertIbo)->Get("WIH").AsLong(), 0);
    QTRY_VERIFY(!host.window->isVisible());
  }

  void aLargerWindowGivesItsRoomToTheAdviceAndKeepsTheButtonsInTheCorner() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    auto* save = host.Qt<QPushButton>("cmdSave");
    const int wihLeft = host.Qt<QRadioButton>("optWihLow")->pos().x();
    // The advice is on the Sales Advisor page, the next tab.
    Keys(*host.window, Qt::Key_Tab, Qt::ControlModifier);
    auto* advice = host.Qt<QTextEdit>("rtfAdvisorMsg");
    QVERIFY(advice != nullptr && advice->isVisible());
    const QPoint saveBefore = save->geometry().topLeft();
    const int adviceHeight = advice->height();
    host.window->resize(host.window->size() + QSize(200, 150));
    QTRY_COMPARE(save->geometry().topLeft(), saveBefore + QPoint(200, 150));
    QCOMPARE(advice->height(), adviceHeight + 150);
    QCOMPARE(host.Qt<QRadioButton>("optWihLow")->pos().x(), wihLeft);
  }
};

QTEST_MAIN(KeyboardTest)
#include "keyboard_test.moc"
