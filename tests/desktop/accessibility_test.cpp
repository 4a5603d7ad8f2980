// A screen reader's walk through every page: each input it can reach says its question and
// something about it, the pictures say what they show, and Tab moves as the page reads.
#include <QAccessible>
#include <QRadioButton>
#include <QtTest>
#include <algorithm>
#include <vector>

#include "app/help_sentences.h"
#include "app/window_keys.h"
#include "control/tab_strips.h"
#include "host_fixture.h"
#include "pipeline/pipeline_window.h"

using namespace host_fixture;
namespace tab = pelkedit::tab;

namespace {

QString Read(QWidget* widget, QAccessible::Text text) {
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
  return face == nullptr ? QString() : face->text(text);
}

QString NameOf(QWidget* widget) {
  return widget->objectName().isEmpty() ? widget->metaObject()->className() : widget->objectName();
}

QWidget* FocusTarget(QWidget* widget) {
  while (widget->focusProxy() != nullptr) widget = widget->focusProxy();
  return widget;
}

// The widget a part that takes the focus stands for (a date's text, a calendar's day grid):
// the outermost one whose focus ends where the part's does.
QWidget* Reported(QWidget* widget) {
  QWidget* const target = FocusTarget(widget);
  QWidget* reported = target;
  for (QWidget* outer = target; outer != nullptr; outer = outer->parentWidget()) {
    if (FocusTarget(outer) == target) reported = outer;
  }
  return reported;
}

QPoint PlaceOf(QWidget* widget, QWidget* window) {
  return widget->mapTo(window, QPoint(0, 0));
}

// The widgets of the page shown that Tab reaches, in Tab's order from the top left.
std::vector<QWidget*> TabStops(HostWindow& window) {
  std::vector<QWidget*> stops;
  QWidget* at = &window;
  do {
    at = at->nextInFocusChain();
    QWidget* stop = Reported(at);
    if (stop->isVisible() && stop->isEnabled() && (at->focusPolicy() & Qt::TabFocus) &&
        stop->window() == &window && std::find(stops.begin(), stops.end(), stop) == stops.end()) {
      stops.push_back(stop);
    }
  } while (at != &window);
  // The chain is a ring: it is read from the stop nearest the top left.
  const auto first = std::min_element(stops.begin(), stops.end(), [&](QWidget* a, QWidget* b) {
    const QPoint pa = PlaceOf(a, &window);
    const QPoint pb = PlaceOf(b, &window);
    return std::make_pair(pa.y(), pa.x()) < std::make_pair(pb.y(), pb.x());
  });
  std::rotate(stops.begin(), first, stops.end());
  return stops;
}

}  // namespace

class AccessibilityTest : public QObject {
  Q_OBJECT

 private slots:
  void everyInputOnEveryPageHasANameAndSomethingToSay() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    HostWindow& window = *host.window;
    int inputs = 0;
    ForEveryPage(window, [&](const QString& page) {
      for (QWidget* stop : TabStops(window)) {
        const QString name = Read(stop, QAccessible::Name);
        QVERIFY2(!name.isEmpty(), qPrintable(page + ": " + NameOf(stop) + " has no name"));
        QVERIFY2(!name.contains('&'), qPrintable(page + ": " + name));
        // What it is for: its tooltip or help, or the page's words, unless those name it.
        const pelkedit::Widget* model = window.Component()->Widgets().Find(
            Reported(stop)->objectName().remove(QRegularExpression("Box$")).toStdString());
        const bool namedByItsWords =
            model != nullptr && name == QString::fromStdString(model->Description());
        QVERIFY2(namedByItsWords || !Read(stop, QAccessible::Description).isEmpty(),
                 qPrintable(page + ": " + name + " says nothing about itself"));
        ++inputs;
      }
    });
    QVERIFY(inputs > 60);

