#pragma once

#include <optional>
#include <vector>

#include "imaging/jpeg_segments.h"

namespace tarnwell {

// The quality, 1 to 100, at which this program's encoder quantises most like the file with these
// segments (SegmentsBeforeScan) was. Exact for the tables that the JPEG standard recommends, at the
// scale that encoders share; the nearest for other tables. Nothing when the file has no luminance
// table.
std::optional<int> EstimateJpegQuality(const std::vector<JpegSegment>& segments);

}  // namespace tarnwell
