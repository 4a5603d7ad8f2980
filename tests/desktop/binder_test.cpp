#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextList>
#include <QToolButton>
#include <QtTest>
#include <memory>

#include "binding/binder.h"
#include "binding/date_widgets.h"
#include "binding/picture_view.h"
#include "control/tab_strips.h"
#include "pictures/pictures.h"
#include "platform/platform.h"
#include "values/error.h"

using namespace pelkedit;
using pelkor::desktop::Binder;
using pelkor::desktop::BinderOptions;
using pelkor::desktop::CalendarBox;
using pelkor::desktop::DateOfDay;
using pelkor::desktop::PictureView;

namespace {
constexpr float kTwips = kTwipsPerPixel;

// A form with its models, bound once the test has built the registry.
struct Form {
  WidgetRegistry registry;
  QWidget window;
  std::unique_ptr<Binder> binder;
  std::vector<std::string> errors;

  void Bind(BinderOptions options = {}) {
    options.onError = [this](const std::exception& e) { errors.push_back(e.what()); };
    window.resize(640, 480);
    binder = std::make_unique<Binder>(registry, &window, std::move(options));
    window.show();
    window.activateWindow();
  }
  template <typename W>
  W* Qt(const std::string& name) {
    return window.findChild<W*>(QString::fromStdString(name));
  }
};
}  // namespace

class BinderTest : public QObject {
  Q_OBJECT

 private slots:
  void widgetsAreCreatedByNameAndPlacedByTheModel() {
    Form form;
    auto& frame = form.registry.Make<Frame>("fraMain");
    frame.Move(10 * kTwips, 20 * kTwips, 300 * kTwips, 200 * kTwips);
    auto& text = form.registry.Make<TextBox>("txtName");
    text.SetParent(&frame);
    text.Move(5 * kTwips, 6 * kTwips, 100 * kTwips, 21 * kTwips);
    auto& graph = form.registry.Make<PictureBox>("picSalesCycle");
    graph.Move(0, 0, 250 * kTwips, 117 * kTwips);
    graph.SetDesignPicture(pelkedit::picture::kSalesCycle);
    auto& bar = form.registry.Make<PictureBox>("picLine");
    bar.SetParent(&graph);
    bar.Move(120, 13, 8, 101);  // on a picture: pixels
    form.registry.Make<ListBox>("cboFunding");
    form.registry.Make<DateEdit>("deWwih");
    form.registry.Make<Calendar>("dtWwih");
    form.registry.Make<RichTextBox>("rtfAdvice");
    form.Bind({});

    auto* line = form.Qt<QLineEdit>("txtName");
    QVERIFY(line != nullptr);
    QCOMPARE(line->parentWidget(), form.Qt<QFrame>("fraMain"));
    QCOMPARE(line->geometry(), QRect(5, 6, 100, 21));
    QCOMPARE(form.Qt<QFrame>("fraMain")->geometry(), QRect(10, 20, 300, 200));
    auto* barView = form.Qt<PictureView>("picLine");
    QCOMPARE(barView->parentWidget(), form.Qt<PictureView>("picSalesCycle"));
    QCOMPARE(barView->geometry(), QRect(120, 13, 8, 101));
    QCOMPARE(form.Qt<PictureView>("picSalesCycle")->Pixmap().size(), QSize(250, 117));
    QVERIFY(barView->Pixmap().isNull());  // no picture named, none fixed
    QVERIFY(form.Qt<QComboBox>("cboFunding") != nullptr);
    QVERIFY(form.Qt<QDateEdit>("deWwih") != nullptr);
    QVERIFY(form.Qt<QToolButton>("deWwihDrop") != nullptr);
    // The calendar is made when it is first needed.
    auto* calendarBox = form.Qt<CalendarBox>("dtWwihBox");
    QVERIFY(calendarBox != nullptr);
    QCOMPARE(calendarBox->Calendar()->objectName(), QString("dtWwih"));
    QCOMPARE(calendarBox->TodayButton()->objectName(), QString("dtWwihToday"));
    QVERIFY(form.Qt<QTextEdit>("rtfAdvice")->isReadOnly());
    QCOMPARE(form.binder->ModelFor(form.Qt<QToolButton>("deWwihDrop")),
             form.registry.Find("deWwih"));
  }

