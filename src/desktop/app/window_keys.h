#pragma once

namespace pelkor::desktop {

class HostWindow;

// The window's keys: Ctrl+Tab, Ctrl+Shift+Tab, Ctrl+PageDown and Ctrl+PageUp step through the
// main tabs, Alt+PageDown and Alt+PageUp (and Ctrl+Alt+PageDown/PageUp) through the Sales
// Environment's phases, each as a press on the strip would; Ctrl+S presses Save.
void InstallWindowKeys(HostWindow& window);

// Ctrl+Z (and Redo) in a text box undoes the box's own typing first, as the box does; once the
// box has nothing of its own to take back, the key reaches the window's Edit menu.
void InstallTextUndoFirst(HostWindow& window);

// The next tab of the strip shown now, `step` tabs on (wrapping); the press goes through the
// strip's own handler, so leaving a tab collects it as a click does.
void StepMainTab(HostWindow& window, int step);
void StepPhase(HostWindow& window, int step);

}  // namespace pelkor::desktop
