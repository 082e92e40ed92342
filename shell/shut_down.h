#pragma once

namespace tarnwell {

struct MainWindow;

// The main window's unload request: asks about unsaved changes, keeps the settings, stops what
// runs, takes the windows down. False when the window stays open: the user cancelled, the photo
// could not be saved, the window is closing already, or a command still runs. That one is cancelled
// and the close requested again at its end.
bool CloseMainWindow(MainWindow& window);

// Whether the system may end this session: asks about unsaved changes. Not while a command runs;
// that one is cancelled and the program closes at its end.
bool MayEndSession(MainWindow& window);

// The system ends the session, and this program with it: keeps the settings.
void EndSession(MainWindow& window);

}  // namespace tarnwell
