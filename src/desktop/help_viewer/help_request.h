#pragma once

#include <QString>
#include <optional>

namespace pelkor::help {

// What the editor asks of the viewer: `-WINDOW -#mapid N FILE` (the file may hold spaces: it is
// the rest of the line). The topic of map id N is the element with id "mapid-N".
struct HelpRequest {
  QString window;
  int mapId = 0;
  QString file;
};

// nullopt when the arguments are not such a request.
std::optional<HelpRequest> ParseRequest(const QStringList& arguments);

// The anchor of a map id in the help file.
QString AnchorOf(int mapId);

}  // namespace pelkor::help
