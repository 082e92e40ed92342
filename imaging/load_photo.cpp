#include "imaging/load_photo.h"

#include <algorithm>
#include <new>

#include "imaging/output_names.h"
#include "imaging/photo_size.h"
#include "imaging/read_metadata.h"
#include "imaging/upright.h"
#include "platform/files.h"
#include "platform/picture_codec.h"
#include "platform/platform.h"
#include "platform/system.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/long_work.h"

namespace tarnwell {
namespace {

Result<LoadedPhoto> Load(Platform& platform, const frmModules& panel, const std::string& path,
                         const GoOn& go_on) {
  const std::string name = platform.files.Display(path);
  const Result<std::string> bytes = platform.files.Read(path, MostPhotoBytes());
  if (!bytes.ok()) return bytes.status;
  const std::uint64_t needed = MemoryToCorrect(*bytes, panel);
  if (Status fits = CheckMemory(needed, SystemMemoryBytes(), name); !fits.ok()) return fits;
  Result<Picture> picture = platform.codec.Decode(*bytes, name, go_on);
  if (!picture.ok()) return picture.status;
  LoadedPhoto photo = {std::move(*picture), ReadPhotoMetadata(*bytes)};
  if (photo.metadata)
    photo.picture = TurnUpright(photo.picture, photo.metadata->orientation, go_on);
  if (!photo.picture) return Status::Error(Failure::kTooLarge, name + ": not enough memory");
  return photo;
}

std::string Megabytes(std::uint64_t bytes) { return std::to_string(bytes >> 20) + " MB"; }

}  // namespace

std::uint64_t MostPhotoBytes() {
  constexpr std::uint64_t kMost = std::uint64_t{1} << 32;
  // Each byte of the file at hand, and pixels that take three times as much at the least.
  const std::uint64_t memory = SystemMemoryBytes();
  return memory == 0 ? kMost : std::min(memory / 4, kMost);
}

Status CheckMemory(std::uint64_t needed, std::uint64_t memory, const std::string& name) {
  const std::uint64_t to_give = memory / 4 * 3;
  if (memory == 0 || needed <= to_give) return Status::Ok();
  return Status::Error(Failure::kTooLarge, name + ": the picture is too large: it needs " +
                                               Megabytes(needed) + " of memory, and there are " +
                                               Megabytes(to_give) + " for it");
}

Result<LoadedPhoto> LoadPhotoFile(Form1& form, const std::string& path) {
  const std::string name = form.platform.files.Display(path);
  try {
    Result<LoadedPhoto> photo = Status::Cancelled(name);
    form.progress.caption = ProgressCaption(SplitPhotoPath(name).file_name);
    const bool finished = DoBesideEvents(form, kCollectingText, [&](const GoOn& go_on) {
      photo = Load(form.platform, form.modules, path, go_on);
    });
    if (!finished) return Status::Cancelled(name);
    return photo;
  } catch (const std::bad_alloc&) {
    return Status::Error(Failure::kTooLarge, name + ": not enough memory");
  }
}

}  // namespace tarnwell
