#pragma once

#include "modules/frm_modules.h"
#include "ui/control.h"

namespace tarnwell {

// A slider of the panel: name and value above, the track with its knob between two arrows below.
// It knows knob positions only; what they mean is the panel's.
class SliderControl : public Control {
 public:
  explicit SliderControl(const Look& look) : Control(look) {}
  ~SliderControl() override;
  void Create(HWND parent, const std::wstring& name);
  void Update();  // the slider may have changed

  int origin = 0;  // the knob position that changes nothing; the track is filled from there

  std::function<Slider()> read = [] { return Slider(); };
  std::function<void(int)> moved = [](int) {};    // the knob is wanted at this position
  std::function<void(int)> stepped = [](int) {};  // an arrow: -1 or +1

 protected:
  void Paint(Painter& painter, const Box& client) override;
  void OnPress(int x, int y) override;
  void OnDrag(int x, int y) override;
  void OnRelease(int x, int y) override;
  bool OnKey(WPARAM key) override;
  LRESULT WantedKeys() const override { return DLGC_WANTARROWS; }
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  enum class Part { kNone, kLeftArrow, kTrack, kRightArrow };
  Part PartAt(int x, int y) const;
  Box LeftArrow() const;
  Box RightArrow() const;
  Box Track() const;  // from the knob's centre at 0 to that at the end
  void PaintArrow(Painter& painter, const Box& box, Glyph glyph, Part part);

  Part dragged_ = Part::kNone;
  Part under_pointer_ = Part::kNone;
  std::string told_;
};

}  // namespace tarnwell