  // Groups are the models' own: two groups on one frame stay independent.
  void clickOnAnOptionRaisesItsClickAndClearsItsGroupOnly() {
    Form form;
    auto wih = std::make_shared<OptionGroup>();
    auto wwgi = std::make_shared<OptionGroup>();
    auto& low = form.registry.Make<OptionButton>("optWihLow");
    auto& high = form.registry.Make<OptionButton>("optWihHigh");
    auto& other = form.registry.Make<OptionButton>("optWwgiLow");
    low.JoinGroup(wih);
    high.JoinGroup(wih);
    other.JoinGroup(wwgi);
    low.Move(0, 0, 80 * kTwips, 20 * kTwips);
    high.Move(0, 30 * kTwips, 80 * kTwips, 20 * kTwips);
    other.Move(0, 60 * kTwips, 80 * kTwips, 20 * kTwips);
    high.SetCaption("High");
    low.SetValue(true);
    other.SetValue(true);
    int highClicks = 0;
    high.onClick = [&] { ++highClicks; };
    form.Bind();
    QCOMPARE(form.Qt<QRadioButton>("optWihHigh")->text(), QString("High"));
    QVERIFY(form.Qt<QRadioButton>("optWihLow")->isChecked());

    QTest::mouseClick(form.Qt<QRadioButton>("optWihHigh"), Qt::LeftButton);
    QCOMPARE(highClicks, 1);
    QVERIFY(high.Value());
    QVERIFY(!low.Value());
    QVERIFY(!form.Qt<QRadioButton>("optWihLow")->isChecked());
    QVERIFY(form.Qt<QRadioButton>("optWwgiLow")->isChecked());
    QVERIFY(other.Value());

    // Clicking the selected option again raises the click and leaves it selected.
    QTest::mouseClick(form.Qt<QRadioButton>("optWihHigh"), Qt::LeftButton);
    QCOMPARE(highClicks, 2);
    QVERIFY(form.Qt<QRadioButton>("optWihHigh")->isChecked());
  }

  void typingKeepsTheModelCurrentAndLostFocusComesBeforeTheNextClick() {
    Form form;
    auto& text = form.registry.Make<TextBox>("txtEconName");
    text.Move(0, 0, 120 * kTwips, 21 * kTwips);
    text.SetMaxLength(5);
    auto& save = form.registry.Make<Button>("cmdSave");
    save.Move(0, 40 * kTwips, 80 * kTwips, 25 * kTwips);
    save.SetCaption("&Save");
    std::vector<std::string> events;
    text.onLostFocus = [&] { events.push_back("lost focus: " + text.Text()); };
    save.onMouseDown = [&](int, int, float, float) { events.push_back("mouse down"); };
    save.onClick = [&] { events.push_back("click"); };
    form.Bind();
    QVERIFY(QTest::qWaitForWindowActive(&form.window));

    auto* line = form.Qt<QLineEdit>("txtEconName");
    QTest::mouseClick(line, Qt::LeftButton);
    QCOMPARE(form.registry.Focused(), &text);
    QTest::keyClicks(line, "Ann");
    QCOMPARE(text.Text(), std::string("Ann"));
    QTest::keyClicks(line, " Lee");  // cut to the typing limit
    QCOMPARE(text.Text(), std::string("Ann L"));
    QCOMPARE(line->text(), QString("Ann L"));
    QVERIFY(events.empty());

    QTest::mouseClick(form.Qt<QPushButton>("cmdSave"), Qt::LeftButton);
    const std::vector<std::string> expected{"lost focus: Ann L", "mouse down", "click"};
    QCOMPARE(events, expected);
    QCOMPARE(form.registry.Focused(), &save);

    // Code may assign more than the user may type; the widget shows all of it.
    text.SetText("Annabelle");
    QCOMPARE(line->text(), QString("Annabelle"));
  }

  void pressOnAPictureDeliversThePositionInPixels() {
    Form form;
    auto& strip = form.registry.Make<PictureBox>("picMainTab");
    strip.Move(15 * kTwips, 0, 405 * kTwips, 21 * kTwips);
    strip.SetPicture(pelkedit::ExpertMainStrip().firstPicture);
    std::vector<std::pair<std::string, float>> presses;
    int clicks = 0;
    strip.onMouseDown = [&](int button, int, float x, float) {
      presses.push_back({"down " + std::to_string(button), x});
    };
    strip.onMouseUp = [&](int, int, float x, float) { presses.push_back({"up", x}); };
    strip.onClick = [&] { ++clicks; };
    form.Bind();
    auto* view = form.Qt<PictureView>("picMainTab");
    QCOMPARE(view->Pixmap().size(), QSize(405, 21));

    QTest::mousePress(view, Qt::LeftButton, {}, QPoint(200, 10));
    QTest::mouseRelease(view, Qt::LeftButton, {}, QPoint(200, 10));
    QTest::mousePress(view, Qt::RightButton, {}, QPoint(348, 3));
    QCOMPARE(presses.size(), std::size_t(3));
    QCOMPARE(presses[0].first, std::string("down 1"));
    QCOMPARE(presses[0].second, 200.0f);
    QCOMPARE(presses[1].first, std::string("up"));
    QCOMPARE(presses[2].first, std::string("down 2"));
    QCOMPARE(presses[2].second, 348.0f);
    QCOMPARE(clicks, 1);

    strip.SetPicture(pelkedit::BasicMainStrip().firstPicture);
    QCOMPARE(view->Pixmap().size(), QSize(305, 21));
    strip.ClearPicture();
    QVERIFY(view->Pixmap().isNull());
  }

