#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwell {

// A JPEG picture can be encoded in stripes that know nothing of each other, and so at the same time
// on several threads: with a restart marker between two stripes, the codes begin anew. The pixels
// are those of the picture encoded in one go, since no step of encoding looks across the border of
// a unit, the square of 8 or 16 pixels that is coded as one.
struct JpegStripes {
  int count = 1;
  int rows = 0;              // pixel rows of a stripe; the last one may have fewer
  int restart_interval = 0;  // units in a stripe; 0 when there is only one stripe
};

// The stripes of a picture, which depend on its size alone, so that the file is the same for any
// number of threads. Small pictures have one.
JpegStripes JpegStripesOf(int width, int height, int unit_side);

// One file of a picture, in pieces.
struct JpegInPieces {
  std::string header;
  // The coded data and its markers, through the end marker.
  std::vector<std::string_view> data;
};

// The file of a picture `height` rows high from the files of its stripes, top first, which stay
// where they are. All were encoded with the same settings and the restart interval.
JpegInPieces JoinJpegStripes(const std::vector<std::string_view>& stripes, int height);

// The coded data of a file of our own: what is behind its header, without the end marker.
std::string_view CodedDataOf(std::string_view file);

}  // namespace tarnwell
