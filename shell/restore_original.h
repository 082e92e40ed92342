#pragma once

namespace tarnwell {

struct Form1;

// "Restore Original Image": drops the corrections; window and preview show the photo as it was
// opened, or saved last. Nothing unsaved is left then, and nothing to learn from.
void RestoreOriginalImage(Form1& form);

}  // namespace tarnwell
