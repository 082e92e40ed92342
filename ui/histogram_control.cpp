#include "ui/histogram_control.h"

#include <cmath>
#include <oleacc.h>

#include "engine/run_parameters.h"
#include "shell/form1.h"
#include "ui/look/histogram_shape.h"

namespace tarnwell {

void HistogramControl::Create(HWND parent) {
  Control::Create(parent, L"Brightness histogram", ROLE_SYSTEM_GRAPHIC, false);
}

void HistogramControl::Update() {
  limits_ = std::nullopt;
  if (form_.histogram.width() > 0) {
    limits_ = LimitsOf(CollectParameters(form_.modules, false, 1, false), form_.histogram);
    SetAccessibleValue(L"black point " + std::to_wstring(std::lround(limits_->black_point / 3)) +
                       L", white point " + std::to_wstring(std::lround(limits_->white_point / 3)));
  }
  Invalidate();
}

void HistogramControl::PaintPoint(Painter& painter, const Box& bars, double level,
                                  const std::wstring& name, UINT align) {
  const Theme& theme = look().theme;
  const int x = bars.x + static_cast<int>(std::lround(level / kHighestSum * (bars.width - 1)));
  painter.Fill({x, bars.y, std::max(1, look().Px(1)), bars.height}, theme.text);
  const std::wstring text = name + L" " + std::to_wstring(std::lround(level / 3));
  const int top = bars.bottom() + look().Px(2);
  painter.Text({bars.x, top, bars.width, look().Px(16)}, text, Face::kCaption, theme.quiet, align);
}

void HistogramControl::Paint(Painter& painter, const Box& client) {
  const Theme& theme = look().theme;
  painter.Round(client, look().Px(kGrid), theme.card);
  painter.Outline(client, look().Px(kGrid), 1, theme.border);
  const Box inner = Inset(client, look().Px(12), look().Px(10));
  const Box bars = {inner.x, inner.y, inner.width, inner.height - look().Px(18)};
  painter.Fill({bars.x, bars.bottom(), bars.width, 1}, theme.track);
  if (!limits_) {
    painter.Text(bars, L"The brightness of the photo appears here", Face::kCaption, theme.quiet,
                 DT_CENTER);
    return;
  }
  const std::vector<double> heights = HistogramBars(form_.histogram.counts(), bars.width);
  const Colour colour = Mix(theme.card, theme.accent, 0.65);
  for (int column = 0; column < bars.width; ++column) {
    const int height = static_cast<int>(std::lround(heights[column] * bars.height));
    painter.Fill({bars.x + column, bars.bottom() - height, 1, height}, colour);
  }
  PaintPoint(painter, bars, limits_->black_point, L"Black", DT_LEFT);
  PaintPoint(painter, bars, limits_->white_point, L"White", DT_RIGHT);
}

}  // namespace tarnwell
