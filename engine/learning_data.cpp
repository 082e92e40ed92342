#include "engine/learning_data.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "shell/lenient_number.h"

namespace tarnwell {
namespace {

constexpr char kSeparator = '\t';

bool IsPlainColumn(int column) {
  return column <= kBlackLevel || column == kWhitePoint || column == kBlackPoint;
}

std::string ShortestText(double value) {
  char text[400];
  const auto end = std::to_chars(text, text + sizeof(text), value, std::chars_format::fixed).ptr;
  return {text, end};
}

std::string FourDecimals(double value) {
  char text[400];
  std::snprintf(text, sizeof(text), "%.4f", value);
  return text;
}

// What a level of this column (0 to 9) is divided by to lie between 0 and 1.
float ColumnScale(int column) {
  switch (column) {
    case kHighestSumSeen:
    case kLowestSumSeen:
    case kWhitePoint:
    case kBlackPoint:
      return 765;
    case kHighestMaxChannel:
    case kBlackLevel:
      return 255;
    default:
      return 1;
  }
}

constexpr int kComparedColumns = 10;

// How much `stored` counts for a photo that measures `current`: 1 for a perfect match, falling to 0
// at an agreement of 90 %. Nothing when a field cannot be read or no column can be compared.
std::optional<double> WeightOf(const StoredRecord& stored, const LearningRecord& current) {
  double similarity_total = 0;
  int compared = 0;
  for (int column = 0; column < kComparedColumns; ++column) {
    if (!stored.fields[column]) return std::nullopt;
    const double scale = ColumnScale(column);
    const double value = *stored.fields[column] / scale;
    if (value > 1.0) continue;
    similarity_total += 1 - std::fabs(value - current[column] / scale);
    ++compared;
  }
  if (compared == 0) return std::nullopt;
  const double similarity = similarity_total / compared - 0.9;
  if (similarity < 0) return 0.0;
  return similarity * 10;
}

// The mean of the settings that records have, by their weights; 0 of none.
class WeightedMean {
 public:
  void Add(double weight, const std::optional<float>& setting) {
    if (!setting) return;
    weighted_total_ += weight * *setting;
    weight_total_ += weight;
  }
  double Value() const { return weight_total_ == 0 ? 0 : weighted_total_ / weight_total_; }

 private:
  double weighted_total_ = 0;
  double weight_total_ = 0;
};

// A share as "+8 %". Nobody sees a difference beyond the bounds; a record may hold any number.
// ", brightness +30 %"; empty where that moved by less than a percent.
std::string Moved(const char* what, double share) {
  const double percent = std::round(std::clamp(100 * share, -999.0, 999.0));
  if (percent == 0) return {};
  char text[16];
  std::snprintf(text, sizeof(text), " %+.0f %%", percent);
  return std::string(", ") + what + text;
}

}  // namespace

std::string FormatLearningRecord(const LearningRecord& record) {
  std::string line;
  for (int column = 0; column < kRecordColumns; ++column) {
    if (column > 0) line += kSeparator;
    line += IsPlainColumn(column) ? ShortestText(record[column]) : FourDecimals(record[column]);
  }
  return line;
}

StoredRecord ParseLearningRecord(std::string_view line) {
  StoredRecord record;
  for (;;) {
    const std::size_t separator = line.find(kSeparator);
    const std::string_view field = line.substr(0, separator);
    if (record.field_count < kRecordColumns) {
      const auto number = ParseLenientNumber(field);
      if (number && std::fabs(*number) <= std::numeric_limits<float>::max()) {
        record.fields[record.field_count] = static_cast<float>(*number);
      }
    }
    ++record.field_count;
    if (separator == std::string_view::npos) return record;
    line.remove_prefix(separator + 1);
  }
}

LearntProposal ProposalFor(const LearningData& data, const LearningRecord& current) {
  WeightedMean brightness, saturation, contrast;
  LearntProposal proposal;
  proposal.records = static_cast<int>(data.records.size());
  for (const StoredRecord& record : data.records) {
    if (record.field_count != kRecordColumns) continue;
    const std::optional<double> weight = WeightOf(record, current);
    if (!weight || *weight == 0) continue;
    brightness.Add(*weight, record.fields[kBrightnessSetting]);
    saturation.Add(*weight, record.fields[kSaturationSetting]);
    contrast.Add(*weight, record.fields[kContrastSetting]);
    ++proposal.similar;
  }
  proposal.brightness = brightness.Value();
  proposal.saturation = saturation.Value();
  proposal.contrast = contrast.Value();
  return proposal;
}

std::string ProposalText(const LearntProposal& proposal) {
  if (proposal.records == 0) return {};
  if (proposal.similar == 0) {
    return "no photo like this one among the " + std::to_string(proposal.records) + " learnt from";
  }
  const std::string moved = Moved("brightness", proposal.brightness) +
                            Moved("saturation", proposal.saturation) +
                            Moved("contrast", -proposal.contrast);
  return "learnt from " + std::to_string(proposal.similar) + " similar " +
         (proposal.similar == 1 ? "photo" : "photos") + ": " +
         (moved.empty() ? "nothing to change" : moved.substr(2));
}

}  // namespace tarnwell
