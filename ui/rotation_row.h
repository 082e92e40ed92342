#pragma once

#include "ui/panel_parts.h"

namespace tarnwell {

// The row of the panel with a button for each way to turn the finished photo.
PanelParts MakeRotationRow(HWND parent, const Look& look, PanelHost& host);

}  // namespace tarnwell
