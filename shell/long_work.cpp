#include "shell/long_work.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <utility>

#include "engine/helper_threads.h"
#include "engine/pass_progress.h"
#include "platform/clock.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

// Between two looks at the events; shorter than anybody notices.
constexpr std::chrono::milliseconds kPause(10);
// A window that comes and goes within this time would only flicker.
constexpr std::int64_t kInstantNanos = 300'000'000;

// What the calling thread does meanwhile: events, and a progress window where it takes long. The
// form's cancel flag tells of this work only; a cancel from before is remembered for afterwards.
class Meanwhile {
 public:
  Meanwhile(Form1& form, const std::string& job)
      : form_(form),
        job_(job),
        started_(form.platform.clock.Nanos()),
        cancelled_before_(std::exchange(form.app.cancel_requested, false)) {}
  ~Meanwhile() { form_.app.cancel_requested = form_.app.cancel_requested || cancelled_before_; }
  Meanwhile(const Meanwhile&) = delete;
  Meanwhile& operator=(const Meanwhile&) = delete;

  // False when the user has cancelled.
  bool Look(double share_done) {
    if (window_) {
      ShowPercentage(form_.progress, static_cast<float>(100 * share_done));
    } else if (form_.platform.clock.Nanos() - started_ > kInstantNanos) {
      window_.emplace(form_.progress, job_);
    }
    return LetEventsIn(form_);
  }

 private:
  Form1& form_;
  const std::string& job_;
  const std::int64_t started_;
  const bool cancelled_before_;
  std::optional<ProgressWindow> window_;
};

// The work, as the two threads know it.
class Work {
 public:
  std::atomic<double> share_done = 0;
  std::atomic<bool> stop = false;

  void Do(const std::function<void(const GoOn&)>& work, const GoOn& go_on) {
    try {
      work(go_on);
    } catch (...) {
      thrown_ = std::current_exception();
    }
    const std::lock_guard lock(mutex_);
    ended_ = true;
    ended_change_.notify_one();
  }

  // Waits a moment for the end; whether it has come.
  bool Wait() {
    std::unique_lock lock(mutex_);
    return ended_change_.wait_for(lock, kPause, [this] { return ended_; });
  }

  // After the end.
  void ThrowOn() const {
    if (thrown_) std::rethrow_exception(thrown_);
  }

 private:
  std::exception_ptr thrown_;
  std::mutex mutex_;
  std::condition_variable ended_change_;
  bool ended_ = false;
};

}  // namespace

bool DoBesideEvents(Form1& form, const std::string& job,
                    const std::function<void(const GoOn& go_on)>& work) {
  Meanwhile meanwhile(form, job);
  Work state;
  const auto look = [&](double share_done) {
    if (!meanwhile.Look(share_done)) state.stop = true;
    return !state.stop;
  };
  const auto helper = StartHelpers(1, [&] {
    state.Do(work, [&state](double done) {
      state.share_done = done;
      return !state.stop;
    });
  });
  // Without a thread for it, events are let in between the steps.
  if (helper.empty()) state.Do(work, look);
  for (bool ended = false; !ended;) {
    ended = state.Wait();
    look(state.share_done);
  }
  state.ThrowOn();
  return !state.stop;
}

}  // namespace tarnwell
