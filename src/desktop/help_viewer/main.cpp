// pelkor-help: the product's help viewer. `pelkor-help -WINDOW -#mapid N FILE` shows topic N of
// FILE in the window named WINDOW; a viewer already showing that window takes the request and
// comes to the front, and the second program ends at once.
#include <QApplication>
#include <QLocalServer>
#include <QLocalSocket>
#include <QMessageBox>
#include <QTextStream>
#include <cstdio>
#include <cstring>

#include "help_viewer/help_channel.h"
#include "help_viewer/help_request.h"
#include "help_viewer/help_window.h"

namespace {

constexpr int kConnectMilliseconds = 500;
constexpr int kReplyMilliseconds = 2000;

QByteArray Encode(const pelkor::help::HelpRequest& request) {
  return QString("show %1 %2\n").arg(request.mapId).arg(request.file).toUtf8();
}

// Hands the request to a viewer of this user already running; false when there is none.
bool HandOver(const QString& server, const pelkor::help::HelpRequest& request) {
  QLocalSocket socket;
  socket.connectToServer(server);
  if (!socket.waitForConnected(kConnectMilliseconds)) return false;
  if (!pelkor::help::PeerIsThisUser(socket)) return false;
  socket.write(Encode(request));
  socket.flush();
  socket.waitForReadyRead(kReplyMilliseconds);
  return true;
}

// "show N FILE" shows a topic; "state" answers "topic N" for whoever asks (the tests).
void Serve(QLocalSocket* socket, pelkor::help::HelpWindow& window) {
  while (socket->canReadLine()) {
    const QString line = QString::fromUtf8(socket->readLine()).trimmed();
    if (line.startsWith("show ")) {
      const QString rest = line.mid(5);
      const int space = rest.indexOf(' ');
      window.ShowTopic(rest.mid(space + 1), rest.left(space).toInt());
      window.showNormal();
      window.raise();
      window.activateWindow();
    }
    socket->write(QString("topic %1\n").arg(window.CurrentTopic()).toUtf8());
    socket->flush();
  }
}

constexpr const char* kUsage =
    "usage: pelkor-help -WINDOW -#mapid N FILE\n"
    "Shows topic N of the help FILE in the window named WINDOW, reusing it when it is open.\n";

// Asked before the application starts, so that it needs no display.
bool AsksForHelp(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) return true;
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (AsksForHelp(argc, argv)) {
    std::fputs(kUsage, stdout);
    return 0;
  }
  QApplication application(argc, argv);
  QApplication::setApplicationName("pelkor-help");
  QApplication::setApplicationDisplayName("Pelkor Help");
  const auto request = pelkor::help::ParseRequest(QApplication::arguments().mid(1));
  if (!request) {
    QTextStream(stderr) << kUsage;
    return 2;
  }
  const auto serverPath = pelkor::help::HelpServerPath(request->window);
  if (serverPath && HandOver(*serverPath, *request)) return 0;

  pelkor::help::HelpWindow window;
  QLocalServer server;
  server.setSocketOptions(QLocalServer::UserAccessOption);
  if (serverPath) {
    QLocalServer::removeServer(*serverPath);
    server.listen(*serverPath);
  }
  QObject::connect(&server, &QLocalServer::newConnection, &window, [&server, &window] {
    while (QLocalSocket* socket = server.nextPendingConnection()) {
      if (!pelkor::help::PeerIsThisUser(*socket)) {
        socket->abort();
        socket->deleteLater();
        continue;
      }
      QObject::connect(socket, &QLocalSocket::readyRead, &window,
                       [socket, &window] { Serve(socket, window); });
      QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    }
  });
  window.ShowTopic(request->file, request->mapId);
  window.show();
  return QApplication::exec();
}
