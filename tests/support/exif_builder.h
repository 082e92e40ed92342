#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarnwell {

// Builds EXIF blocks as phones write them: directories about the photo, the camera with a maker's
// note, the place, and a thumbnail, in this order and with values between them.
struct ExifRecipe {
  bool big_endian = false;
  int orientation = 1;
  int width = 0;
  int height = 0;
  bool place = false;
  bool subject = false;        // tells where in the picture it is
  std::string thumbnail = {};  // a JPEG file; empty for none
  std::string behind = {};     // bytes behind all that
};

inline constexpr char kMakerNote[] = "MAKER \1\2\3\4 note with offsets of its own";
inline constexpr char kSubjectArea[] = "SUBJECT!";  // four numbers of two bytes
inline constexpr char kPlaceText[] = "WGS-84 somewhere secret";

class ExifBuilder {
 public:
  explicit ExifBuilder(const ExifRecipe& recipe) : recipe_(recipe) {}

  // The content of the segment APP1.
  std::string Build() {
    out_ = recipe_.big_endian ? "MM" : "II";
    Put(42, 2);
    Put(8, 4);
    const std::size_t main = Directory(recipe_.place ? 4 : 3);
    Entry(main, 0, 0x0112, 3, 1, static_cast<std::uint32_t>(recipe_.orientation));
    Text(main, 1, 0x010F, "A maker of cameras");
    PutCamera(main);
    if (recipe_.place) PutPlace(main);
    if (!recipe_.thumbnail.empty()) PutThumbnail(main + (recipe_.place ? 4 : 3) * 12);
    return std::string("Exif\0\0", 6) + out_ + recipe_.behind;
  }

 private:
  void Put(std::uint32_t number, int bytes) {
    out_.append(static_cast<std::size_t>(bytes), '\0');
    Set(out_.size() - static_cast<std::size_t>(bytes), number, bytes);
  }
  void Set(std::size_t at, std::uint32_t number, int bytes) {
    for (int i = 0; i < bytes; ++i) {
      const int shift = 8 * (recipe_.big_endian ? bytes - 1 - i : i);
      out_[at + static_cast<std::size_t>(i)] = static_cast<char>(number >> shift);
    }
  }
  // Room for a directory; gives where its first entry is.
  std::size_t Directory(std::uint32_t entries) {
    Put(entries, 2);
    const std::size_t at = out_.size();
    out_.append(entries * 12 + 4, '\0');
    return at;
  }
  void Entry(std::size_t directory, std::size_t number, std::uint32_t tag, std::uint32_t type,
             std::uint32_t count, std::uint32_t value) {
    const std::size_t at = directory + number * 12;
    Set(at, tag, 2);
    Set(at + 2, type, 2);
    Set(at + 4, count, 4);
    Set(at + 8, value, type == 3 ? 2 : 4);
  }
  void Text(std::size_t directory, std::size_t number, std::uint32_t tag, const std::string& text,
            std::uint32_t type = 2) {
    Entry(directory, number, tag, type, static_cast<std::uint32_t>(text.size()),
          static_cast<std::uint32_t>(out_.size()));
    out_ += text;
    if (text.size() % 2 == 1) out_ += '\0';
  }
  void PutCamera(std::size_t main) {
    Entry(main, 2, 0x8769, 4, 1, static_cast<std::uint32_t>(out_.size()));
    const std::size_t camera = Directory(recipe_.subject ? 4 : 3);
    std::size_t next = 0;
    if (recipe_.subject) {
      Entry(camera, next++, 0x9214, 3, 4, 0);
      Set(camera + 8, static_cast<std::uint32_t>(out_.size()), 4);
      out_ += kSubjectArea;
    }
    Text(camera, next++, 0x927C, kMakerNote, 7);
    Entry(camera, next++, 0xA002, 4, 1, static_cast<std::uint32_t>(recipe_.width));
    Entry(camera, next++, 0xA003, 3, 1, static_cast<std::uint32_t>(recipe_.height));
  }
  void PutPlace(std::size_t main) {
    Entry(main, 3, 0x8825, 4, 1, static_cast<std::uint32_t>(out_.size()));
    const std::size_t place = Directory(1);
    Text(place, 0, 0x0012, kPlaceText);
  }
  void PutThumbnail(std::size_t link) {
    Set(link, static_cast<std::uint32_t>(out_.size()), 4);
    const std::size_t directory = Directory(3);
    Entry(directory, 0, 0x0103, 3, 1, 6);
    Entry(directory, 1, 0x0201, 4, 1, static_cast<std::uint32_t>(out_.size()));
    Entry(directory, 2, 0x0202, 4, 1, static_cast<std::uint32_t>(recipe_.thumbnail.size()));
    out_ += recipe_.thumbnail;
  }

  const ExifRecipe recipe_;
  std::string out_;
};

inline std::string MakeExif(const ExifRecipe& recipe) { return ExifBuilder(recipe).Build(); }

}  // namespace tarnwell
