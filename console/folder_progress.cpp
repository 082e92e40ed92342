#include "console/folder_progress.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "platform/clock.h"

namespace tarnwell {
namespace {

constexpr std::int64_t kNanosPerSecond = 1'000'000'000;
constexpr int kBarWidth = 20;
constexpr char kWipeLine[] = "\r\x1b[K";

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

FolderProgress::FolderProgress(std::ostream& terminal, bool drawn, Clock& clock, std::size_t total)
    : terminal_(terminal), drawn_(drawn), clock_(clock), total_(total), started_(clock.Nanos()) {}

FolderProgress::~FolderProgress() {
  if (drawn_) terminal_ << kWipeLine << std::flush;
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
  if (drawn_) terminal_ << kWipeLine;
  terminal_ << line << std::endl;
  Draw();
}

void FolderProgress::Draw() {
  if (!drawn_) return;
  const int filled = percent_ * kBarWidth / 100;
  terminal_ << kWipeLine << "[" << std::string(filled, '#') << std::string(kBarWidth - filled, '.')
            << "] " << std::setw(3) << percent_ << " %  photo " << shown_ << " of " << total_;
  if (done_ > 0) {
    const auto done = static_cast<std::int64_t>(done_);
    const std::int64_t elapsed = clock_.Nanos() - started_;
    const std::int64_t left = elapsed / done * static_cast<std::int64_t>(total_ - done_);
    terminal_ << ", " << ShownDuration(left / kNanosPerSecond) << " left";
  }
  terminal_ << "  " << name_ << std::flush;
}

std::string ShownDuration(std::int64_t seconds) {
  const std::int64_t hours = seconds / 3600;
  std::ostringstream text;
  if (hours > 0) text << hours << ":" << std::setfill('0') << std::setw(2);
  text << seconds / 60 % 60 << ":" << std::setfill('0') << std::setw(2) << seconds % 60;
  return text.str();
}

}  // namespace tarnwell
