#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarnwell {

// "0:07", "12:34", "1:02:03".
std::string ShownDuration(std::int64_t seconds);

// "3 of 120, 1:05 left", when `done` photos took `elapsed_nanos` together; without the time
// before the first is done.
std::string ShownPosition(std::size_t number, std::size_t total, std::size_t done,
                          std::int64_t elapsed_nanos);

// How long a job will still take of which `share_done` (0 to 1) took `elapsed_nanos`, in calm
// words: "about 20 seconds left", "about 4 minutes left", "about 1 hour 20 minutes left". Empty for
// ten seconds and less, and in the first seconds of a job, which tell little.
std::string AboutTimeLeft(double share_done, std::int64_t elapsed_nanos);

}  // namespace tarnwell
