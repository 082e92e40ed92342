#pragma once

#include "ui/panel_parts.h"

namespace tarnwell {

// The row of the panel with the hue picker, and what it makes of the photo's mean colour.
PanelParts MakeHueRow(HWND parent, const Look& look, PanelHost& host);

}  // namespace tarnwell
