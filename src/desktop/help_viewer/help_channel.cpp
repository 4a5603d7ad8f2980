#include "help_viewer/help_channel.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QRegularExpression>

namespace pelkor::help {
namespace {

constexpr mode_t kPrivateFolder = S_IRWXU;

// A folder that is a real folder (not a link), owned by this user, that nobody else may enter.
bool IsPrivateFolder(const QByteArray& path) {
  struct stat info {};
  if (::lstat(path.constData(), &info) != 0) return false;
  return S_ISDIR(info.st_mode) && info.st_uid == ::geteuid() &&
         (info.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

// `path`, made if missing, when it is this user's alone.
std::optional<QString> PrivateFolder(const QString& path) {
  const QByteArray native = QFile::encodeName(path);
  ::mkdir(native.constData(), kPrivateFolder);
  if (!IsPrivateFolder(native)) return std::nullopt;
  return path;
}

std::optional<QString> ChannelFolder() {
  const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
  if (!runtime.isEmpty() && IsPrivateFolder(QFile::encodeName(runtime))) {
    return PrivateFolder(QDir(runtime).filePath("pelkor"));
  }
  return PrivateFolder(QDir::temp().filePath(QString("pelkor-help-%1").arg(::geteuid())));
}

}  // namespace

std::optional<QString> HelpServerPath(const QString& window) {
  const auto folder = ChannelFolder();
  if (!folder) return std::nullopt;
  // The window name comes from the command line: it names a file, so it keeps to plain letters.
  QString name = window;
  name.replace(QRegularExpression("[^A-Za-z0-9_-]"), "_");
  return QDir(*folder).filePath("help-" + name);
}

bool PeerIsThisUser(const QLocalSocket& socket) {
  ucred peer{};
  socklen_t size = sizeof(peer);
  const auto fd = static_cast<int>(socket.socketDescriptor());
  if (fd < 0 || ::getsockopt(fd, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0) return false;
  return peer.uid == ::geteuid();
}

}  // namespace pelkor::help
