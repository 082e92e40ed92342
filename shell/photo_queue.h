#pragma once

#include <string>
#include <string_view>

namespace tarnwell {

// The queue file, by which a second instance hands its photo to the running one: a path per line,
// of which the running instance takes the first.
std::string QueueLine(const std::string& path);
std::string QueuedPath(std::string_view queue);  // empty when there is none

}  // namespace tarnwell
