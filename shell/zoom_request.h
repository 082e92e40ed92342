#pragma once

namespace tarnwell {

struct Form1;

// A request to look at the photo at full size. When only the thumbnail has been corrected, asks
// whether to correct the full photo first, and opens the zoom window after that; on any other
// answer, and when the correction does not come to its end, the window stays closed.
void RequestZoom(Form1& form);

}  // namespace tarnwell
