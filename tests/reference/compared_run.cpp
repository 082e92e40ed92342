#include "tests/reference/compared_run.h"

#include <filesystem>
#include <sstream>

#include "engine/adjust_photo.h"

namespace tarnwell {
namespace {

constexpr char kModeFile[] = "program\\Cameras\\Default\\Default\\White Balance.wbs";
constexpr char kCustomFile[] = "custom.wbs";

void PlaceWhiteReference(TestWindow& window, const ComparedRun& run) {
  std::filesystem::remove(window.folder.SystemPath(kModeFile));
  std::filesystem::remove(window.folder.SystemPath(kCustomFile));
  window.modules.white_balance_mode = run.white_mode;
  window.modules.custom_white_file = window.folder.File(kCustomFile);
  window.modules.picked_white.reset();
  if (!run.input.white) return;

  const auto [red, green, blue] = *run.input.white;
  if (run.white_mode == WhiteBalanceMode::kPickedPixel) {
    window.modules.picked_white = Rgb{red, green, blue};
    window.modules.lblWhiteClr = Rgb{red, green, blue};
    return;
  }
  window.folder.Write(run.white_mode == WhiteBalanceMode::kModeDefault ? kModeFile : kCustomFile,
                      "Red: " + std::to_string(red) + "\r\nGrn: " + std::to_string(green) +
                          "\r\nBlu: " + std::to_string(blue) + "\r\nSld: 91\r\n");
}

void Set(TestWindow& window, const ComparedRun& run) {
  const naive::Input& input = run.input;
  frmModules& panel = window.modules;
  for (int i = 0; i < kModuleCount; ++i) panel.open[i] = input.open[i] ? 1 : 0;
  for (int i = 0; i < kSliderCount; ++i) {
    panel.sliders[i].text = input.values[i] ? std::to_string(*input.values[i]) : "none";
  }
  for (int i = 0; i < kCheckCount; ++i) panel.checks[i] = input.checks[i] ? "1" : "0";
  panel.hue.factors = input.hue;
  panel.rotation = input.rotation;
  PlaceWhiteReference(window, run);

  window.app.analyze_full_source = input.analyze_full;
  window.app.extended_noise = input.extended_noise;
  window.form.learning = {};
  for (const std::string& line : input.learning) {
    window.form.learning.records.push_back(ParseLearningRecord(line));
  }
}

std::vector<std::string> FieldsOf(const std::string& record) {
  std::vector<std::string> fields;
  std::istringstream in(record);
  for (std::string field; std::getline(in, field, '\t');) fields.push_back(field);
  return fields;
}

std::string PictureDifference(const PixelArray& expected, const PixelArray& actual) {
  std::ostringstream text;
  if (expected.width() != actual.width() || expected.height() != actual.height()) {
    text << "size " << actual.width() << " x " << actual.height();
    return text.str();
  }
  for (std::size_t i = 0; i < expected.view().byte_count(); ++i) {
    const int wanted = expected.view().data[i], found = actual.view().data[i];
    if (wanted == found) continue;
    const std::size_t pixel = i / kBytesPerPixel, width = expected.width();
    text << "channel " << i % kBytesPerPixel << " at (" << pixel % width << ", " << pixel / width
         << "): " << found << " instead of " << wanted;
    return text.str();
  }
  return {};
}

}  // namespace

RunResult RunNaively(const ComparedRun& run) {
  const naive::Output output = naive::Correct(run.input);
  RunResult result{output.picture, {}};
  if (output.record) result.record = naive::FieldTexts(*output.record);
  return result;
}

RunResult RunProgram(TestWindow& window, const ComparedRun& run, int threads) {
  Set(window, run);
  window.form.threads = threads;
  window.form.correction_ready = false;
  // Where the photo as it was is not needed, it is corrected in its own memory.
  window.form.keeps_original = threads != 2;
  window.Show(std::make_shared<PixelArray>(run.input.photo));
  const Status status = AdjustPhoto(window.form, run.input.preview);
  EXPECT_TRUE(status.ok()) << status.message;
  const PhotoSurfaces& surfaces = window.surfaces();
  if (run.input.preview || window.form.keeps_original) {
    EXPECT_EQ(*surfaces.picOriginal.image, run.input.photo) << "the original changed";
  } else {
    EXPECT_EQ(surfaces.picOriginal.image, surfaces.picSource.image);
  }
  return {*window.surfaces().picSource.image, FieldsOf(window.app.learning_record)};
}

std::string Difference(const RunResult& expected, const RunResult& actual) {
  if (expected.record.size() != actual.record.size()) {
    return "the record has " + std::to_string(actual.record.size()) + " fields";
  }
  for (std::size_t i = 0; i < expected.record.size(); ++i) {
    if (expected.record[i] != actual.record[i]) {
      return "record column " + std::to_string(i) + ": " + actual.record[i] + " instead of " +
             expected.record[i];
    }
  }
  return PictureDifference(expected.picture, actual.picture);
}

}  // namespace tarnwell
