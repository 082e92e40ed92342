#include "tests/reference/naive_correction.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace tarnwell::naive {
namespace {

// --- Numbers and pixels -------------------------------------------------------------------------

// target = value, rounded half to even into 16 bits. A value that does not fit leaves the target.
void Assign(int& target, double value) {
  const double rounded = std::nearbyint(value);
  if (rounded >= -32768 && rounded <= 32767) target = static_cast<int>(rounded);
}

// The quotient, or nothing when it is not defined.
std::optional<double> Divide(double dividend, double divisor) {
  if (divisor == 0) return std::nullopt;
  return dividend / divisor;
}

int Get(const PixelArray& picture, Channel channel, int x, int y) {
  return picture.view().at(x, y)[channel];
}

void Set(PixelArray& picture, Channel channel, int x, int y, int level) {
  picture.mutable_view().at(x, y)[channel] = static_cast<std::uint8_t>(level);
}

bool Inside(const PixelArray& picture, int x, int y) {
  return x >= 0 && x < picture.width() && y >= 0 && y < picture.height();
}

int Sum(const Colour& c) { return c.red + c.green + c.blue; }
int Largest(const Colour& c) { return std::max(c.red, std::max(c.green, c.blue)); }
int Smallest(const Colour& c) { return std::min(c.red, std::min(c.green, c.blue)); }

// --- Parameters of a run ------------------------------------------------------------------------

struct Parameters {
  double scale_ratio = 1;
  double brightness = 0;
  double contrast = 0;
  double saturation = 0;
  std::array<double, 3> white_balance = {0, 0, 0};
  bool white_balance_on = false;
  std::array<double, 3> hue = {0, 0, 0};
  NoiseRule noise;
  double focus_amount = 0;
  int focus_distance = 0;
  int focus_step = 1;
};

void ReadFactors(const Input& in, Parameters& p) {
  if (in.open[3] && in.values[3]) p.brightness = *in.values[3] / 100.0;
  if (in.open[4] && in.values[4]) p.contrast = 0 - *in.values[4] / 100.0;
  if (in.open[5] && in.values[5]) p.saturation = *in.values[5] / 100.0;
  for (int i = 0; i < 3; ++i) {
    if (in.open[6]) p.hue[i] = in.hue[i];
  }
}

void ReadWhiteBalance(const Input& in, Parameters& p) {
  if (!in.open[2] || !in.values[2] || *in.values[2] <= 0 || !in.white) return;
  const double s = Sum(*in.white);
  const std::array<int, 3> channels = {in.white->red, in.white->green, in.white->blue};
  for (int i = 0; i < 3; ++i) {
    const std::optional<double> share = Divide(channels[i], s);
    if (!share) continue;
    p.white_balance[i] = 2 * (1.0 / 3 - *share);
    p.white_balance[i] = p.white_balance[i] * (*in.values[2] / 100.0);
  }
  p.white_balance_on = true;
}

void ReadNoise(const Input& in, Parameters& p) {
  if (!in.open[7]) return;
  p.noise.darkness_weighting = in.checks[4];
  if (in.values[8]) p.noise.radius = *in.values[8];
  if (!in.extended_noise) Assign(p.noise.radius, p.noise.radius / 8.0);
  if (!in.preview) Assign(p.noise.radius, p.noise.radius * p.scale_ratio);
  if (p.noise.radius < 1) p.noise.radius = 1;

  if (in.values[7]) p.noise.threshold = *in.values[7];
  const double radius = p.noise.radius;
  if (!in.extended_noise) {
    double divisor = radius * radius * 0.02 + 0.98;
    if (divisor < 0.1) divisor = 0.1;
    p.noise.threshold = p.noise.threshold / divisor;
  }
  if (p.noise.threshold < 1) p.noise.threshold = 1;
  p.noise.threshold = p.noise.threshold * 7.65;
}

void ReadFocus(const Input& in, Parameters& p) {
  if (!in.open[12]) return;
  if (in.values[11]) p.focus_amount = *in.values[11] / 50.0;
  double distance = 0;
  double step = 1;
  if (in.values[10]) distance = *in.values[10];
  if (in.preview) {
    distance = distance / p.scale_ratio;
    step = 1 / p.scale_ratio;
  }
  Assign(p.focus_distance, distance);
  Assign(p.focus_step, step);
  if (p.focus_distance < 1) p.focus_distance = 1;
  if (p.focus_step < 1) p.focus_step = 1;
}

// --- Analysis -----------------------------------------------------------------------------------

using Histogram = std::vector<std::int64_t>;

Histogram Count(const PixelArray& picture) {
  Histogram counts(766, 0);
  for (int x = 0; x < picture.width(); ++x) {
    for (int y = 0; y < picture.height(); ++y) ++counts[Sum(PixelAt(picture.view(), x, y))];
  }
  return counts;
}

int TopLevelOf(const Histogram& counts) {
  int top = 255;
  for (int level = 765; level >= 0; --level) {
    if (counts[level] > 0) {
      Assign(top, level / 3.0);
      return top;
    }
  }
  return top;
}

double AutomaticWhite(const Histogram& counts, int width, int height) {
  const double target = (width * 0.1) * (height * 0.1);
  std::int64_t total = 0;
  int level = 765;
  for (; level >= 0; --level) {
    total += counts[level];
    if (static_cast<double>(total) > target) break;
  }
  return level;
}

struct Measures {
  double highest_sum = 0;
  double lowest_sum = 765;
  double highest_max = 0;
  int black_level = 255;
  double highest_saturation = 0;
  double lowest_saturation = 255;
  double brightness_total = 0;
  double saturation_total = 0;
  double count = 0;
  double mean_brightness = 0;
  double mean_saturation = 0;
  double white_point = 0;
  double black_point = 0;
  double gain = 1;
  double multiplier = 1;
};

void ReadToneLimits(const Input& in, const Histogram& counts, const PixelArray& analysed,
                    Measures& m) {
  if (in.checks[0] && in.values[0]) {
    m.white_point = (100 - *in.values[0]) * 7.65;
  } else {
    m.white_point = AutomaticWhite(counts, analysed.width(), analysed.height());
  }
  if (in.checks[1] && in.values[1]) m.black_point = *in.values[1] * 7.65;
}

void CheckToneLimits(Measures& m) {
  if (m.white_point <= 1) m.white_point = 2;
  if (m.black_point >= m.white_point) m.black_point = m.white_point - 2;
  if (m.black_point + 2 > m.white_point) m.white_point = m.black_point + 1;
}

void MeasurePixel(const Colour& colour, int top_level, Measures& m) {
  const double sum = Sum(colour);
  if (sum > m.white_point || sum < m.black_point) return;
  m.lowest_sum = std::min(m.lowest_sum, sum);
  m.highest_sum = std::max(m.highest_sum, sum);
  m.highest_max = std::max(m.highest_max, static_cast<double>(Largest(colour)));
  m.black_level = std::min(m.black_level, Smallest(colour));
  m.count = m.count + 1;
  m.brightness_total = m.brightness_total + sum / 765;

  double largest = Largest(colour);
  if (largest == 0) largest = 0.001;
  const std::optional<double> saturation = Divide(largest - Smallest(colour), top_level);
  if (!saturation) return;
  m.saturation_total = m.saturation_total + *saturation;
  m.lowest_saturation = std::min(m.lowest_saturation, *saturation);
  m.highest_saturation = std::max(m.highest_saturation, *saturation);
}

void FinishMeasures(Measures& m) {
  if (m.count == 0) m.count = 1;
  m.mean_brightness = m.brightness_total / m.count;
  m.mean_saturation = m.saturation_total / m.count;
  if (m.highest_sum > m.white_point) m.highest_sum = m.white_point;
  if (m.black_level < m.black_point) Assign(m.black_level, m.black_point);
  if (m.highest_sum == 0) m.highest_sum = 0.001;
}

// 0.55 and 0.16 are single precision, 0.76 is double.
void DeriveGain(Measures& m) {
  const std::optional<double> by_sum = Divide(765, m.highest_sum - m.lowest_sum);
  const std::optional<double> by_channel = Divide(250, m.highest_max - m.black_level);
  if (by_sum) m.gain = *by_sum;
  if (by_channel && (!by_sum || *by_channel > m.gain)) m.gain = *by_channel;
  const std::optional<double> wanted = Divide(0.55f, m.mean_brightness);
  if (wanted) m.gain = (m.gain + *wanted) / 2;
}

void DeriveMultiplier(Measures& m) {
  const std::optional<double> by_highest = Divide(0.76, m.highest_saturation);
  if (by_highest) m.multiplier = *by_highest;
  const std::optional<double> by_mean = Divide(0.16f, m.mean_saturation);
  if (by_mean) m.multiplier = (m.multiplier + *by_mean) / 2;
  const std::optional<double> less = Divide(0.5, m.gain);
  if (less) m.multiplier = m.multiplier * (*less + 0.5);
}

Measures Analyse(const Input& in, const PixelArray& analysed) {
  Measures m;
  const Histogram counts = Count(analysed);
  const int top_level = TopLevelOf(counts);
  ReadToneLimits(in, counts, analysed, m);
  CheckToneLimits(m);
  for (int x = 0; x < analysed.width(); ++x) {
    for (int y = 0; y < analysed.height(); ++y) {
      MeasurePixel(PixelAt(analysed.view(), x, y), top_level, m);
    }
  }
  FinishMeasures(m);
  DeriveGain(m);
  DeriveMultiplier(m);
  return m;
}

// --- Learnt offsets -----------------------------------------------------------------------------

std::vector<std::string> Split(const std::string& line) {
  std::vector<std::string> fields = {""};
  for (const char c : line) {
    if (c == '\t') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

std::optional<double> SingleOf(const std::string& field) {
  char* end = nullptr;
  const float value = std::strtof(field.c_str(), &end);
  if (field.empty() || *end != '\0') return std::nullopt;
  return value;
}

double Scale(int column) {
  if (column == 0 || column == 1 || column == 8 || column == 9) return 765;
  if (column == 2 || column == 3) return 255;
  return 1;
}

// The weight of a stored record, nothing when it cannot be compared or is not similar.
std::optional<double> WeightOf(const std::vector<std::string>& fields, const Record& current) {
  double similarity_total = 0;
  double compared = 0;
  for (int j = 0; j <= 9; ++j) {
    const double c = current[j] / Scale(j);
    const std::optional<double> stored = SingleOf(fields[j]);
    if (!stored) return std::nullopt;
    const double v = *stored / Scale(j);
    if (v > 1.0) continue;
    similarity_total = similarity_total + (1 - std::fabs(v - c));
    compared = compared + 1;
  }
  const std::optional<double> mean = Divide(similarity_total, compared);
  if (!mean || *mean - 0.9 < 0) return std::nullopt;
  return (*mean - 0.9) * 10;
}

double Learnt(const std::vector<std::string>& lines, const Record& current, int target) {
  double weighted_total = 0;
  double weight_total = 0;
  for (const std::string& line : lines) {
    const std::vector<std::string> fields = Split(line);
    if (fields.size() != 21) continue;
    const std::optional<double> weight = WeightOf(fields, current);
    const std::optional<double> setting = SingleOf(fields[target]);
    if (!weight || !setting) continue;
    weighted_total = weighted_total + *weight * *setting;
    weight_total = weight_total + *weight;
  }
  return weight_total == 0 ? 0 : weighted_total / weight_total;
}

Record RecordOf(const Measures& m, const Parameters& p) {
  return {m.highest_sum,
          m.lowest_sum,
          m.highest_max,
          static_cast<double>(m.black_level),
          m.highest_saturation,
          m.lowest_saturation,
          m.mean_brightness,
          m.mean_saturation,
          m.white_point,
          m.black_point,
          m.gain,
          m.multiplier,
          p.brightness,
          p.saturation,
          p.contrast,
          p.white_balance[0],
          p.white_balance[1],
          p.white_balance[2],
          p.hue[0],
          p.hue[1],
          p.hue[2]};
}

void ApplyLearntOffsets(const Input& in, Measures& m, Parameters& p, Record& record) {
  const double brightness = Learnt(in.learning, record, 12);
  const double saturation = Learnt(in.learning, record, 13);
  const double contrast = Learnt(in.learning, record, 14);
  m.gain = m.gain * (1 + brightness);
  m.multiplier = m.multiplier * (1 + saturation);
  p.contrast = p.contrast + contrast;
  record[12] = p.brightness + brightness;
  record[13] = p.saturation + saturation;
  record[14] = p.contrast;
}

// --- Adjustments of one pixel -------------------------------------------------------------------

// What the neighbours that count pull a channel to: A = sum of (R' - R), B = sum of d x (R' - R).
struct Pull {
  std::int64_t a = 0;
  std::int64_t b = 0;
  void Add(int neighbour, int own, int d) {
    a += neighbour - own;
    b += std::int64_t{d} * (neighbour - own);
  }
};

}  // namespace

Colour FilterNoise(const PixelArray& reference, int x, int y, const NoiseRule& rule, Colour c) {
  const double darkness = 1 - Sum(c) / 765.0;
  double threshold = rule.threshold;
  if (rule.darkness_weighting) threshold = rule.threshold * darkness * 1.25;
  if (threshold == 0) return c;
  Pull red, green, blue;
  const int radius = rule.radius;
  for (int dx = -radius; dx <= radius; ++dx) {
    for (int dy = -radius; dy <= radius; ++dy) {
      if (dx * dx + dy * dy > (radius + 0.5) * (radius + 0.5)) continue;
      if ((dx == 0 && dy == 0) || !Inside(reference, x + dx, y + dy)) continue;
      const Colour other = PixelAt(reference.view(), x + dx, y + dy);
      const int d = std::abs(c.red - other.red) + std::abs(c.green - other.green) +
                    std::abs(c.blue - other.blue);
      if (d >= threshold) continue;
      red.Add(other.red, c.red, d);
      green.Add(other.green, c.green, d);
      blue.Add(other.blue, c.blue, d);
    }
  }
  const double n = (2.0 * radius + 1) * (2.0 * radius + 1) + 1;
  Assign(c.red, c.red + (red.a - red.b / threshold) / n);
  Assign(c.green, c.green + (green.a - green.b / threshold) / n);
  Assign(c.blue, c.blue + (blue.a - blue.b / threshold) / n);
  return c;
}

namespace {

void SharpenChannel(int& channel, double mean, double amount) {
  int change = 0;
  const double exact = std::nearbyint((channel - mean) * amount);
  if (exact < -32768 || exact > 32767) return;
  change = static_cast<int>(exact);
  Assign(channel, channel + change);
}

void Focus(const PixelArray& working, int x, int y, const Parameters& p, Colour& c) {
  double red = 0, green = 0, blue = 0, count = 0;
  for (int dx = -p.focus_distance; dx <= p.focus_distance; dx += p.focus_step) {
    for (int dy = -p.focus_distance; dy <= p.focus_distance; dy += p.focus_step) {
      if ((dx == 0 && dy == 0) || !Inside(working, x + dx, y + dy)) continue;
      const Colour other = PixelAt(working.view(), x + dx, y + dy);
      red = red + other.red;
      green = green + other.green;
      blue = blue + other.blue;
      count = count + 1;
    }
  }
  if (count == 0) count = 1e-14;
  SharpenChannel(c.red, red / count, p.focus_amount);
  SharpenChannel(c.green, green / count, p.focus_amount);
  SharpenChannel(c.blue, blue / count, p.focus_amount);
}

void Darken(int& channel, int black_level) {
  Assign(channel, channel - black_level);
  if (channel < 0) channel = 0;
}

void Saturate(int& channel, double average, double multiplier) {
  Assign(channel, (channel - average) * multiplier + average);
}

void ApplyContrast(int& channel, double contrast) {
  Assign(channel, channel + (128 - channel) * contrast);
}

int Clamp(int channel) { return channel < 0 ? 0 : channel > 255 ? 255 : channel; }

void AdjustPixel(const Input& in, const Parameters& p, const Measures& m,
                 const PixelArray& reference, int x, int y, PixelArray& working) {
  Colour c = PixelAt(working.view(), x, y);
  const int sum = Sum(c);
  if (in.open[7]) c = FilterNoise(reference, x, y, p.noise, c);
  if (in.open[12]) Focus(working, x, y, p, c);
  const std::array<int*, 3> channels = {&c.red, &c.green, &c.blue};
  for (int i = 0; i < 3; ++i) {
    int& channel = *channels[i];
    Darken(channel, m.black_level);
    Assign(channel, channel * m.gain);
    if (in.open[6]) Assign(channel, channel + channel * p.hue[i]);
    if (p.white_balance_on) Assign(channel, channel + channel * p.white_balance[i]);
    Saturate(channel, sum / 3.0, m.multiplier);
    if (p.contrast != 0) ApplyContrast(channel, p.contrast);
    channel = Clamp(channel);
  }
  SetPixel(working.mutable_view(), x, y, c);
}

PixelArray AdjustPicture(const Input& in, const Parameters& p, const Measures& m,
                         const PixelArray& picture) {
  PixelArray working = picture;
  for (int x = 0; x < picture.width(); ++x) {
    for (int y = 0; y < picture.height(); ++y) AdjustPixel(in, p, m, picture, x, y, working);
  }
  return working;
}

// --- Turning the hue and the picture ------------------------------------------------------------

// The hue in degrees times (largest - smallest), a whole number.
int ScaledHue(const Colour& c) {
  const int range = Largest(c) - Smallest(c);
  if (c.red == Largest(c)) return 60 * (c.green - c.blue);
  if (c.green == Largest(c)) return 60 * (c.blue - c.red) + 120 * range;
  return 60 * (c.red - c.green) + 240 * range;
}

}  // namespace

Colour TurnHue(const Colour& c, int degrees) {
  const int high = Largest(c);
  const int low = Smallest(c);
  const int range = high - low;
  if (range == 0) return c;
  int hue = (ScaledHue(c) + degrees * range) % (360 * range);
  if (hue < 0) hue += 360 * range;
  const int sixth = hue / (60 * range);
  const int n = hue % (60 * range);
  const int rising = static_cast<int>(std::nearbyint(low + n / 60.0));
  const int falling = static_cast<int>(std::nearbyint(high - n / 60.0));
  switch (sixth) {
    case 0:
      return {high, rising, low};
    case 1:
      return {falling, high, low};
    case 2:
      return {low, high, rising};
    case 3:
      return {low, falling, high};
    case 4:
      return {rising, low, high};
    default:
      return {high, low, falling};
  }
}

namespace {

void RotateColours(const Input& in, PixelArray& picture) {
  if (!in.open[13] || !in.values[12] || *in.values[12] == 0) return;
  for (int x = 0; x < picture.width(); ++x) {
    for (int y = 0; y < picture.height(); ++y) {
      SetPixel(picture.mutable_view(), x, y,
               TurnHue(PixelAt(picture.view(), x, y), *in.values[12]));
    }
  }
}

PixelArray Turn(const PixelArray& picture, int choice) {
  const int w = picture.width();
  const int h = picture.height();
  PixelArray turned = choice <= 1 ? PixelArray(h, w) : PixelArray(w, h);
  for (int x = 1; x <= w; ++x) {
    for (int y = 1; y <= h; ++y) {
      int to_x = 0, to_y = 0;
      if (choice == 0) to_x = y, to_y = w - x + 1;
      if (choice == 1) to_x = h - y + 1, to_y = x;
      if (choice == 2) to_x = w - x + 1, to_y = h - y + 1;
      if (choice == 3) to_x = x, to_y = h - y + 1;
      if (choice == 4) to_x = w - x + 1, to_y = y;
      SetPixel(turned.mutable_view(), to_x - 1, to_y - 1, PixelAt(picture.view(), x - 1, y - 1));
    }
  }
  return turned;
}

// --- Dead pixels --------------------------------------------------------------------------------

// The colour of the nearest sound pixel in direction (dx, dy), at most 100 pixels away.
std::optional<Colour> NearestSound(const PixelArray& photo, const PixelArray& map, int threshold,
                                   int x, int y, int dx, int dy) {
  for (int k = 1; k <= 100; ++k) {
    if (!Inside(photo, x + k * dx, y + k * dy)) return std::nullopt;
    if (Get(map, kRed, x + k * dx, y + k * dy) < threshold) {
      return PixelAt(photo.view(), x + k * dx, y + k * dy);
    }
  }
  return std::nullopt;
}

void RepairPixel(PixelArray& photo, const PixelArray& map, int threshold, int x, int y) {
  double red = 0, green = 0, blue = 0, count = 0;
  for (const auto [dx, dy] : {std::array{-1, 0}, {0, -1}, {1, 0}, {0, 1}}) {
    const std::optional<Colour> sound = NearestSound(photo, map, threshold, x, y, dx, dy);
    if (!sound) continue;
    red += sound->red;
    green += sound->green;
    blue += sound->blue;
    count += 1;
  }
  if (count == 0) return;
  Colour mean;
  Assign(mean.red, red / count);
  Assign(mean.green, green / count);
  Assign(mean.blue, blue / count);
  SetPixel(photo.mutable_view(), x, y, mean);
}

// --- Texts --------------------------------------------------------------------------------------

// The fewest decimals that read back to the same number.
std::string PlainText(double value) {
  char text[400];
  for (int decimals = 0; decimals < 40; ++decimals) {
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    if (std::strtod(text, nullptr) == value) break;
  }
  return text;
}

std::string FourDecimals(double value) {
  char text[400];
  std::snprintf(text, sizeof text, "%.4f", value);
  return text;
}

}  // namespace

PixelArray Thumbnail(const PixelArray& photo) {
  const int w = photo.width();
  const int h = photo.height();
  int tw = w;
  int th = h;
  if (w >= 320 || h >= 320) {
    if (w <= h) {
      th = 320;
      Assign(tw, 320.0 / h * w);
    } else {
      tw = 320;
      Assign(th, 320.0 / w * h);
    }
  }
  tw = std::max(tw, 1);
  th = std::max(th, 1);
  PixelArray thumbnail(tw, th);
  for (int x = 0; x < tw; ++x) {
    for (int y = 0; y < th; ++y) {
      const int from_x = (2 * x + 1) * w / (2 * tw);
      const int from_y = (2 * y + 1) * h / (2 * th);
      SetPixel(thumbnail.mutable_view(), x, y, PixelAt(photo.view(), from_x, from_y));
      Set(thumbnail, kUnused, x, y, Get(photo, kUnused, from_x, from_y));
    }
  }
  return thumbnail;
}

PixelArray RepairDeadPixels(PixelArray photo, const PixelArray& map, int threshold) {
  for (int x = 0; x < photo.width(); ++x) {
    for (int y = 0; y < photo.height(); ++y) {
      if (Get(map, kRed, x, y) > threshold) RepairPixel(photo, map, threshold, x, y);
    }
  }
  return photo;
}

Output Correct(const Input& in) {
  const PixelArray thumbnail = Thumbnail(in.photo);
  Parameters p;
  p.scale_ratio = static_cast<double>(in.photo.width()) / thumbnail.width();
  ReadFactors(in, p);
  ReadWhiteBalance(in, p);
  ReadNoise(in, p);
  ReadFocus(in, p);

  Output out;
  Measures m;
  m.black_level = 0;
  if (in.open[1]) {
    m = Analyse(in, in.analyze_full ? in.photo : thumbnail);
    out.record = RecordOf(m, p);
    if (in.checks[3]) ApplyLearntOffsets(in, m, p, *out.record);
  }
  m.gain = m.gain + 2 * p.brightness;
  m.multiplier = m.multiplier + 2 * p.saturation;
  if (m.multiplier < 0) m.multiplier = 0;

  out.picture = AdjustPicture(in, p, m, in.preview ? thumbnail : in.photo);
  RotateColours(in, out.picture);
  if (in.open[9]) out.picture = Turn(out.picture, in.rotation);
  return out;
}

std::vector<std::string> FieldTexts(const Record& record) {
  std::vector<std::string> texts;
  for (int i = 0; i < 21; ++i) {
    const bool plain = i <= 3 || i == 8 || i == 9;
    texts.push_back(plain ? PlainText(record[i]) : FourDecimals(record[i]));
  }
  return texts;
}

}  // namespace tarnwell::naive
