#include "engine/adjustment_pass.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <optional>

#include "engine/focus_pass.h"
#include "engine/noise_filter.h"
#include "engine/pass.h"
#include "engine/pass_progress.h"
#include "engine/tone_vectors.h"
#include "shell/form1.h"

namespace tarnwell {
namespace {

// Calls back with how many parts are done; false stops the pass.
using PartDone = std::function<bool(int done)>;

// What the stages of one pass share.
struct Stages {
  const AdjustmentSettings& settings;
  PixelView start;  // the pixels before any step
  // What is made of them; every pixel of it is written. Holds the same pixels at first where a
  // filter changes them in place, and may be the same picture where none does.
  MutablePixelView working;
  int threads;
  bool in_vectors;  // adjusts tones without a table
  std::optional<NoiseFilter> noise = {};
  std::optional<ToneTable> table = {};
  std::atomic<bool> out_of_memory = false;

  const ToneTable* tones() const { return table ? &*table : nullptr; }
};

// The steps after the filters, on a piece of `values`.
void AdjustTonesOf(Stages& stages, const PixelView& values, const PicturePiece& piece) {
  if (stages.in_vectors) {
    AdjustPieceInVectors(values, stages.start, piece, stages.settings, stages.working);
  } else {
    AdjustPiece(values, stages.start, piece, stages.settings, stages.tones(), stages.working);
  }
}

// A copy of all pixels, in bands that may be stopped between. False when it was.
bool CopyPixels(Form1& form, const PixelView& from, MutablePixelView to) {
  constexpr int kBandHeight = 128;
  const int bands = (from.height + kBandHeight - 1) / kBandHeight;
  return ForEachPart(
      bands, 1, form.threads,
      [&](int band) {
        const int top = band * kBandHeight;
        const std::size_t rows = std::min(kBandHeight, from.height - top);
        std::memcpy(to.at(0, top), from.at(0, top), rows * from.stride());
      },
      [&](int) { return LetEventsIn(form); });
}

// The noise filter over `target`; right after it, while they are near, `then` with the same pixels.
template <typename Then>
bool SmoothPieces(Stages& stages, MutablePixelView target, Then then, const PartDone& part_done) {
  return ForEachPart(
      stages.noise->piece_count(), 1, stages.threads,
      [&](int number) {
        const PicturePiece piece = stages.noise->piece(number);
        if (!stages.noise->Smooth(piece, target)) stages.out_of_memory = true;
        then(piece);
      },
      [&](int done) { return part_done(done) && !stages.out_of_memory; });
}

bool AdjustRows(Stages& stages, const PartDone& part_done) {
  const int width = stages.working.width;
  return ForEachPart(
      stages.working.height, kLinesAtOnce, stages.threads,
      [&](int y) {
        AdjustTonesOf(stages, stages.start, {0, y, width, y + 1});
      },
      part_done);
}

// Focus without running sums: rare settings that they do not suit.
bool FocusColumns(Stages& stages, const PixelView& smooth, const PartDone& part_done) {
  return ForEachPart(
      stages.working.width, 1, 1,
      [&](int x) { FocusColumn(stages.working, smooth, x, stages.settings); }, part_done);
}

// Focus with running sums. `go_on` is asked where no part is done.
bool FocusInWaves(Stages& stages, FocusPass& focus, const PartDone& part_done,
                  const PartDone& go_on) {
  const bool read = ForEachPart(
      focus.strip_count(), 1, stages.threads, [&](int strip) { focus.Read(strip); }, go_on);
  if (!read) return false;
  const bool adjusted = ForEachPart(
      focus.part_count(), 1, stages.threads, [&](int part) { focus.Adjust(part); },
      [&](int done) {
        const bool more = part_done(done);
        if (!more) focus.Stop();
        return more;
      });
  if (!adjusted) return false;
  return ForEachPart(
      focus.band_count(), 1, stages.threads, [&](int band) { focus.Write(band); }, go_on);
}

// The sharpening of a pixel starts from what the noise filter made of it, but compares it with
// neighbours that are as the photo has them, or corrected. The pass with running sums reads both
// pictures before it writes any; without it the smooth pixels need a picture of their own.
bool SmoothThenFocus(Form1& form, Stages& stages, float minimum_step) {
  const bool in_waves = FocusPass::Suits(*stages.settings.focus);
  std::shared_ptr<PixelArray> own;
  if (stages.noise && !in_waves) {
    own = TryMakePixels(stages.start.width, stages.start.height);
    if (!own) throw std::bad_alloc();
    if (!CopyPixels(form, stages.start, own->mutable_view())) return false;
  }
  const MutablePixelView target = own ? own->mutable_view() : stages.working;
  const PixelView smooth = stages.noise ? PixelView(target) : stages.start;
  std::optional<FocusPass> focus;
  if (in_waves) {
    focus.emplace(stages.start, smooth, stages.working, stages.settings, stages.tones());
  }
  const int pieces = stages.noise ? stages.noise->piece_count() : 0;
  const int parts = focus ? focus->part_count() : stages.working.width;
  PassProgress pass(form, stages.working.width, pieces + parts, minimum_step,
                    stages.noise ? pieces : parts);
  if (stages.noise) {
    const bool done = SmoothPieces(
        stages, target, [](const PicturePiece&) {}, [&](int part) { return pass.PartDone(part); });
    if (!done) return false;
  }
  const auto part_done = [&](int done) { return pass.PartDone(pieces + done); };
  const auto go_on = [&](int) { return LetEventsIn(form); };
  if (focus) return FocusInWaves(stages, *focus, part_done, go_on);
  return FocusColumns(stages, stages.noise ? smooth : PixelView(stages.working), part_done);
}

bool RunStages(Form1& form, Stages& stages, float minimum_step) {
  if (stages.settings.focus) return SmoothThenFocus(form, stages, minimum_step);
  const int parts = stages.noise ? stages.noise->piece_count() : stages.working.height;
  PassProgress pass(form, stages.working.width, parts, minimum_step);
  const auto part_done = [&](int done) { return pass.PartDone(done); };
  if (!stages.noise) return AdjustRows(stages, part_done);
  const auto tones = [&](const PicturePiece& piece) {
    AdjustTonesOf(stages, stages.working, piece);
  };
  return SmoothPieces(stages, stages.working, tones, part_done);
}

}  // namespace

PassEnd RunAdjustmentPass(Form1& form, const AdjustmentSettings& settings, float minimum_step) {
  PixelBuffer& buffer = form.buffer;
  const bool in_place = settings.noise || (settings.focus && !FocusPass::Suits(*settings.focus));
  if (!(in_place ? MakeNewWorkingPixels(buffer) : MakeWorkingPixels(buffer))) {
    return PassEnd::kOutOfMemory;
  }
  try {
    Stages stages = {settings, buffer.read->view(), buffer.working->mutable_view(), form.threads,
                     !settings.focus && SuitToneVectors(settings)};
    if (in_place && !CopyPixels(form, stages.start, stages.working)) return PassEnd::kStopped;
    if (settings.noise) stages.noise.emplace(stages.start, *settings.noise);
    if (!stages.in_vectors && stages.start.pixel_count() >= ToneTable::kWorthwhile) {
      stages.table.emplace(settings);
    }
    const bool done = RunStages(form, stages, minimum_step);
    if (stages.out_of_memory) return PassEnd::kOutOfMemory;
    return done ? PassEnd::kDone : PassEnd::kStopped;
  } catch (const std::bad_alloc&) {
    return PassEnd::kOutOfMemory;
  }
}

}  // namespace tarnwell
