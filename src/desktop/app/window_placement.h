#pragma once

class QWidget;

namespace pelkor::desktop {

// The editor window opens where, and as large as, the user last left it: kept in the user's
// settings folder (~/.config/pelkor/pelkor-edit.ini, or under $XDG_CONFIG_HOME).
void RestorePlacement(QWidget& window);
void SavePlacement(const QWidget& window);

}  // namespace pelkor::desktop
