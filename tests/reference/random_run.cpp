#include <algorithm>
#include <random>

#include "modules/module_table.h"
#include "tests/reference/compared_run.h"

namespace tarnwell {
namespace {

class Dice {
 public:
  explicit Dice(std::uint32_t seed) : generator_(seed) {}
  // A whole number from `low` to `high`; the same on every platform, other than the library's
  // distributions.
  int Roll(int low, int high) {
    return low + static_cast<int>(generator_() % static_cast<std::uint32_t>(high - low + 1));
  }
  bool OneIn(int n) { return Roll(1, n) == 1; }

 private:
  std::mt19937 generator_;
};

std::pair<int, int> RandomSize(Dice& dice, bool large) {
  if (large) {
    const std::pair<int, int> sides = {dice.Roll(330, 700), dice.Roll(20, 400)};
    return dice.OneIn(2) ? sides : std::pair{sides.second, sides.first};
  }
  switch (dice.Roll(0, 9)) {
    case 0:
      return {1, 1};
    case 1:
      return {1, dice.Roll(2, 60)};
    case 2:
      return {dice.Roll(2, 60), 1};
    case 3:  // a long strip: the thumbnail is reduced and still cheap
      return dice.OneIn(2) ? std::pair{dice.Roll(319, 900), dice.Roll(1, 4)}
                           : std::pair{dice.Roll(1, 4), dice.Roll(319, 900)};
    default:
      return {dice.Roll(3, 60), dice.Roll(3, 60)};
  }
}

int Clipped(int level) { return std::clamp(level, 0, 255); }

naive::Colour RandomColour(Dice& dice) {
  return {dice.Roll(0, 255), dice.Roll(0, 255), dice.Roll(0, 255)};
}

// The colour at (x, y), as fractions of the size `fx` and `fy`, of a picture of this kind.
naive::Colour ColourOf(int kind, double fx, double fy, const naive::Colour& base, Dice& dice) {
  const auto near = [&](int level, int spread) {
    return Clipped(level + dice.Roll(-spread, spread));
  };
  const int ramp = static_cast<int>(255 * fx);
  switch (kind) {
    case 0:
      return RandomColour(dice);
    case 1:  // like a photo: ramps with noise
      return {near(ramp, 12), near(static_cast<int>(255 * fy), 12), near(base.blue, 12)};
    case 2:
      return base;
    case 3:  // grey ramp
      return {ramp, ramp, ramp};
    case 4: {  // nearly clipped
      const int level = 250 + dice.Roll(-4, 5);
      return {level, near(level, 2), near(level, 2)};
    }
    case 5:  // saturated
      return {dice.Roll(0, 1) * 255, dice.Roll(0, 1) * 255, dice.Roll(0, 1) * 255};
    case 6:  // nearly black; often a top level of 0
      return {dice.Roll(0, 1), dice.OneIn(20) ? 1 : 0, 0};
    case 7:  // flat with a little grain, where the noise filter has most to do
      return {near(base.red, 3), near(base.green, 3), near(base.blue, 3)};
    default:  // low contrast
      return {110 + ramp / 8, near(120, 8), near(115, 5)};
  }
}

PixelArray RandomPhoto(Dice& dice, bool large) {
  const auto [width, height] = RandomSize(dice, large);
  // Half of the photos are like photos.
  const int kind = dice.OneIn(2) ? (dice.OneIn(2) ? 1 : 8) : dice.Roll(0, 8);
  naive::Colour base = RandomColour(dice);
  if (kind == 2) {
    const int grey = dice.Roll(0, 3) * 85;
    if (dice.OneIn(2)) base = {grey, grey, grey};
  }
  PixelArray photo(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const naive::Colour colour = ColourOf(kind, x / static_cast<double>(width),
                                            y / static_cast<double>(height), base, dice);
      std::uint8_t* pixel = photo.mutable_view().at(x, y);
      pixel[kRed] = static_cast<std::uint8_t>(colour.red);
      pixel[kGreen] = static_cast<std::uint8_t>(colour.green);
      pixel[kBlue] = static_cast<std::uint8_t>(colour.blue);
      pixel[kUnused] = static_cast<std::uint8_t>(dice.Roll(0, 255));
    }
  }
  return photo;
}

// Mostly moderate values, so that most pictures stay pictures; every value of the range, its ends
// and what only a preset can bring occur as well.
std::optional<int> RandomValue(Dice& dice, const SliderInfo& slider) {
  const int nothing = slider.lowest < 0 ? 0 : slider.lowest;
  switch (dice.Roll(0, 39)) {
    case 0:
      return std::nullopt;
    case 1:  // a preset's text is taken as it is
      return dice.Roll(-2000, 2000);
    case 2:
      return dice.OneIn(2) ? -32768 : 32767;
    case 3:
      return slider.lowest;
    case 4:
      return slider.highest;
    case 5:
      return nothing;
    case 6:
    case 7:
    case 8:
    case 9:
      return dice.Roll(slider.lowest, slider.highest);
    default:
      return nothing + dice.Roll(slider.lowest - nothing, slider.highest - nothing) / 5;
  }
}

void RandomValues(Dice& dice, bool large, naive::Input& input) {
  for (int i = 0; i < kSliderCount; ++i) input.values[i] = RandomValue(dice, kSliders[i]);
  // Degrees and the filters' windows do not spoil a picture.
  for (const int i : {7, 8, 10, 12}) {
    if (dice.OneIn(2)) input.values[i] = dice.Roll(kSliders[i].lowest, kSliders[i].highest);
  }
  // Black limits are compared with channels as sums of three, and above 4 or so all is black.
  if (dice.OneIn(2)) input.values[1] = dice.Roll(0, 6);
  // The naive filters look at every position of their windows; keep those affordable.
  const int widest = large ? (input.extended_noise ? 2 : 12) : (input.extended_noise ? 9 : 100);
  const int farthest = large ? 3 : 10;
  if (input.values[8]) input.values[8] = std::clamp(*input.values[8], -5, widest);
  if (input.values[10]) input.values[10] = std::clamp(*input.values[10], -5, farthest);
}

void RandomHue(Dice& dice, naive::Input& input) {
  if (dice.OneIn(2)) {
    HuePicker picker;
    MoveHueMarker(picker, dice.Roll(0, 105), dice.Roll(0, 105));
    input.hue = picker.factors;
    return;
  }
  for (float& factor : input.hue) factor = static_cast<float>(dice.Roll(-500, 500)) / 1000.0f;
}

void RandomWhite(Dice& dice, ComparedRun& run) {
  run.white_mode = static_cast<WhiteBalanceMode>(dice.Roll(0, 2));
  if (run.white_mode != WhiteBalanceMode::kPickedPixel && dice.OneIn(5)) return;
  run.input.white = RandomColour(dice);
  if (dice.OneIn(8)) run.input.white = naive::Colour{0, 0, 0};
  if (dice.OneIn(8)) run.input.white = naive::Colour{85, 85, 85};
}

std::string Joined(const std::vector<std::string>& fields) {
  std::string line;
  for (const std::string& field : fields) line += (line.empty() ? "" : "\t") + field;
  return line;
}

// Records of photos more or less like this one, some of them damaged.
void RandomLearning(Dice& dice, naive::Input& input) {
  const auto record = naive::Correct(input).record;
  if (!record) return;
  for (int i = dice.Roll(0, 5); i > 0; --i) {
    naive::Record other = *record;
    for (int j = 0; j <= 9; ++j) {
      other[j] = other[j] * (1 + dice.Roll(-250, 250) / 1000.0);
    }
    for (int j = 12; j <= 14; ++j) other[j] = dice.Roll(-1000, 1000) / 1000.0;
    std::vector<std::string> fields = naive::FieldTexts(other);
    if (dice.OneIn(8)) fields.pop_back();
    if (dice.OneIn(8)) fields[dice.Roll(0, 20) % fields.size()] = "much";
    if (dice.OneIn(8)) fields[8] = "800";
    input.learning.push_back(Joined(fields));
  }
}

}  // namespace

