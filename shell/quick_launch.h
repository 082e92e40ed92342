#pragma once

namespace tarnwell {

struct MainWindow;

// Asks whether to put a shortcut to the program into the Quick Launch bar, does it on Yes, and
// tells how that went.
void OfferQuickLaunchShortcut(MainWindow& window);

}  // namespace tarnwell
