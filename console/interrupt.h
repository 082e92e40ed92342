#pragma once

#include <functional>

namespace tarnwell {

// From now on the first interrupt of the user (Ctrl+C), request to end (SIGTERM) or end of
// the terminal (SIGHUP) only makes the
// returned question answer true; a second one ends the program at once, as it would without this.
std::function<bool()> WatchForInterrupt();

}  // namespace tarnwell
