#pragma once

#include <optional>

#include "engine/analysis.h"
#include "ui/control.h"

namespace tarnwell {

struct Form1;

// The brightness histogram of the photo, with the black and the white point that the next run
// measures it between.
class HistogramControl : public Control {
 public:
  HistogramControl(const Look& look, const Form1& form)
      : Control(look, Ground::kPage), form_(form) {}
  void Create(HWND parent);
  void Update();

 protected:
  void Paint(Painter& painter, const Box& client) override;

 private:
  void PaintPoint(Painter& painter, const Box& bars, double level, const std::wstring& name,
                  UINT align);
  const Form1& form_;
  std::optional<ToneLimits> limits_;  // of a photo
};

}  // namespace tarnwell
