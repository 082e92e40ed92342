#include "console/folder_progress.h"

#include <algorithm>

#include "console/console_host.h"
#include "platform/clock.h"
#include "shell/time_left.h"

namespace tarnwell {
namespace {

constexpr int kBarWidth = 20;

}  // namespace

class FolderProgress::PhotoView : public ProgressView {
 public:
  PhotoView(FolderProgress& folder, std::size_t number) : folder_(folder), number_(number) {}

  void ShowWindow() override {}
  void HideWindow() override {}
  void ShowText(const std::string&) override {}
  void DrawBar(float percentage) override {
    const int percent = std::clamp(static_cast<int>(percentage), 0, 100);
    const std::lock_guard lock(folder_.mutex_);
    if (folder_.shown_ != number_ || folder_.percent_ == percent) return;
    folder_.percent_ = percent;
    folder_.Draw();
  }

 private:
  FolderProgress& folder_;
  const std::size_t number_;
};

FolderProgress::FolderProgress(ConsoleHost& host, bool drawn, Clock& clock, std::size_t total)
    : terminal_(host.err),
      line_(host.err, host.columns),
      drawn_(drawn),
      clock_(clock),
      total_(total),
      started_(clock.Nanos()) {}

FolderProgress::~FolderProgress() {
  if (drawn_) line_.Wipe();
}

std::unique_ptr<ProgressView> FolderProgress::Begin(std::size_t number, const std::string& name) {
  const std::lock_guard lock(mutex_);
  shown_ = number;
  percent_ = 0;
  name_ = name;
  Draw();
  return std::make_unique<PhotoView>(*this, number);
}

void FolderProgress::Done() {
  const std::lock_guard lock(mutex_);
  ++done_;
  Draw();
}

void FolderProgress::Tell(const std::string& line) {
  const std::lock_guard lock(mutex_);
  if (drawn_) line_.Wipe();
  TellLine(terminal_, line);
  Draw();
}

void FolderProgress::Draw() {
  if (!drawn_) return;
  line_.Draw(PercentBar(percent_, kBarWidth) + "  photo " +
             ShownPosition(shown_, total_, done_, clock_.Nanos() - started_) + "  " + name_);
}

}  // namespace tarnwell
