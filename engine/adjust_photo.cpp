#include "engine/adjust_photo.h"

#include <array>
#include <new>
#include <optional>
#include <utility>

#include "deadpixels/repair_dead_pixels.h"
#include "engine/adjustment_pass.h"
#include "engine/analysis.h"
#include "engine/color_rotation.h"
#include "engine/final_rotation.h"
#include "engine/pass.h"
#include "engine/pass_progress.h"
#include "engine/pixel_adjustments.h"
#include "engine/run_parameters.h"
#include "engine/white_balance_of_run.h"
#include "imaging/photo_title.h"
#include "imaging/thumbnail.h"
#include "modules/frm_modules.h"
#include "platform/dialogs.h"
#include "platform/events.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/module1.h"
#include "shell/scoped_flag.h"

namespace tarnwell {
namespace {

Status Cancelled() { return Status::Error(Failure::kCancelled, "the correction was cancelled"); }

Status OutOfMemory(const Form1& form) {
  const std::string& path = form.app.current_file;
  const std::string photo =
      path.empty() ? CurrentPhotoName(form) : form.platform.files.Display(path);
  return Status::Error(Failure::kTooLarge, photo + ": not enough memory");
}

// Takes the thumbnail of picOriginal or the full photo as the working pixels.
Status ReadForPass(Form1& form, bool thumbnail) {
  if (thumbnail) {
    // Always the uncorrected photo's thumbnail, so that repeated previews do not compound.
    PhotoSurfaces& surfaces = form.buffer.surfaces;
    if (surfaces.thumbnail_of.lock() != surfaces.picOriginal.image) {
      Picture fresh = ThumbnailOf(surfaces.picOriginal.image->view());
      if (!fresh) return OutOfMemory(form);
      Display(surfaces.picThumb, std::move(fresh));
      surfaces.thumbnail_of = surfaces.picOriginal.image;
    }
  }
  const PixelSource source = thumbnail ? PixelSource::kThumbnail : PixelSource::kOriginal;
  if (!ReadSourcePixels(form.buffer, source)) return OutOfMemory(form);
  return Status::Ok();
}

// The analysis pass over the working pixels: histogram, limits, measurements, and the correction
// that follows from them. Fills columns 0 to 11 of `record`. Throws std::bad_alloc.
Result<AutomaticCorrection> Measure(Form1& form, bool thumbnail, const RunParameters& run,
                                    LearningRecord& record) {
  const PixelView pixels = form.buffer.read->view();
  form.histogram = PictureHistogram(form.buffer.read);
  const BrightnessHistogram& histogram = form.histogram.counts();
  const int top_level = TopLevel(histogram);
  const ToneLimits limits = LimitsOf(run, form.histogram);

  AnalysisPass analysis(pixels, histogram, limits, top_level);
  PassProgress pass(form, pixels.width, analysis.part_count(), thumbnail ? 0.5f : 10.0f);
  const bool finished = ForEachPart(
      analysis.part_count(), 1, 1, [&](int part) { analysis.Measure(part); },
      [&](int done) { return pass.PartDone(done); });
  if (!finished) return Cancelled();
  return DeriveCorrection(analysis.found(), limits, record);
}

AdjustmentSettings SettingsFor(const RunParameters& run, const AutomaticCorrection& automatic,
                               const LearntProposal& learnt,
                               const std::optional<std::array<double, 3>>& white_balance) {
  AdjustmentSettings settings;
  settings.noise = run.noise;
  settings.focus = run.focus;
  settings.black_level = automatic.black_level;
  settings.gain = automatic.gain * (1 + learnt.brightness) + 2 * run.brightness_factor;
  settings.saturation_multiplier =
      automatic.saturation_multiplier * (1 + learnt.saturation) + 2 * run.saturation_factor;
  if (settings.saturation_multiplier < 0) settings.saturation_multiplier = 0;
  settings.contrast_factor = run.contrast_factor + learnt.contrast;
  settings.hue_factors = run.hue_factors;
  settings.white_balance_offsets = white_balance;
  return settings;
}

// Columns 12 to 20: the settings of the run and what was learnt on top of them.
void RecordSettings(const RunParameters& run, const LearntProposal& learnt,
                    const std::optional<std::array<double, 3>>& white_balance,
                    LearningRecord& record) {
  record[kBrightnessSetting] = run.brightness_factor + learnt.brightness;
  record[kSaturationSetting] = run.saturation_factor + learnt.saturation;
  record[kContrastSetting] = run.contrast_factor + learnt.contrast;
  for (int i = 0; i < 3; ++i) {
    record[kWhiteBalanceRed + i] = white_balance ? (*white_balance)[i] : 0;
    record[kHueRed + i] = run.hue_factors ? (*run.hue_factors)[i] : 0;
  }
}

// The adjustment pass over the working pixels, then the colour rotation.
Status Adjust(Form1& form, bool preview, const RunParameters& run,
              const AdjustmentSettings& settings) {
  const float minimum_step = preview ? 0.5f : 1.0f;
  ShowStage(form.progress, kAdjusting);

  switch (RunAdjustmentPass(form, settings, minimum_step)) {
    case PassEnd::kDone:
      break;
    case PassEnd::kStopped:
      return Cancelled();
    case PassEnd::kOutOfMemory:
      return OutOfMemory(form);
  }

  if (run.hue_degrees == 0) return Status::Ok();
  ShowStage(form.progress, kRotatingHue);
  const MutablePixelView working = form.buffer.working->mutable_view();
  PassProgress hue_pass(form, working.width, working.height, minimum_step);
  const bool turned = ForEachPart(
      working.height, kLinesAtOnce, form.threads,
      [&](int y) { RotateHueOfRow(working, y, run.hue_degrees); },
      [&](int done) { return hue_pass.PartDone(done); });
  return turned ? Status::Ok() : Cancelled();
}

void TakePhotoOut(Form1& form) {
  PhotoSurfaces& surfaces = form.buffer.surfaces;
  Display(surfaces.picOriginal, nullptr);
  Display(surfaces.picSource, nullptr);
  surfaces.thumbnail_of.reset();
  form.histogram = {};
}

using WhiteOffsets = std::optional<std::array<double, 3>>;

Status RunCorrection(Form1& form, bool preview, const WhiteOffsets& white_balance) try {
  const PixelView original = form.buffer.surfaces.picOriginal.image->view();
  const double scale_ratio =
      static_cast<double>(original.width) / ThumbnailSizeFor(original.width, original.height).width;
  const RunParameters run =
      CollectParameters(form.modules, preview, scale_ratio, form.app.extended_noise);

  AutomaticCorrection automatic;
  LearningRecord record = {};
  LearntProposal learnt;
  const bool analyze_thumbnail = !form.app.analyze_full_source;
  if (run.measure) {
    if (Status read = ReadForPass(form, analyze_thumbnail); !read.ok()) return read;
    const auto measured = Measure(form, analyze_thumbnail, run, record);
    if (!measured.ok()) return measured.status;
    automatic = *measured;
    if (run.use_learnt) learnt = ProposalFor(form.learning, record);
  }
  RecordSettings(run, learnt, white_balance, record);

  if (!run.measure || analyze_thumbnail != preview) {
    if (Status read = ReadForPass(form, preview); !read.ok()) return read;
  }
  const AdjustmentSettings settings = SettingsFor(run, automatic, learnt, white_balance);
  const bool takes_original = !preview && !form.keeps_original;
  if (takes_original) TakePhotoOut(form);
  if (Status adjusted = Adjust(form, preview, run, settings); !adjusted.ok()) return adjusted;
  const auto go_on = [&form](double) { return LetEventsIn(form); };
  if (run.rotation && !RotateFinalImage(form.buffer, *run.rotation, form.threads, go_on)) {
    return form.app.cancel_requested ? Cancelled() : OutOfMemory(form);
  }

  ShowPercentage(form.progress, 100);
  form.platform.events.Run();
  WriteSourcePixels(form.buffer, form.platform.events);
  if (takes_original)
    Display(form.buffer.surfaces.picOriginal, form.buffer.surfaces.picSource.picture);
  form.app.learning_record = run.measure ? FormatLearningRecord(record) : std::string();
  form.learnt = learnt;
  return Status::Ok();
} catch (const std::bad_alloc&) {
  return OutOfMemory(form);
}

void MeasureOriginal(Form1& form) {
  form.histogram = PictureHistogram(form.buffer.surfaces.picOriginal.image);
  form.correction_ready = true;
}

// A run that nobody asked for does not say again what the one before it said: it would at every
// step of a slider.
void TellProblem(Form1& form, const std::optional<Message>& problem, bool asked_for) {
  const std::string words = problem ? form.app.mode_folder + problem->text : std::string();
  const bool again = words == form.white_balance_problem;
  form.white_balance_problem = words;
  if (problem && (asked_for || !again)) form.platform.dialogs.Tell(*problem);
}

Status Run(Form1& form, bool preview, bool asked_for) {
  if (form.app.closing) return Cancelled();
  if (!form.buffer.surfaces.picOriginal.image) {
    return Status::Error(Failure::kNotFound, "no photo is open");
  }
  // A run lets events in; a second one would take the pixels from under the first.
  if (form.correcting) return Status::Error(Failure::kOther, "a correction is already running");
  const ScopedFlag correcting(form.correcting);
  form.app.cancel_requested = false;
  SettingsOfRun settings = CurrentSettings(form.app, form.modules);
  const WhiteBalance white_balance =
      WhiteBalanceOfRun(form.app.title, form.platform.files, settings.white);
  // Before the progress window opens, which would cover it.
  TellProblem(form, white_balance.problem, asked_for);
  if (!form.correction_ready) MeasureOriginal(form);

  form.progress.caption = ProgressCaption(CurrentPhotoName(form));
  ProgressWindow window(form.progress, kAnalyzing);
  form.platform.events.Run();
  PhotoSurfaces before;
  if (form.keeps_original) before = form.buffer.surfaces;
  Status status = RunCorrection(form, preview, white_balance.offsets);
  form.correction_cancelled = status.failure == Failure::kCancelled;
  if (status.ok()) {
    form.app.photo_changed = true;
    form.corrected_with = std::move(settings);
  } else {
    form.buffer.surfaces = std::move(before);
    form.buffer.read = nullptr;
    form.buffer.working = nullptr;
  }
  return status;
}

}  // namespace

Status AdjustPhoto(Form1& form, bool preview) { return Run(form, preview, /*asked_for=*/true); }

Status CorrectPreviewAnew(Form1& form) { return Run(form, /*preview=*/true, /*asked_for=*/false); }

Status AnalyzeOpenedPhoto(Form1& form) {
  form.app.cancel_requested = false;
  ShowStage(form.progress, kCollecting);
  if (form.modules.IsOpen(kDeadPixelCorrection)) {
    if (Status repaired = RepairOpenedPhoto(form); !repaired.ok()) return repaired;
  }
  MeasureOriginal(form);
  return Status::Ok();
}

}  // namespace tarnwell