    // A question's input is named by the question and described by its help.
    pelkor::desktop::StepMainTab(window, 0);
    QWidget* wwih = host.Qt<QWidget>("deWwih");
    QCOMPARE(Read(wwih, QAccessible::Name), QString("When Will It Happen?"));
    QVERIFY(Read(wwih, QAccessible::Description).startsWith("The three questions"));
    // An option says its answer, and which question it answers.
    QWidget* high = host.Qt<QWidget>("optWihHigh");
    QCOMPARE(Read(high, QAccessible::Name), QString("High"));
    QVERIFY(Read(high, QAccessible::Description).startsWith("Will It Happen?"));
  }

  void thePicturesSayWhatTheyShow() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    const QString matrix = Read(host.Qt<QWidget>("picProbabilitMatrix"), QAccessible::Name);
    QVERIFY2(matrix.startsWith("Will it happen: High; will we get it: "), qPrintable(matrix));
    QVERIFY(Read(host.Qt<QWidget>("picUserPriority"), QAccessible::Name)
                .contains(QRegularExpression("^Priority \\d: your view$")));
    // An answer changes what the matrix says.
    host.Qt<QRadioButton>("optWihLow")->click();
    QVERIFY(Read(host.Qt<QWidget>("picProbabilitMatrix"), QAccessible::Name)
                .startsWith("Will it happen: Low;"));
    pelkor::desktop::StepMainTab(*host.window, 1);
    const QString graph = Read(host.Qt<QWidget>("picSalesCycle"), QAccessible::Name);
    QVERIFY2(graph.contains(QRegularExpression("^(Probe|Prove|Close) phase, ")), qPrintable(graph));
    // The advice is text a reader can read, not a picture of it.
    QVERIFY(!Read(host.Qt<QWidget>("rtfAdvisorMsg"), QAccessible::Value).isEmpty());
  }

  // The pipeline, where a salesperson starts: everything Tab reaches has a name.
  void everyPartOfThePipelineHasAName() {
    Host host;
    pelkor::desktop::PipelineWindow pipeline(*host.environment);
    pipeline.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pipeline));
    int stops = 0;
    for (QWidget* widget : pipeline.findChildren<QWidget*>()) {
      if (!widget->isVisible() || !(widget->focusPolicy() & Qt::TabFocus)) continue;
      QWidget* stop = Reported(widget);
      QVERIFY2(!Read(stop, QAccessible::Name).isEmpty(), qPrintable(NameOf(stop) + " has no name"));
      ++stops;
    }
    QVERIFY(stops >= 4);
  }

  // Every label and picture a page links to help opens a topic the help file has, with a
  // sentence a screen reader can say about the question.
  void everyHelpTopicAPageOpensIsInTheHelpFile() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    const pelkor::desktop::HelpSentences sentences(pelkor::desktop::ConfiguredHelpFile());
    int links = 0;
    for (const pelkedit::Widget* model : host.window->Component()->Widgets().All()) {
      if (model->HelpTopic() == 0) continue;
      QVERIFY2(!sentences.ForTopic(model->HelpTopic()).isEmpty(), model->Name().c_str());
      ++links;
    }
    QVERIFY(links > 50);
  }

  // Tab goes down a page as it is read: each stop is below the one before, or beside it on the
  // same row; a new column starts again at its top.
  void tabMovesAsThePageReads() {
    Host host;
    QVERIFY(host.Open(kExpertIbo));
    HostWindow& window = *host.window;
    ForEveryPage(window, [&](const QString& page) {
      const std::vector<QWidget*> stops = TabStops(window);
      for (std::size_t i = 1; i < stops.size(); ++i) {
        const QPoint before = PlaceOf(stops[i - 1], &window);
        const QPoint now = PlaceOf(stops[i], &window);
        const bool below = now.y() > before.y() + stops[i - 1]->height() / 2;
        const bool besideOnTheRow =
            std::abs(now.y() - before.y()) <= stops[i - 1]->height() / 2 && now.x() > before.x();
        const bool nextColumn = now.x() > before.x() + stops[i - 1]->width() / 2;
        QVERIFY2(below || besideOnTheRow || nextColumn,
                 qPrintable(page + ": " + NameOf(stops[i - 1]) + " then " + NameOf(stops[i])));
      }
    });
  }
};

QTEST_MAIN(AccessibilityTest)
#include "accessibility_test.moc"
