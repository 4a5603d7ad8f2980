#include "help_viewer/help_request.h"

#include <QStringList>

namespace pelkor::help {

std::optional<HelpRequest> ParseRequest(const QStringList& arguments) {
  constexpr int kLeadingParts = 3;
  if (arguments.size() <= kLeadingParts) return std::nullopt;
  HelpRequest request;
  if (!arguments[0].startsWith('-') || arguments[0].size() < 2) return std::nullopt;
  request.window = arguments[0].mid(1);
  if (arguments[1] != "-#mapid") return std::nullopt;
  bool number = false;
  request.mapId = arguments[2].toInt(&number);
  if (!number) return std::nullopt;
  request.file = arguments.mid(kLeadingParts).join(' ');
  return request;
}

QString AnchorOf(int mapId) {
  return QString("mapid-%1").arg(mapId);
}

}  // namespace pelkor::help
