#pragma once

namespace pelkor::desktop {

class HostWindow;

// The window's keys: Ctrl+Tab, Ctrl+Shift+Tab, Ctrl+PageDown and Ctrl+PageUp step through the
// main tabs, Alt+PageDown and Alt+PageUp (and Ctrl+Alt+PageDown/PageUp) through the Sales
// Environment's phases, each as a press on the strip would; Ctrl+S presses Save.
void InstallWindowKeys(HostWindow& window);

// The next tab of the strip shown now, `step` tabs on (wrapping); the press goes through the
// strip's own handler, so leaving a tab collects it as a click does.
void StepMainTab(HostWindow& window, int step);
void StepPhase(HostWindow& window, int step);

}  // namespace pelkor::desktop
