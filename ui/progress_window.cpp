#include "ui/progress_window.h"

#include "ui/wide_text.h"

namespace tarnwell {
namespace {

constexpr int kWidth = 45 * kGrid;
constexpr int kHeight = 17 * kGrid;
constexpr int kMargin = 3 * kGrid;
constexpr UINT_PTR kTimer1 = 1;
// When the correction has told nothing for so long, the bar moves on its own.
constexpr ULONGLONG kSilentMilliseconds = 500;
// A run that is over sooner, as most previews are, shows no window that would only flicker.
constexpr ULONGLONG kShownAfterMilliseconds = 300;

// Whether one of the system's boxes waits for an answer; the answer goes first.
bool IsBoxOpen(HWND owner) {
  wchar_t name[16] = {};
  const HWND front = GetLastActivePopup(owner);
  GetClassNameW(front, name, 16);
  return lstrcmpW(name, L"#32770") == 0 && IsWindowVisible(front);
}

}  // namespace

ProgressBox::ProgressBox(frmProgress& progress, bool& cancel_requested, PendingEvents& events)
    : progress_(progress),
      cancel_requested_(cancel_requested),
      events_(events),
      lblJob_(look_, Ground::kPage, Face::kBody),
      bar_(look_),
      lblFolder_(look_, Ground::kPage, Face::kCaption, true),
      picCancel_(look_, Ground::kPage, ButtonKind::kPlain) {}

void ProgressBox::Create(HWND owner) {
  MakeDialog(L"Progress", owner, kWidth, kHeight);
  lblJob_.Create(handle(), L"");
  bar_.Create(handle(), L"Progress");
  lblFolder_.Create(handle(), L"");
  picCancel_.clicked = [this] { Cancel(); };
  picCancel_.Create(handle(), L"&Cancel");
  LayOut(Client());
}

void ProgressBox::LayOut(const Box& client) {
  if (!picCancel_.handle()) return;
  const int margin = Px(kMargin);
  lblJob_.Place({margin, Px(3 * kGrid), client.width - 2 * margin, Px(3 * kGrid)});
  bar_.Place({margin, Px(7 * kGrid), client.width - 2 * margin, Px(6)});
  lblFolder_.Place({margin, client.height - Px(5 * kGrid) - Px(4),
                    client.width - 2 * margin - Px(13 * kGrid), Px(3 * kGrid)});
  picCancel_.Place({client.width - margin - Px(12 * kGrid), client.height - Px(6 * kGrid),
                    Px(12 * kGrid), Px(4 * kGrid)});
}

void ProgressBox::ShowWindow() {
  ShowCancel(progress_.cancel_pressed);
  ShowText(progress_.lblJob);
  started_ = last_report_ = GetTickCount64();
  running_ = true;
  SetTimer(handle(), kTimer1, static_cast<UINT>(progress_.timer_interval), nullptr);
  active_before_ = GetActiveWindow();
  others_.emplace(handle());
}

void ProgressBox::ComeUpWhenDue() {
  if (!running_ || IsWindowVisible(handle())) return;
  if (GetTickCount64() - started_ < kShownAfterMilliseconds) return;
  if (IsBoxOpen(GetWindow(handle(), GW_OWNER))) return;
  ShowCentred();
  SetFocus(picCancel_.handle());
  UpdateWindow(handle());
}

// The others are enabled first, or another program's window would come to the front.
void ProgressBox::HideWindow() {
  KillTimer(handle(), kTimer1);
  running_ = false;
  others_.reset();
  if (GetActiveWindow() == handle() && IsWindowVisible(active_before_)) {
    SetActiveWindow(active_before_);
  }
  Show(false);
}

void ProgressBox::DrawBar(float percentage) {
  last_report_ = GetTickCount64();
  ComeUpWhenDue();
  bar_.SetPercentage(percentage);
}

void ProgressBox::ShowText(const std::string& lblJob) {
  SetText(Wide(progress_.caption));
  lblJob_.SetText(Wide(lblJob));
  ComeUpWhenDue();
  UpdateWindow(lblJob_.handle());
  ShowNote();
}

void ProgressBox::ShowTimeLeft(const std::string&) { ShowNote(); }

// Where a directory is worked through, its line tells the time that is left for all of it.
void ProgressBox::ShowNote() {
  const std::string& note = progress_.lblFolder.empty() ? progress_.time_left : progress_.lblFolder;
  lblFolder_.SetText(Wide(note));
  lblFolder_.Show(!note.empty());
  UpdateWindow(lblFolder_.handle());
}

// It stays pressed until the window is gone: the work may take a moment to end.
void ProgressBox::ShowCancel(bool pressed) {
  picCancel_.SetText(pressed ? L"Cancelling..." : L"&Cancel");
  picCancel_.SetChosen(pressed);
}

void ProgressBox::Cancel() {
  ShowCancel(/*pressed=*/true);
  CancelClicked(progress_, cancel_requested_, events_);
}

void ProgressBox::Animate() {
  const ULONGLONG reported = last_report_;
  if (GetTickCount64() - reported < kSilentMilliseconds) return;
  Timer1_Tick(progress_);
  last_report_ = reported;
}

LRESULT ProgressBox::Handle(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_TIMER && w == kTimer1) {
    ComeUpWhenDue();
    Animate();
    return 0;
  }
  return FrameWindow::Handle(message, w, l);
}

}  // namespace tarnwell
