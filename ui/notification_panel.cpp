#include "ui/notification_panel.h"

#include <algorithm>

#include "ui/wide_text.h"

namespace tarnwell {
namespace {

constexpr int kWidth = 48 * kGrid;
constexpr int kMargin = 2 * kGrid;
constexpr UINT_PTR kTimer = 1;

}  // namespace

NotificationPanel::NotificationPanel() {
  Make(L"TarnwellNotification", L"", WS_POPUP, WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE,
       nullptr, {});
}

void NotificationPanel::ShowFor(const std::string& text, int milliseconds) {
  text_ = Wide(text);
  SetText(text_);
  look_.ReadTheme();
  RECT work = {};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  const int width = std::min<int>(Px(kWidth), work.right - work.left);
  const int height =
      ParagraphHeight(look_, Face::kBody, text_, width - 2 * Px(kMargin)) + 2 * Px(kMargin);
  SetWindowPos(handle(), HWND_TOPMOST, work.right - width - Px(kGrid),
               work.bottom - height - Px(kGrid), width, height, SWP_NOACTIVATE | SWP_SHOWWINDOW);
  Invalidate();
  SetTimer(handle(), kTimer, static_cast<UINT>(milliseconds), nullptr);
}

void NotificationPanel::PaintClient(Painter& painter, const Box& client) {
  painter.Fill(client, theme().border);
  painter.Fill(Inset(client, 1, 1), theme().card);
  painter.Paragraph(Inset(client, Px(kMargin), Px(kMargin)), text_, Face::kBody, theme().text);
}

LRESULT NotificationPanel::Handle(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_TIMER || message == WM_LBUTTONDOWN) {
    KillTimer(handle(), kTimer);
    Show(false);
    return 0;
  }
  return FrameWindow::Handle(message, w, l);
}

}  // namespace tarnwell