  void modelChangesShowAtOnceWithoutRaisingUserEvents() {
    Form form;
    auto& label = form.registry.Make<Label>("lblEssentWIH");
    auto& list = form.registry.Make<ListBox>("cboProbeFunding");
    auto& text = form.registry.Make<TextBox>("txtNote");
    text.SetMultiline(true);
    int listClicks = 0;
    int textChanges = 0;
    list.onClick = [&] { ++listClicks; };
    text.onChange = [&] { ++textChanges; };
    form.Bind();

    label.SetCaption("Will It Happen?");
    label.SetTooltip("How likely is it that the customer buys at all?");
    label.Move(30 * kTwips, 45 * kTwips, 120 * kTwips, 15 * kTwips);
    auto* qlabel = form.Qt<QLabel>("lblEssentWIH");
    QCOMPARE(qlabel->text(), QString("Will It Happen?"));
    QCOMPARE(qlabel->toolTip(), QString("How likely is it that the customer buys at all?"));
    QCOMPARE(qlabel->geometry(), QRect(30, 45, 120, 15));
    label.SetVisible(false);
    QVERIFY(qlabel->isHidden());
    label.SetPointer(99);
    QCOMPARE(qlabel->cursor().shape(), Qt::PointingHandCursor);

    list.AddItem("Unknown");
    list.AddItem("Budgeted");
    list.SetListIndex(1);
    auto* combo = form.Qt<QComboBox>("cboProbeFunding");
    QCOMPARE(combo->count(), 2);
    QCOMPARE(combo->currentText(), QString("Budgeted"));
    QCOMPARE(listClicks, 1);  // the model's own click, not one echoed by the widget
    list.Clear();
    QCOMPARE(combo->count(), 0);

    text.SetText("first\r\nsecond");
    QCOMPARE(textChanges, 1);
    auto* plain = form.Qt<QPlainTextEdit>("txtNote");
    QCOMPARE(plain->toPlainText(), QString("first\nsecond"));
    // Typing keeps the model's line breaks.
    plain->moveCursor(QTextCursor::End);
    QTest::keyClicks(plain, "!");
    QCOMPARE(text.Text(), std::string("first\r\nsecond!"));
  }

