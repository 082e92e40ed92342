#pragma once

#include <memory>

#include "imaging/pixel_buffer.h"
#include "ui/control.h"
#include "ui/display_colours.h"
#include "ui/look/preview_zoom.h"

namespace tarnwell {

// The container with the preview and its shadow. While it is held down, or told to, it shows the
// photo before its correction. The wheel enlarges the photo, the right button pulls it about.
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
  bool OnKey(WPARAM key) override;
  // The arrows move an enlarged photo.
  LRESULT WantedKeys() const override {
    return DLGC_BUTTON | (zoom_.enlarged() ? DLGC_WANTARROWS : 0);
  }
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  void PaintEmpty(Painter& painter, const Box& client);
  void PaintBadge(Painter& painter, const Box& client, const std::wstring& text, bool at_top);
  // What is shown now: the preview, or the photo behind it while it is enlarged.
  const Picture& Shown();
  // Where all of the shown picture lies in the client area.
  Box WholeBox(const Box& client);
  double MostFactor(const Box& client);
  void SetZoom(const PreviewZoom& zoom);
  void Turn(double notches, int x, int y);
  void Pull(int dx, int dy);
  bool HandleWheel(UINT message, WPARAM w, LPARAM l);
  bool HandlePull(UINT message, LPARAM l);
  const Picture& TintedContainer();
  const Picture& OriginalThumbnail();

  const PhotoSurfaces& surfaces_;
  const SharedMetadata& metadata_;  // of the photo on them
  ColoursOnScreen colours_;
  bool original_ = false;
  PreviewZoom zoom_;
  std::weak_ptr<const PixelArray> zoomed_;  // the photo that the zoom is for
  bool pulling_ = false;
  POINT pulled_from_ = {};
  Picture container_;  // what tinted_ was made from
  Colour tint_;
  Picture tinted_;
  Picture thumbnail_of_;
  Picture thumbnail_;
};

}  // namespace tarnwell
