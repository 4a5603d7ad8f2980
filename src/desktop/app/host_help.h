#pragma once

#include <QWidget>
#include <cstdint>

#include "platform/qt_platform.h"

namespace pelkor::desktop {

class HostWindow;

// Help topics of what the host shows beside the questions, by their map ids in the help file.
namespace help_topic {
inline constexpr std::int32_t kEssentials = 10;
inline constexpr std::int32_t kSalesAdvisor = 11;
inline constexpr std::int32_t kProbe = 12;
inline constexpr std::int32_t kProve = 13;
inline constexpr std::int32_t kClose = 14;
inline constexpr std::int32_t kContact = 60;
inline constexpr std::int32_t kProducts = 61;
inline constexpr std::int32_t kNote = 62;
inline constexpr std::int32_t kSaving = 63;
inline constexpr std::int32_t kRefusedSave = 64;
inline constexpr std::int32_t kComparison = 65;
}  // namespace help_topic

// The topic nearest to where the user is in the window: the product list, Save and Cancel,
// or else the page (and phase) shown.
std::int32_t NearestHelpTopic(HostWindow& window, const QWidget* focus);

// Opens a topic in the help viewer as the editor opens its questions' topics; a missing file or
// setting is told to the user.
void ShowHelpTopic(QtPlatform& platform, std::int32_t mapId);

// F1 in a dialog of the host opens its topic.
void InstallHelpKey(QWidget& dialog, QtPlatform& platform, std::int32_t mapId);

}  // namespace pelkor::desktop
