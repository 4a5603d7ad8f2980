#pragma once

#include <QScreen>
#include <QSize>

namespace pelkor::desktop {

// A new user's pipeline window: room for the columns and the pictures, but no more of the
// screen's free area than a share, so that it fits a small screen whole. The start-up bench's
// yardstick takes the same size.
inline QSize NewUserPipelineSize(const QScreen* screen) {
  constexpr QSize kNewUserSize(1280, 720);
  constexpr double kScreenShare = 0.9;
  if (screen == nullptr) return kNewUserSize;
  return kNewUserSize.boundedTo(screen->availableGeometry().size() * kScreenShare);
}

}  // namespace pelkor::desktop
