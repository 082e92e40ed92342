// Writes the program's icon file from its drawing: make_icon tarnwell.ico

#include <array>
#include <cstdint>
#include <fstream>
#include <string>

#include "imaging/pixel_array.h"
#include "ui/look/icons.h"

namespace tarnwell {
namespace {

void Put16(std::string& out, unsigned value) {
  out += static_cast<char>(value & 255);
  out += static_cast<char>(value >> 8 & 255);
}

void Put32(std::string& out, std::uint32_t value) {
  Put16(out, value & 0xFFFF);
  Put16(out, value >> 16);
}

std::string PixelsWithOpacity(int side) {
  const PixelArray picture = WithOpacity(side, DrawProgramIcon);
  std::string out;
  for (int y = side - 1; y >= 0; --y) {
    out.append(reinterpret_cast<const char*>(picture.view().at(0, y)),
               static_cast<std::size_t>(side) * 4);
  }
  return out;
}

std::string Image(int side) {
  std::string out;
  Put32(out, 40);
  Put32(out, side);
  Put32(out, side * 2);  // colours and mask
  Put16(out, 1);
  Put16(out, 32);
  for (int field = 0; field < 6; ++field) Put32(out, 0);
  out += PixelsWithOpacity(side);
  out.append(static_cast<std::size_t>((side + 31) / 32 * 4) * side, '\0');
  return out;
}

std::string IconFile() {
  constexpr std::array kSides = {16, 20, 24, 32, 40, 48, 64, 128};
  std::string directory, images;
  Put16(directory, 0);
  Put16(directory, 1);
  Put16(directory, kSides.size());
  for (const int side : kSides) {
    const std::string image = Image(side);
    directory += static_cast<char>(side);
    directory += static_cast<char>(side);
    Put16(directory, 0);
    Put16(directory, 1);
    Put16(directory, 32);
    Put32(directory, static_cast<std::uint32_t>(image.size()));
    Put32(directory, static_cast<std::uint32_t>(6 + 16 * kSides.size() + images.size()));
    images += image;
  }
  return directory + images;
}

}  // namespace
}  // namespace tarnwell

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  std::ofstream file(argv[1], std::ios::binary);
  file << tarnwell::IconFile();
  return file.flush() ? 0 : 1;
}
