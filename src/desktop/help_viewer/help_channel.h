#pragma once

#include <QString>
#include <optional>

class QLocalSocket;

namespace pelkor::help {

// Where the viewer showing `window` listens for further requests: a socket in a folder only
// this user can enter ($XDG_RUNTIME_DIR/pelkor, or /tmp/pelkor-help-UID when there is no
// runtime folder). nullopt when no such folder can be had (one that exists but is not this
// user's alone is never used): the viewer then opens its own window and takes no hand-overs.
std::optional<QString> HelpServerPath(const QString& window);

// Whether the other end of a connected local socket runs as this user. Help requests are
// handed over, and taken, only between processes of the same user.
bool PeerIsThisUser(const QLocalSocket& socket);

}  // namespace pelkor::help
