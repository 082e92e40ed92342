#pragma once

#include <string>

#include "platform/status.h"

namespace tarnwell {

class Files;

// Opens the help file in the program that the system has for it.
Status OpenHelpFile(Files& files, const std::string& help_file);

// Opens a web page in the default browser.
Status OpenInBrowser(const std::string& address);

// Puts a shortcut to this program into the user's Quick Launch folder, replacing an older one.
Status MakeShortcutInQuickLaunch();

}  // namespace tarnwell
