#pragma once

#include "imaging/pixel_buffer.h"
#include "ui/control.h"
#include "ui/display_colours.h"

namespace tarnwell {

// The container with the preview and its shadow. While it is held down, or told to, it shows the
// photo before its correction.
class PreviewControl : public Control {
 public:
  PreviewControl(const Look& look, const PhotoSurfaces& surfaces, const SharedMetadata& metadata)
      : Control(look, Ground::kPage), surfaces_(surfaces), metadata_(metadata) {}
  void Create(HWND parent);
  void Update();  // the surfaces may show other pictures
  void ShowOriginal(bool original);

  std::function<void()> open_wanted = [] {};  // a click while there is no photo

 protected:
  void Paint(Painter& painter, const Box& client) override;
  void OnPress(int, int) override { ShowOriginal(true); }
  void OnRelease(int, int) override { ShowOriginal(false); }
  void OnClick() override;
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  void PaintEmpty(Painter& painter, const Box& client);
  void PaintBadge(Painter& painter, const Box& client);
  const Picture& TintedContainer();
  const Picture& OriginalThumbnail();

  const PhotoSurfaces& surfaces_;
  const SharedMetadata& metadata_;  // of the photo on them
  ColoursOnScreen colours_;
  bool original_ = false;
  Picture container_;  // what tinted_ was made from
  Colour tint_;
  Picture tinted_;
  Picture thumbnail_of_;
  Picture thumbnail_;
};

}  // namespace tarnwell
