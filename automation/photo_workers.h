#pragma once

#include <cstddef>
#include <functional>

namespace tarnwell {

// Calls `work` for the numbers 0 to count - 1 on up to `workers` threads, the calling one included,
// and returns when all are done. Before each, `begin` is called: for one number at a time and in
// their order, whatever the number of threads. Once `begin` says false no more are begun; so it is
// when either throws, which is thrown on when all are done.
void ForEachPhoto(std::size_t count, int workers, const std::function<bool(std::size_t)>& begin,
                  const std::function<void(std::size_t)>& work);

}  // namespace tarnwell
