// The help viewer as the editor uses it: a second request goes to the viewer already showing
// the window, which then holds the second topic; F1 on a question asks for its label's topic,
// and the labels that open help show the help pointer.
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QLabel>
#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>
#include <cstring>

#include "binding/picture_view.h"
#include "help_viewer/help_channel.h"
#include "host_fixture.h"

using namespace host_fixture;

namespace {

const QString kWindow = "PelkorHelpTest";
constexpr int kStartMilliseconds = 10000;

// The topic the viewer of kWindow shows ("" while none answers).
QString ViewerState() {
  QLocalSocket socket;
  socket.connectToServer(pelkor::help::HelpServerPath(kWindow).value());
  if (!socket.waitForConnected(200)) return {};
  socket.write("state\n");
  socket.flush();
  if (!socket.waitForReadyRead(2000)) return {};
  return QString::fromUtf8(socket.readLine()).trimmed();
}

mode_t ModeOf(const QString& path) {
  struct stat info {};
  if (::stat(QFile::encodeName(path).constData(), &info) != 0) return 0;
  return info.st_mode & 07777;
}

// Connects to the socket at `path` from a child process running as `uid`; waits for it.
void ConnectAs(uid_t uid, const QString& path) {
  const QByteArray native = QFile::encodeName(path);
  const pid_t child = ::fork();
  if (child == 0) {
    if (::setuid(uid) != 0) ::_exit(1);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, native.constData(), sizeof(address.sun_path) - 1);
    const int connected = ::connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address));
    ::sleep(1);
    ::_exit(connected == 0 ? 0 : 2);
  }
  QVERIFY(child > 0);
  int status = 0;
  ::waitpid(child, &status, 0);
  QCOMPARE(WEXITSTATUS(status), 0);
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

  // Help requests go through a socket only this user can reach: in the runtime folder when it is
  // private, never in one others may write to, and a listener of another account is not used.
  void theViewersSocketIsPrivate() {
    QTemporaryDir runtime;
    QVERIFY(runtime.isValid());
    const QByteArray saved = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
    const auto inRuntime = pelkor::help::HelpServerPath("Pelkor/Help");
    QCOMPARE(inRuntime.value(), runtime.path() + "/pelkor/help-Pelkor_Help");
    QCOMPARE(ModeOf(runtime.path() + "/pelkor"), mode_t{0700});

    QVERIFY(QFile::setPermissions(runtime.path(), QFileDevice::Permissions(0x7777)));
    const auto shared = pelkor::help::HelpServerPath("PelkorHelp");
    QVERIFY(shared.has_value());
    QVERIFY(!shared->startsWith(runtime.path()));
    QCOMPARE(ModeOf(QFileInfo(*shared).absolutePath()), mode_t{0700});
    qputenv("XDG_RUNTIME_DIR", saved);
  }

  void onlyTheSameUsersPeerIsTrusted() {
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    QVERIFY(QFile::setPermissions(folder.path(), QFileDevice::Permissions(0x7755)));
    QLocalServer server;
    server.setSocketOptions(QLocalServer::WorldAccessOption);
    const QString path = folder.path() + "/peer";
    QVERIFY(server.listen(path));

    QLocalSocket mine;
    mine.connectToServer(path);
    QVERIFY(mine.waitForConnected(1000));
    QVERIFY(server.waitForNewConnection(1000));
    QVERIFY(pelkor::help::PeerIsThisUser(*server.nextPendingConnection()));
    QVERIFY(pelkor::help::PeerIsThisUser(mine));

    if (::geteuid() != 0) QSKIP("another account's connection needs root to make");
    constexpr uid_t kNobody = 65534;
    ConnectAs(kNobody, path);
    QVERIFY(server.waitForNewConnection(1000));
    QVERIFY(!pelkor::help::PeerIsThisUser(*server.nextPendingConnection()));
  }

  // Where no question has the focus, F1 opens the nearest topic: the product list, the note,
  // the comparison after a refused save; every topic the host opens is in the help file.
  void f1AnywhereOpensTheNearestTopic() {
    Host host;
    std::vector<std::string> started;
    host.environment->Platform().SetProcessHook(
        [&started](const std::string& line) { started.push_back(line); });
    QVERIFY(host.Open(kExpertIbo));
    const auto pressF1On = [&](QWidget* widget) -> std::string {
      widget->setFocus();
      if (!QTest::qWaitFor([widget] { return widget->hasFocus(); })) return "no focus";
      QTest::keyClick(widget, Qt::Key_F1);
      return started.empty() ? std::string() : started.back();
    };
    QTest::mouseClick(host.Qt<pelkor::desktop::PictureView>("picMainTab"), Qt::LeftButton, {},
                      QPoint(305, 10));
    QVERIFY(pressF1On(host.Qt<QWidget>("ProductView1")).find("-#mapid 61 ") != std::string::npos);
    QVERIFY(pressF1On(host.Qt<QWidget>("txtConPhone")).find("-#mapid 60 ") != std::string::npos);
    QTest::mouseClick(host.Qt<pelkor::desktop::PictureView>("picMainTab"), Qt::LeftButton, {},
                      QPoint(376, 10));
    QVERIFY(pressF1On(host.Qt<QWidget>("txtIboNote")).find("-#mapid 62 ") != std::string::npos);
    QVERIFY(pressF1On(host.Qt<QWidget>("cmdSave")).find("-#mapid 63 ") != std::string::npos);

    QFile file(PELK_HELP_FILE);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString help = QString::fromUtf8(file.readAll());
    for (const int topic : {60, 61, 62, 63, 64, 65}) {
      QVERIFY2(help.contains(QString("id=\"mapid-%1\"").arg(topic)),
               qPrintable(QString::number(topic)));
    }
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
