#pragma once

#include <string>
#include <string_view>

#include "platform/status.h"

namespace tarnwell {

struct Form1;
struct Module1;
struct WindowMemory;
struct frmModules;

// The last-used settings: what the program finds again at its next start. They are kept in one file
// in the program folder, which settings_store.cpp describes line by line.

// Writes the settings, replacing the file, then the power toys (ToySave). An empty value text, and
// one that is no number, becomes "0" first. A failure leaves the file of the last time.
Status INISave(Form1& form);

// Reads the settings back into the panel and the main window. A missing file, and one of another
// version of the program, leave everything as it is. A damaged file fails with file and line; what
// stood before that line is in force, and the file is left alone. Camera and mode are taken as
// names only: they are still to be selected.
Status LoadLastUsedSettings(Form1& form);

// The same between settings and text; `name` is the file in messages.
struct LastUsed {
  Module1& app;
  frmModules& panel;
  WindowMemory& memory;
};
std::string LastUsedText(const LastUsed& settings);
Status ApplyLastUsedText(const LastUsed& settings, std::string_view text, const std::string& name);

}  // namespace tarnwell
