// Every caption fits its widget: labels, buttons and options on every page of the editor, in
// the dialogs it opens and on the pipeline, at the screen scale the test runs with
// (QT_SCALE_FACTOR: 1, 1.5, 2) and with the desktop's default font and a 14-point one.
#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QtTest>

#include "app/window_keys.h"
#include "control/tab_strips.h"
#include "host_fixture.h"
#include "pipeline/pipeline_window.h"

using namespace host_fixture;
namespace tab = pelkedit::tab;

namespace {

constexpr int kLargeFontPoints = 14;

// The room a widget gives its caption's text, and the text's own size.
struct Fit {
  QSize room;
  QSize needed;
};

QString Shown(QString text) {
  // A mnemonic mark takes no room.
  return text.remove(QRegularExpression("&(?!&)"));
}

Fit FitOf(QWidget* widget) {
  // Measured as the widget draws: in its font, on its screen.
  const QFontMetrics metrics = widget->fontMetrics();
  if (auto* label = qobject_cast<QLabel*>(widget)) {
    const QRect room = label->contentsRect();
    if (label->wordWrap()) {
      const QRect needed = metrics.boundingRect(room, Qt::TextWordWrap, Shown(label->text()));
      return {room.size(), needed.size()};
    }
    return {room.size(), metrics.size(Qt::TextSingleLine, Shown(label->text()))};
  }
  // The part of a button the style draws its text in: past an option's indicator, inside a
  // push button's frame.
  auto* button = qobject_cast<QAbstractButton*>(widget);
  const QSize text = metrics.size(Qt::TextShowMnemonic, button->text());
  QStyleOptionButton option;
  option.initFrom(button);
  const bool optionLike =
      qobject_cast<QRadioButton*>(button) != nullptr || qobject_cast<QCheckBox*>(button) != nullptr;
  const QRect contents = button->style()->subElementRect(
      optionLike ? QStyle::SE_RadioButtonContents : QStyle::SE_PushButtonContents, &option, button);
  return {contents.size(), text};
}

QStringList CutTexts(QWidget& window, const QString& page) {
  QStringList cut;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    // The calendar's own month and year buttons are Qt's to lay out.
    if (!widget->isVisible() || widget->objectName().startsWith("qt_")) continue;
    const bool captioned = qobject_cast<QLabel*>(widget) != nullptr ||
                           qobject_cast<QAbstractButton*>(widget) != nullptr;
    if (!captioned) continue;
    if (auto* label = qobject_cast<QLabel*>(widget); label != nullptr && label->text().isEmpty()) {
      continue;
    }
    if (auto* button = qobject_cast<QAbstractButton*>(widget);
        button != nullptr && button->text().isEmpty()) {
      continue;
    }
    const Fit fit = FitOf(widget);
    if (fit.needed.width() > fit.room.width() || fit.needed.height() > fit.room.height()) {
      const auto* label = qobject_cast<QLabel*>(widget);
      const QString text =
          label != nullptr ? label->text() : qobject_cast<QAbstractButton*>(widget)->text();
      cut << QString("%1: %2 \"%3\" needs %4x%5, has %6x%7")
                 .arg(page, widget->objectName(), text)
                 .arg(fit.needed.width())
                 .arg(fit.needed.height())
                 .arg(fit.room.width())
                 .arg(fit.room.height());
    }
  }
  return cut;
}

QStringList CutOnEveryPage(HostWindow& window) {
  QStringList cut;
  ForEveryPage(window, [&](const QString& page) { cut << CutTexts(window, page); });
  return cut;
}

// The captions of the editor's every page, of the dialogs it opens and of the pipeline.
QStringList CutEverywhere() {
  Host host;
  if (!host.Open(kExpertIbo)) return {"IBO cannot be shown"};
  HostWindow& window = *host.window;
  QStringList cut = CutOnEveryPage(window);
  // A dialog as it opens: measured, then closed.
  const auto measureDialog = [&](const QString& name, const std::function<void()>& open) {
    QTimer::singleShot(0, &window, [&, name] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (dialog == nullptr) {
        cut << name + " did not open";
        return;
      }
      cut << CutTexts(*dialog, name);
      dialog->close();
    });
    open();
  };
  measureDialog("start date", [&] { window.ChangeStartDate(); });
  pelkor::desktop::StepMainTab(window, tab::kSalesEnvironment - tab::kEssentials);
  measureDialog("competitors", [&] {
    window.Binding()->Run([&] {
      window.Component()->Widgets().Get<pelkedit::Button>("cmdSenvCompetitors").UserClick();
    });
  });
  pelkor::desktop::PipelineWindow pipeline(*host.environment);
  pipeline.show();
  // Its status line is laid out once the count is in.
  QTest::qWait(0);
  cut << CutTexts(pipeline, "pipeline");
  return cut;
}

}  // namespace

class TextFitTest : public QObject {
  Q_OBJECT

 private slots:
  void everyCaptionFitsWithTheDefaultFont() {
    const QStringList cut = CutEverywhere();
    QVERIFY2(cut.isEmpty(), qPrintable(cut.join("\n")));
  }

  void everyCaptionFitsWithAFourteenPointFont() {
    const QFont standard = QApplication::font();
    QFont large = standard;
    large.setPointSize(kLargeFontPoints);
    QApplication::setFont(large);
    const QStringList cut = CutEverywhere();
    QApplication::setFont(standard);
    QVERIFY2(cut.isEmpty(), qPrintable(cut.join("\n")));
  }
};

QTEST_MAIN(TextFitTest)
#include "text_fit_test.moc"
