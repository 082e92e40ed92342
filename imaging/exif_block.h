#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "imaging/embedded_thumbnail.h"
#include "imaging/exif_layout.h"

namespace tarnwell {

// Makes the thumbnail, at most `longest_side` pixels wide and high, and its file at most
// `most_bytes` long; the file is empty when it cannot be made so small.
using ThumbnailMaker = std::function<EmbeddedThumbnail(int longest_side, std::size_t most_bytes)>;

// The EXIF data of a photo. Changes are made in place wherever sizes stay the same: makers' notes
// hold offsets of their own that nobody else knows, and stay true only while nothing moves.
class ExifBlock {
 public:
  // `content` is that of a segment APP1 which IsExif. Nothing when it is damaged.
  static std::optional<ExifBlock> Parse(std::string_view content);
  static bool IsExif(std::string_view content);
  // How the picture is stored, 1 to 8, as far as a block tells it that Parse gives nothing for.
  static int OrientationOfDamaged(std::string_view content);

  // The whole content of the segment, with the changes made so far.
  const std::string& content() const { return content_; }

  // How the picture is stored, 1 to 8: upright where the block says nothing that has a meaning.
  int Orientation() const;
  bool TellsOrientation() const;  // whether it says anything
  void SetUpright();

  // Sets the size wherever the block tells that of the main picture.
  void SetPixelSize(int width, int height);

  // Takes the place out, and with it copies of other metadata and the maker's note, which may tell
  // it again; the bytes that told it become 0. False, and the block is not to be used any more,
  // when its parts lie across others, so that this would damage them, and when it tells them twice.
  [[nodiscard]] bool LeavePlaceOut();

  // Takes out where in the picture the subject is. False, and the block is not to be used any more,
  // when its parts lie across others.
  [[nodiscard]] bool LeaveSubjectOut();

  // Puts a new thumbnail in place of the present one: in its room if it fits, else at the end of
  // the block if it fits there, else the thumbnail is left out. A block without one stays without.
  void ReplaceThumbnail(const ThumbnailMaker& make);

 private:
  explicit ExifBlock(std::string_view content) : content_(content) {}

  std::string_view block() const;  // the structure alone
  char* At(std::size_t at);        // in the structure
  std::uint32_t Number(const ExifEntry& entry) const;
  void SetNumber(const std::optional<ExifDirectory>& directory, std::uint16_t tag,
                 std::uint32_t number);
  void Clear(const ByteRange& range);
  bool IsApart(const std::vector<ByteRange>& ranges, const ExifDirectory* its_own,
               const ExifEntry* itself) const;
  // Directories that entries are taken out of.
  enum class In { kMain, kCamera };
  const ExifEntry* Find(In in, std::uint16_t tag) const;
  bool RemoveEntry(In in, std::uint16_t tag);
  bool RemoveValue(In in, std::uint16_t tag);
  std::optional<ByteRange> ThumbnailBytes() const;
  int ThumbnailSide(const ByteRange& thumbnail) const;
  bool PutThumbnailInPlace(const ThumbnailMaker& make, const ByteRange& room, int side);
  bool PutThumbnailAtTheEnd(const ThumbnailMaker& make, const ByteRange& room, int side);
  void DescribeThumbnail(std::size_t at, const EmbeddedThumbnail& thumbnail);
  void UnlinkThumbnail();

  std::string content_;
  ExifLayout layout_;
};

}  // namespace tarnwell
