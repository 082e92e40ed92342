#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwell {

inline constexpr int kRecordColumns = 21;

// Columns of a learning record. 0 to 14 are the analysis record.
enum Column : int {
  kHighestSumSeen = 0,
  kLowestSumSeen = 1,
  kHighestMaxChannel = 2,
  kBlackLevel = 3,
  kHighestSaturation = 4,
  kLowestSaturation = 5,
  kMeanBrightness = 6,
  kMeanSaturation = 7,
  kWhitePoint = 8,
  kBlackPoint = 9,
  kToneGain = 10,
  kSaturationMultiplier = 11,
  kBrightnessSetting = 12,
  kSaturationSetting = 13,
  kContrastSetting = 14,
  kWhiteBalanceRed = 15,  // then green, blue
  kHueRed = 18,           // then green, blue
};

using LearningRecord = std::array<double, kRecordColumns>;

// A record as a line of the learning file, without the line end: 21 fields separated by TAB.
// Columns 0 to 3, 8 and 9 as the shortest text that reads back to the same number, the others with
// four decimals.
std::string FormatLearningRecord(const LearningRecord& record);

// The fields of one stored record, as read: single precision, as the comparison wants them. A field
// that is no number, and every field behind the last, is empty.
struct StoredRecord {
  std::array<std::optional<float>, kRecordColumns> fields;
  int field_count = 0;  // TAB-separated fields that the line had
};

// The records of one camera and mode, in file order.
struct LearningData {
  std::vector<StoredRecord> records;
};

StoredRecord ParseLearningRecord(std::string_view line);

// What stored records propose for a photo.
struct LearntProposal {
  int records = 0;  // that there are
  int similar = 0;  // that are similar to the photo, and speak
  // Offsets as the setting columns hold them: brightness and saturation are raised by this share
  // of themselves; contrast is lowered by it.
  double brightness = 0;
  double saturation = 0;
  double contrast = 0;
};

// The settings of the records that are similar to `current`, averaged, each weighted by how far its
// agreement in columns 0 to 9 exceeds 90 %. All 0 when no record is similar.
LearntProposal ProposalFor(const LearningData& data, const LearningRecord& current);

// That in one line for the user: who spoke, and what it moved how far, in percent. Empty when
// nothing has been learnt yet.
std::string ProposalText(const LearntProposal& proposal);

}  // namespace tarnwell