  void comboPickSetsTheListIndex() {
    Form form;
    auto& list = form.registry.Make<ListBox>("cboProbeFunding");
    list.AddItem("Unknown");
    list.AddItem("Budgeted");
    list.AddItem("Approved");
    std::vector<std::int32_t> picked;
    list.onClick = [&] { picked.push_back(list.ListIndex()); };
    form.Bind();
    auto* combo = form.Qt<QComboBox>("cboProbeFunding");
    QVERIFY(QTest::qWaitForWindowActive(&form.window));
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Down);
    QCOMPARE(picked, std::vector<std::int32_t>{0});
    QTest::keyClick(combo, Qt::Key_Down);
    QCOMPARE(picked, (std::vector<std::int32_t>{0, 1}));
    QCOMPARE(list.Text(), std::string("Budgeted"));
  }

  void datesTravelAsDayNumbersWithinTheBounds() {
    Form form;
    auto& edit = form.registry.Make<DateEdit>("deWwih");
    edit.Move(0, 0, 120 * kTwips, 21 * kTwips);
    edit.SetDateOrder(1);
    edit.SetMinDay(1460);
    edit.SetMaxDay(48211);
    edit.SetDay(36525);
    auto& calendar = form.registry.Make<Calendar>("dtWwih");
    calendar.Move(0, 30 * kTwips, 260 * kTwips, 200 * kTwips);
    int drops = 0;
    edit.onClickDrop = [&] { ++drops; };
    std::vector<int> clicked;
    calendar.onDateClick = [&](int d, int m, int y) { clicked = {d, m, y}; };
    BinderOptions options;
    options.shortDateFormat = "d.M.yy";
    form.Bind(options);

    auto* qedit = form.Qt<QDateEdit>("deWwih");
    QCOMPARE(qedit->date(), QDate(2000, 1, 2));
    QCOMPARE(qedit->displayFormat(), QString("dd.MM.yyyy"));
    QCOMPARE(qedit->minimumDate(), QDate(1904, 1, 1));
    QCOMPARE(qedit->maximumDate(), QDate(2031, 12, 31));
    QCOMPARE(DateOfDay(59), QDate(1900, 3, 1));  // 1900 had no 29 February

    qedit->setDate(QDate(2024, 5, 17));  // as the user's typing completes a date
    QCOMPARE(edit.Day(), pelkedit::Date::FromCivil(2024, 5, 17).DayNumber());
    edit.SetDay(40000);
    QCOMPARE(qedit->date(), DateOfDay(40000));

    QTest::mouseClick(form.Qt<QToolButton>("deWwihDrop"), Qt::LeftButton);
    QCOMPARE(drops, 1);

    auto* qcal = form.Qt<CalendarBox>("dtWwihBox")->Calendar();
    emit qcal->clicked(QDate(2025, 2, 3));
    QCOMPARE(clicked, (std::vector<int>{3, 2, 2025}));
    QCOMPARE(calendar.Day(), pelkedit::Date::FromCivil(2025, 2, 3).DayNumber());
    QTest::mouseClick(form.Qt<QPushButton>("dtWwihToday"), Qt::LeftButton);
    const QDate today = QDate::currentDate();
    QCOMPARE(clicked, (std::vector<int>{today.day(), today.month(), today.year()}));
  }

  void richTextShowsEachCharactersFormat() {
    Form form;
    auto& box = form.registry.Make<RichTextBox>("rtfAdvisorMsg");
    box.Move(0, 0, 300 * kTwips, 200 * kTwips);
    form.Bind();
    box.SetFontName("Tahoma");
    box.SetText("Title\r\nAlert\r\nplain\r\n item one\r\n item two");
    box.Select(0, 5);
    box.SetSelBold(true);
    box.Select(7, 5);
    box.SetSelBold(true);
    box.SetSelColor(255);  // red in 0x00BBGGRR
    box.Select(14, 5);
    box.SetSelEmphasis(true);
    box.Select(22, 20);
    box.SetSelIndent(350);
    box.SetSelBullet(true);

    QTextDocument* doc = form.Qt<QTextEdit>("rtfAdvisorMsg")->document();
    QCOMPARE(doc->blockCount(), 5);
    const auto formatAt = [doc](int block, int offset) {
      QTextCursor cursor(doc->findBlockByNumber(block));
      cursor.setPosition(cursor.block().position() + offset + 1);
      return cursor.charFormat();
    };
    QVERIFY(formatAt(0, 0).font().bold());
    QCOMPARE(formatAt(1, 0).foreground().color(), QColor(255, 0, 0));
    QVERIFY(formatAt(1, 0).font().bold());
    QVERIFY(formatAt(2, 0).font().italic());
    QVERIFY(!formatAt(2, 0).font().bold());
    QVERIFY(doc->findBlockByNumber(2).textList() == nullptr);
    QTextList* list = doc->findBlockByNumber(3).textList();
    QVERIFY(list != nullptr);
    QCOMPARE(doc->findBlockByNumber(4).textList(), list);
    QCOMPARE(list->format().style(), QTextListFormat::ListDisc);
    QCOMPARE(doc->indentWidth(), 350.0 / kTwipsPerPixel);
    QCOMPARE(doc->findBlockByNumber(3).text(), QString(" item one"));
  }

  void anErrorRaisedByAModelIsReportedNotThrownThroughQt() {
    Form form;
    auto& button = form.registry.Make<Button>("cmdFail");
    button.Move(0, 0, 80 * kTwips, 25 * kTwips);
    button.onClick = [] { Raise(errnum::kInvalidPropertyValue, "cmdFail"); };
    form.Bind();
    QTest::mouseClick(form.Qt<QPushButton>("cmdFail"), Qt::LeftButton);
    QCOMPARE(form.errors.size(), std::size_t(1));
  }

  // The models may outlive the form that showed them (a dialog shown twice).
  void modelsOutliveTheirBinding() {
    WidgetRegistry registry;
    auto& label = registry.Make<Label>("lblCaption");
    {
      QWidget window;
      Binder binder(registry, &window);
      label.SetCaption("shown");
      QCOMPARE(window.findChild<QLabel*>("lblCaption")->text(), QString("shown"));
    }
    label.SetCaption("no form any more");
    QCOMPARE(label.Caption(), std::string("no form any more"));
  }
};

QTEST_MAIN(BinderTest)
#include "binder_test.moc"
