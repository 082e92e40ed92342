#pragma once

#include <functional>
#include <thread>
#include <vector>

namespace tarnwell {

// Starts `work` on up to `most` threads besides the calling one: fewer, down to none, where the
// system lends no more. They are waited for when the list ends or is cleared; until then, whatever
// `work` refers to must stay. `work` must not throw.
std::vector<std::jthread> StartHelpers(int most, const std::function<void()>& work);

}  // namespace tarnwell
