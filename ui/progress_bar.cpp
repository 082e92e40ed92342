#include "ui/progress_bar.h"

#include <algorithm>

namespace tarnwell {

void ProgressBar::Create(HWND parent, const std::wstring& name) {
  Control::Create(parent, name, ROLE_SYSTEM_PROGRESSBAR, false);
}

void ProgressBar::SetPercentage(float percentage) {
  percentage_ = std::clamp(percentage, 0.0F, 100.0F);
  SetAccessibleValue(std::to_wstring(static_cast<int>(percentage_)) + L"%");
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

void ProgressBar::Paint(Painter& painter, const Box& client) {
  const double radius = client.height / 2.0;
  painter.Round(client, radius, look().theme.track);
  const int done = static_cast<int>(client.width * percentage_ / 100);
  painter.Round({client.x, client.y, done, client.height}, radius, look().theme.accent);
}

}  // namespace tarnwell
