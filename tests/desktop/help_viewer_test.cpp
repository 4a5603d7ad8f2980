// The help viewer as the editor uses it: a second request goes to the viewer already showing
// the window, which then holds the second topic; F1 on a question asks for its label's topic,
// and the labels that open help show the help pointer.
#include <QLabel>
#include <QLocalSocket>
#include <QProcess>
#include <QRadioButton>
#include <QtTest>

#include "host_fixture.h"

using namespace host_fixture;

namespace {

const QString kWindow = "PelkorHelpTest";
constexpr int kStartMilliseconds = 10000;

// The topic the viewer of kWindow shows ("" while none answers).
QString ViewerState() {
  QLocalSocket socket;
  socket.connectToServer("pelkor-help-" + kWindow + "-" + qEnvironmentVariable("USER", "user"));
  if (!socket.waitForConnected(200)) return {};
  socket.write("state\n");
  socket.flush();
  if (!socket.waitForReadyRead(2000)) return {};
  return QString::fromUtf8(socket.readLine()).trimmed();
}

QStringList Request(int mapId) {
  return {"-" + kWindow, "-#mapid", QString::number(mapId), PELK_HELP_FILE};
}

}  // namespace

class HelpViewerTest : public QObject {
  Q_OBJECT

 private slots:
  void aSecondRequestShowsItsTopicInTheFirstWindow() {
    QProcess first;
    first.start(PELK_HELP_VIEWER, Request(10));
    QVERIFY(first.waitForStarted());
    QTRY_COMPARE_WITH_TIMEOUT(ViewerState(), QString("topic 10"), kStartMilliseconds);
    QProcess second;
    second.start(PELK_HELP_VIEWER, Request(53));
    QVERIFY(second.waitForFinished(kStartMilliseconds));
    QCOMPARE(second.exitCode(), 0);
    QTRY_COMPARE(ViewerState(), QString("topic 53"));
    QCOMPARE(first.state(), QProcess::Running);
    first.terminate();
    QVERIFY(first.waitForFinished(kStartMilliseconds));
  }

  void f1OnAQuestionOpensTheTopicOfItsLabel() {
    Host host;
    std::vector<std::string> started;
    host.environment->Platform().SetProcessHook(
        [&started](const std::string& line) { started.push_back(line); });
    QVERIFY(host.Open(kExpertIbo));
    QCOMPARE(host.Qt<QLabel>("lblEssentWIH")->cursor().shape(), Qt::WhatsThisCursor);
    auto* option = host.Qt<QRadioButton>("optWihHigh");
    option->setFocus();
    QTRY_VERIFY(option->hasFocus());
    QTest::keyClick(host.window.get(), Qt::Key_F1);
    QCOMPARE(started.size(), std::size_t{1});
    QVERIFY(
        QString::fromStdString(started.front()).startsWith("keyhh.exe -PelkorHelp -#mapid 10 "));
    QVERIFY(QString::fromStdString(started.front()).endsWith("pelkor-help.html"));
  }
};

QTEST_MAIN(HelpViewerTest)
#include "help_viewer_test.moc"
