#pragma once

namespace tarnwell {

struct Form1;
struct PhotoSurfaces;

// Only the thumbnail has been corrected: picSource is of another size than the photo. A turned
// photo has its sides exchanged, so the areas tell, as they do when saving. Both must be shown.
bool OnlyThumbnailCorrected(const PhotoSurfaces& surfaces);

// Whether a corrected preview is shown that may be made anew when the panel's settings change: a
// full photo that was corrected, and one that was not touched yet, wait for a command.
bool PreviewFollowsPanel(const Form1& form);

// Whether the preview with these settings may take so long that it should not be made while a
// slider is on its way.
bool IsPreviewSlow(const Form1& form);

}  // namespace tarnwell
