// Header (128 bytes), number of tags, 12 bytes a tag (name, where, how long), then the tags.
// Numbers are big-endian, fractions of 65536.

#include "imaging/srgb_profile.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace tarnwell {
namespace {

void Add(std::string& out, std::uint32_t number, int bytes = 4) {
  for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) {
    out += static_cast<char>(number >> shift);
  }
}

std::uint32_t Fraction(double number) {
  return static_cast<std::uint32_t>(std::lround(number * 65536));
}

using Xyz = std::array<double, 3>;
constexpr Xyz kWhite = {0.9642, 1.0, 0.8249};  // of the space that profiles meet in
constexpr Xyz kRedOfDisplay = {0.43607, 0.22249, 0.01392};
constexpr Xyz kGreenOfDisplay = {0.38515, 0.71687, 0.09708};
constexpr Xyz kBlueOfDisplay = {0.14307, 0.06061, 0.71410};

std::string XyzTag(const Xyz& colour) {
  std::string tag("XYZ \0\0\0\0", 8);
  for (const double part : colour) Add(tag, Fraction(part));
  return tag;
}

std::string CurveTag() {
  constexpr int kPoints = 1024;
  std::string tag("curv\0\0\0\0", 8);
  Add(tag, kPoints);
  for (int i = 0; i < kPoints; ++i) {
    const double level = static_cast<double>(i) / (kPoints - 1);
    const double light = level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
    Add(tag, static_cast<std::uint32_t>(std::lround(light * 65535)), 2);
  }
  return tag;
}

std::string DescriptionTag() {
  const std::string text = "Standard display";
  std::string tag("desc\0\0\0\0", 8);
  Add(tag, static_cast<std::uint32_t>(text.size() + 1));
  return tag + text + std::string(1 + 8 + 70 + 3, '\0');  // no forms for other scripts
}

std::string Header(std::size_t size) {
  std::string header;
  Add(header, static_cast<std::uint32_t>(size));
  Add(header, 0);           // no preferred engine
  Add(header, 0x02100000);  // version 2.1
  header += "mntrRGB XYZ ";
  header += std::string(12, '\0');  // no date
  header += "acsp";
  header.resize(68, '\0');
  for (const double part : kWhite) Add(header, Fraction(part));
  header.resize(128, '\0');
  return header;
}

}  // namespace

std::string SrgbProfile() {
  const std::string curve = CurveTag();
  const std::vector<std::pair<const char*, std::string>> tags = {
      {"desc", DescriptionTag()},
      {"cprt", std::string("text\0\0\0\0None\0", 13)},
      {"wtpt", XyzTag(kWhite)},
      {"rXYZ", XyzTag(kRedOfDisplay)},
      {"gXYZ", XyzTag(kGreenOfDisplay)},
      {"bXYZ", XyzTag(kBlueOfDisplay)},
      {"rTRC", curve},
      {"gTRC", curve},
      {"bTRC", curve}};
  const std::size_t table = 4 + 12 * tags.size();
  std::string index, content;
  Add(index, static_cast<std::uint32_t>(tags.size()));
  for (const auto& [name, tag] : tags) {
    index += name;
    Add(index, static_cast<std::uint32_t>(128 + table + content.size()));
    Add(index, static_cast<std::uint32_t>(tag.size()));
    content += tag;
    content.resize((content.size() + 3) & ~std::size_t{3}, '\0');
  }
  return Header(128 + table + content.size()) + index + content;
}

}  // namespace tarnwell
