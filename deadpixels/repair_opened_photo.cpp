#include <memory>
#include <string>

#include "deadpixels/dead_pixel_files.h"
#include "deadpixels/repair_dead_pixels.h"
#include "imaging/thumbnail.h"
#include "imaging/upright.h"
#include "modules/frm_modules.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/picture_codec.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/long_work.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

// The map that fits the photo, or why there is none (kNotFound: one of another size). Maps are of
// the sensor: a photo that was turned when it was opened takes the map for its size before, turned
// alike.
struct MapOfSensor {
  std::string path;
  int orientation = 1;
  int width = 0;
  int height = 0;

  MapOfSensor(Form1& form, const PixelView& photo) {
    if (form.metadata) orientation = form.metadata->orientation;
    const bool exchanged = ExchangesSides(orientation);
    width = exchanged ? photo.height : photo.width;
    height = exchanged ? photo.width : photo.height;
    path = FindMap(form.platform.files, ResolutionFolder(form.app, {width, height})).value_or("");
  }

  Result<Picture> Load(PictureCodec& codec, const GoOn& go_on) const {
    Result<Picture> map = codec.Load(path, go_on);
    if (!map.ok()) return map;
    if ((*map)->width() != width || (*map)->height() != height) {
      return Status::Error(Failure::kNotFound, path);
    }
    return TurnUpright(*map, orientation, go_on);
  }
};

// The photo repaired. A map that could not be turned is null.
Result<Picture> Repaired(const Picture& photo, const Result<Picture>& map, int threshold) {
  if (!map.ok()) return map.status;
  const std::shared_ptr<PixelArray> repaired = *map ? TryCopyPixels(photo->view()) : nullptr;
  if (!repaired) {
    return Status::Error(Failure::kTooLarge,
                         "There is not enough memory to repair the dead pixels of this photo.");
  }
  RepairDeadPixels(repaired->mutable_view(), (*map)->view(), threshold);
  return Picture(repaired);
}

void TellWhyNot(Form1& form, const Status& status) {
  if (status.failure == Failure::kNotFound) {
    form.ShowTips(kDeadPixelTip);
  } else {
    form.platform.dialogs.Tell({form.app.title, status.message, Icon::kExclamation});
  }
}

}  // namespace

Status RepairOpenedPhoto(Form1& form) {
  const Picture photo = form.buffer.surfaces.picOriginal.image;
  const MapOfSensor map(form, photo->view());
  const auto threshold = form.modules.Value(kDeadPixelSlider);
  if (map.path.empty()) form.ShowTips(kDeadPixelTip);
  if (map.path.empty() || !threshold) return Status::Ok();

  Result<Picture> repaired = Picture();
  const bool finished = DoBesideEvents(form, kCollectingText, [&](const GoOn& go_on) {
    repaired = Repaired(photo, map.Load(form.platform.codec, go_on), *threshold);
  });
  if (!finished) return Status::Cancelled(form.platform.files.Display(form.app.current_file));
  if (!repaired.ok()) {
    TellWhyNot(form, repaired.status);
    return Status::Ok();
  }
  Display(form.buffer.surfaces.picOriginal, *repaired);
  Display(form.buffer.surfaces.picSource, *repaired);
  MakeThumbnail(form.buffer, form.platform.events);
  return Status::Ok();
}

}  // namespace tarnwell
