#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tarnwell {

struct MainWindow;

// Opens a photo that comes from outside the window: dropped on it, or handed over by another
// instance. Asks about unsaved changes first; only then `take` gives the path, or nothing. Does
// nothing while the window is occupied. Returns whether a photo was opened.
bool OpenFromOutside(MainWindow& window, const std::function<std::optional<std::string>()>& take);

}  // namespace tarnwell
