#pragma once

#include <functional>

namespace tarnwell {

// Works through columns 0 to `width` - 1: calls `work(x)` for every column, on up to `threads`
// threads, the calling one included; all threads have ended when it returns. After each column
// that is done, `column_done(n)` is called on the calling thread with how many are; when it answers
// false, no further column is begun. With one thread the columns come in order.
//
// `work` must not throw. Returns whether all columns were done.
bool ForEachColumn(int width, int threads, const std::function<void(int x)>& work,
                   const std::function<bool(int done)>& column_done);

}  // namespace tarnwell
