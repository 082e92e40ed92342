#include "imaging/load_photo.h"

#include <new>

#include "imaging/photo_size.h"
#include "imaging/upright.h"
#include "platform/files.h"
#include "platform/picture_codec.h"
#include "platform/platform.h"
#include "platform/system.h"

namespace tarnwell {
namespace {

Result<LoadedPhoto> Load(Platform& platform, const frmModules& panel, const std::string& path) {
  const std::string name = platform.files.Display(path);
  const Result<std::string> bytes = platform.files.Read(path);
  if (!bytes.ok()) return bytes.status;
  const std::uint64_t needed = MemoryToCorrect(*bytes, panel);
  if (Status fits = CheckMemory(needed, SystemMemoryBytes(), name); !fits.ok()) return fits;
  Result<Picture> picture = platform.codec.Decode(*bytes, name);
  if (!picture.ok()) return picture.status;
  LoadedPhoto photo = {std::move(*picture), ReadPhotoMetadata(*bytes)};
  if (photo.metadata) photo.picture = TurnUpright(photo.picture, photo.metadata->orientation);
  if (!photo.picture) return Status::Error(Failure::kTooLarge, name + ": not enough memory");
  return photo;
}

std::string Megabytes(std::uint64_t bytes) { return std::to_string(bytes >> 20) + " MB"; }

}  // namespace

Status CheckMemory(std::uint64_t needed, std::uint64_t memory, const std::string& name) {
  const std::uint64_t to_give = memory / 4 * 3;
  if (memory == 0 || needed <= to_give) return Status::Ok();
  return Status::Error(Failure::kTooLarge, name + ": the picture is too large: it needs " +
                                               Megabytes(needed) + " of memory, and there are " +
                                               Megabytes(to_give) + " for it");
}

Result<LoadedPhoto> LoadPhotoFile(Platform& platform, const frmModules& panel,
                                  const std::string& path) {
  try {
    return Load(platform, panel, path);
  } catch (const std::bad_alloc&) {
    return Status::Error(Failure::kTooLarge, platform.files.Display(path) + ": not enough memory");
  }
}

}  // namespace tarnwell
