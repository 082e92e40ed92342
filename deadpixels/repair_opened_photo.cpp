#include <algorithm>
#include <cctype>

#include "deadpixels/repair_dead_pixels.h"
#include "imaging/thumbnail.h"
#include "imaging/upright.h"
#include "modules/frm_modules.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/picture_codec.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

constexpr char kNoMapTip[] =
    "No dead pixel information could be found for current camera and resolution. You can see Help "
    "(press F1) for more information on setting up dead pixel correction for this camera and mode.";

bool IsMapName(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return name == "map.bmp";
}

// The map's path for photos of this size, in whatever letter case it was written; empty if there is
// none.
std::string FindMap(Files& files, const std::string& camera_folder, int width, int height) {
  const std::string folder = camera_folder + "~ Dead Pixels\\" + std::to_string(width) + "x" +
                             std::to_string(height) + "\\";
  if (!files.FolderExists(folder)) return {};
  const auto entries = files.List(folder);
  if (!entries.ok()) return {};
  for (const FolderEntry& entry : *entries) {
    if (!entry.is_folder && IsMapName(entry.name)) return folder + entry.name;
  }
  return {};
}

// The map that fits the photo, or null: then the user has been told why. Maps are of the sensor: a
// photo that was turned when it was opened takes the map for its size before, turned alike.
Picture LoadMap(Form1& form, const PixelView& photo) {
  const int orientation = form.metadata ? form.metadata->orientation : 1;
  const bool exchanged = ExchangesSides(orientation);
  const int width = exchanged ? photo.height : photo.width;
  const int height = exchanged ? photo.width : photo.height;
  const std::string path = FindMap(form.platform.files, form.app.camera_folder, width, height);
  if (path.empty()) {
    form.ShowTips(kNoMapTip);
    return nullptr;
  }
  auto map = form.platform.codec.Load(path);
  if (!map.ok()) {
    form.platform.dialogs.Tell(form.app.title, map.status.message, Icon::kExclamation);
    return nullptr;
  }
  if ((*map)->width() != width || (*map)->height() != height) {
    form.ShowTips(kNoMapTip);
    return nullptr;
  }
  return TurnUpright(*map, orientation);
}

}  // namespace

void RepairOpenedPhoto(Form1& form) {
  const Picture photo = form.buffer.surfaces.picOriginal.image;
  const Picture map = LoadMap(form, photo->view());
  const auto threshold = form.modules.Value(9);
  if (!map || !threshold) return;

  const std::shared_ptr<PixelArray> repaired = TryCopyPixels(photo->view());
  if (!repaired) return;
  RepairDeadPixels(repaired->mutable_view(), map->view(), *threshold);
  Display(form.buffer.surfaces.picOriginal, repaired);
  Display(form.buffer.surfaces.picSource, repaired);
  MakeThumbnail(form.buffer, form.platform.events);
}

}  // namespace tarnwell
