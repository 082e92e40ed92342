#include "deadpixels/assess_test_shots.h"

#include <new>

#include "deadpixels/add_test_shot.h"
#include "deadpixels/dead_pixel_map.h"
#include "imaging/bmp_file.h"
#include "platform/files.h"
#include "platform/picture_codec.h"
#include "platform/platform.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

// A sensor has a few stuck pixels in a hundred thousand. Where one in five hundred stands out, the
// shots show something, and its map would do harm to every photo.
constexpr std::size_t kLeastPixelsPerStuckOne = 500;

std::string CountText(std::size_t count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

// Adds one shot to the evidence, or a line to those left out. False to give up.
bool AddShot(Platform& platform, const std::string& path, DeadPixelEvidence& evidence,
             Assessment& assessment, const GoOn& go_on) {
  const std::string shown = platform.files.Display(path);
  const Result<Picture> shot = platform.codec.Load(path);
  if (!shot.ok()) {
    assessment.left_out.push_back(shot.status.message);
    return true;
  }
  const Resolution size = {(*shot)->width(), (*shot)->height()};
  if (size != assessment.resolution) {
    assessment.left_out.push_back(shown + ": has " + ResolutionName(size) +
                                  " pixels and does not belong into this folder");
    return true;
  }
  const ShotKind kind = KindOfShot((*shot)->view());
  if (kind == ShotKind::kNeither) {
    assessment.left_out.push_back(NeitherDarkNorLight(shown).message);
    return true;
  }
  return evidence.Add((*shot)->view(), kind, go_on);
}

Status CheckEvidence(const DeadPixelEvidence& evidence, const PixelArray& map,
                     std::size_t stuck_pixels, const std::string& name) {
  if (evidence.dark_shots() + evidence.light_shots() == 0) {
    return Status::Error(Failure::kNotFound, name + ": there is no test shot to assess");
  }
  if (stuck_pixels > map.view().pixel_count() / kLeastPixelsPerStuckOne) {
    return Status::Error(Failure::kUnsupported,
                         name + ": " + CountText(stuck_pixels, "pixel") +
                             " stand out, which are too many to be stuck. Take dark shots with the "
                             "lens covered, and light ones of something plain and white.");
  }
  return Status::Ok();
}

Status WriteMap(Files& files, const std::string& folder, const PixelArray& map) {
  const std::string path = MapPath(files, folder);
  const std::string bytes = EncodeBmp24(map.view());
  if (bytes.empty()) {
    return Status::Error(Failure::kTooLarge, files.Display(path) + ": not enough memory");
  }
  return files.Replace(path, bytes);
}

// The whole of it; what it finds on its way goes into `assessment`.
Status Assess(const Module1& app, Platform& platform, const GoOn& go_on, Assessment& assessment) {
  const Resolution& resolution = assessment.resolution;
  const std::string name = ResolutionName(resolution);
  const std::string folder = ResolutionFolder(app, resolution);
  const Result<std::vector<std::string>> shots = ListTestShots(platform.files, folder);
  if (!shots.ok()) return shots.status;

  DeadPixelEvidence evidence(resolution.width, resolution.height);
  for (std::size_t i = 0; i < shots->size(); ++i) {
    const auto overall = [&](double share) {
      return go_on((static_cast<double>(i) + share) / static_cast<double>(shots->size()));
    };
    if (!AddShot(platform, folder + (*shots)[i], evidence, assessment, overall)) {
      return Status::Error(Failure::kCancelled, name + ": the assessment was cancelled");
    }
  }
  const PixelArray map = evidence.Map();
  assessment.dark_shots = evidence.dark_shots();
  assessment.light_shots = evidence.light_shots();
  assessment.stuck_pixels = CountStuck(map.view());
  const Status usable = CheckEvidence(evidence, map, assessment.stuck_pixels, name);
  return usable.ok() ? WriteMap(platform.files, folder, map) : usable;
}

}  // namespace

Assessment AssessTestShots(const Module1& app, Platform& platform, const Resolution& resolution,
                           const GoOn& go_on) {
  Assessment assessment;
  assessment.resolution = resolution;
  try {
    assessment.status = Assess(app, platform, go_on, assessment);
  } catch (const std::bad_alloc&) {
    assessment.status =
        Status::Error(Failure::kTooLarge, ResolutionName(resolution) + ": not enough memory");
  }
  return assessment;
}

std::string AssessmentText(const Assessment& assessment) {
  if (!assessment.status.ok()) return assessment.status.message;
  return ResolutionName(assessment.resolution) + ": " +
         CountText(assessment.stuck_pixels, "stuck pixel") + " found in " +
         CountText(assessment.dark_shots, "dark shot") + " and " +
         CountText(assessment.light_shots, "light shot");
}

}  // namespace tarnwell
