#pragma once

#include <string>
#include <string_view>

#include "platform/status.h"

namespace tarnwell {

class Files;
struct Module1;
struct Platform;

// The power-toys menu and its file "powertoys.ini" in the program folder. That the file exists says
// that the menu is on; its two lines are the best noise reduction (-1 on, 0 off) and the analysis
// source (0 thumbnail, 1 full photo).

// At start: without a file nothing changes. A damaged file turns the menu on and fails with the
// line; what stood before it is in force.
Status LoadPowerToys(Module1& app, Files& files);

// The same between text and settings; `name` is the file in messages.
Status ApplyPowerToysText(Module1& app, std::string_view text, const std::string& name);
std::string PowerToysText(const Module1& app);

// Writes the file while the menu is on, does nothing otherwise.
Status ToySave(const Module1& app, Files& files);

// From the About window: turns the menu on or off and tells the user. Turned off, the file goes at
// once; turned on, it is written when the program ends.
void TogglePowerToys(Module1& app, Platform& platform);

// ALT+M: turns the menu on and writes the file at once.
void TurnPowerToysOn(Module1& app, Platform& platform);

}  // namespace tarnwell
