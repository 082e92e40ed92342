#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwell {

// Second bytes of the markers that are looked for.
inline constexpr std::uint8_t kEndOfImageMarker = 0xD9;
inline constexpr std::uint8_t kStartOfScanMarker = 0xDA;
inline constexpr std::uint8_t kFirstApp = 0xE0;  // APP0; APPn is kFirstApp + n
inline constexpr std::uint8_t kLastApp = 0xEF;
inline constexpr std::uint8_t kCommentMarker = 0xFE;
inline constexpr std::uint8_t kQuantisationMarker = 0xDB;

// The most bytes that one segment holds behind its length.
inline constexpr std::size_t kMostSegmentContent = 65533;

// A segment of a JPEG file. The content lies behind the length, and belongs to the file.
struct JpegSegment {
  std::uint8_t marker = 0;
  std::string_view content;

  bool IsApp(int number) const { return marker == kFirstApp + number; }
};

// Goes through a JPEG file from marker to marker, over its restarts. What lies between them, coded
// pixels or rubbish, is passed over.
class JpegWalk {
 public:
  explicit JpegWalk(std::string_view jpeg) : jpeg_(jpeg) {}

  // The next segment or end marker; false where the file ends, also in the middle of one.
  bool Next(JpegSegment& segment);

  // What lies behind the one that was found last.
  std::string_view rest() const { return jpeg_.substr(at_); }

 private:
  bool TakeContent(JpegSegment& segment);

  std::string_view jpeg_;
  std::size_t at_ = 0;
};

// The segments in front of the first scan, in the order of the file. A file that breaks off there,
// and one that is no JPEG file, gives those that are whole.
std::vector<JpegSegment> SegmentsBeforeScan(std::string_view jpeg);

// What lies behind the end marker of the file's main picture; empty where that has none.
std::string_view BytesBehindPicture(std::string_view jpeg);

// Whether the marker opens a frame, whose header tells the size of the picture.
bool IsFrameMarker(std::uint8_t marker);

// Appends a segment to `out`. `content` is at most kMostSegmentContent long.
void AddSegment(std::string& out, std::uint8_t marker, std::string_view content);

// The JPEG file `jpeg` with `segments` put in behind its start marker and its JFIF header, or in
// place of that header when they begin with one. Anything
// that does not start like a JPEG file comes back unchanged.
std::string WithSegments(std::string_view jpeg, std::string_view segments);

}  // namespace tarnwell