ComparedRun RandomRun(std::uint32_t seed, bool large) {
  Dice dice(seed);
  ComparedRun run;
  run.name = "seed " + std::to_string(seed) + (large ? " (large)" : "");
  naive::Input& input = run.input;
  input.photo = RandomPhoto(dice, large);
  input.preview = dice.OneIn(2);
  input.analyze_full = dice.OneIn(2);
  input.extended_noise = dice.OneIn(3);
  const int one_in = dice.Roll(1, 4);  // from all modules open to few
  for (bool& open : input.open) open = dice.OneIn(one_in);
  input.open[kSmartPhotoCorrection] = !dice.OneIn(4);
  // In every third run one module acts alone, so that no other hides what it does.
  if (dice.OneIn(3)) {
    input.open = {};
    input.open[dice.Roll(1, kModuleCount - 1)] = true;
  }
  input.open[kDeadPixelCorrection] = false;
  for (bool& check : input.checks) check = dice.OneIn(2);
  input.checks[kBlackLimitByHand] = dice.OneIn(4);
  RandomValues(dice, large, input);
  RandomHue(dice, input);
  RandomWhite(dice, run);
  input.rotation = dice.Roll(0, 4);
  if (input.checks[kUseLearntCorrections] && !large) RandomLearning(dice, input);
  return run;
}

}  // namespace tarnwell
