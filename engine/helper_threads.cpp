#include "engine/helper_threads.h"

#include <exception>

namespace tarnwell {

std::vector<std::jthread> StartHelpers(int most, const std::function<void()>& work) {
  std::vector<std::jthread> helpers;
  try {
    for (int i = 0; i < most; ++i) helpers.emplace_back(work);
  } catch (const std::exception&) {
    // Too many threads, or no memory for one more; those that are there do the work.
  }
  return helpers;
}

}  // namespace tarnwell
