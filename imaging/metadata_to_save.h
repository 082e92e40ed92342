#pragma once

#include <string>
#include <vector>

#include "imaging/photo_metadata.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

// The segments that a JPEG file made from a photo gets, and what of the photo's they leave out.
struct MetadataToSave {
  std::string segments;            // one behind the other; empty for none
  std::vector<std::string> notes;  // what is left out on top of PhotoMetadata::notes
};

struct SaveWishes {
  bool leave_place_out = false;
  bool turned = false;  // the picture was turned or mirrored since the photo was opened
};

// Makes the photo's metadata true for `picture`, the pixels that are saved.
MetadataToSave MetadataFor(const PhotoMetadata& metadata, const PixelView& picture,
                           const SaveWishes& wishes);

}  // namespace tarnwell
