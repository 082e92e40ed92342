#pragma once

#include <functional>

namespace tarnwell {

// Works through a pass of `count` parts, numbered from 0: calls `work(part)` for every part, on up
// to `threads` threads, the calling one included, each of which takes `at_once` parts in a row; all
// threads have ended when it returns. After each part that is done, `part_done(n)` is called on the
// calling thread with how many are; when it answers false, no further part is begun. With one
// thread the parts come in order.
//
// `work` must not throw. Returns whether all parts were done.
bool ForEachPart(int count, int at_once, int threads, const std::function<void(int part)>& work,
                 const std::function<bool(int done)>& part_done);

// The same for the columns or rows of a picture; so many at once that two threads do not write to
// one cache line.
inline constexpr int kLinesAtOnce = 16;

}  // namespace tarnwell
