#pragma once

#include "ui/control.h"

namespace tarnwell {

// How much of a job is done.
class ProgressBar : public Control {
 public:
  explicit ProgressBar(const Look& look) : Control(look, Ground::kPage) {}
  void Create(HWND parent, const std::wstring& name);
  // 0 to 100; more counts as all. Drawn at once.
  void SetPercentage(float percentage);

 protected:
  void Paint(Painter& painter, const Box& client) override;

 private:
  float percentage_ = 0;
};

}  // namespace tarnwell
