#pragma once

#include "ui/panel_parts.h"

namespace tarnwell {

// The rows of the panel that choose a white: where the reference comes from, its files, skin tones.
PanelParts MakeWhiteModesRow(HWND parent, const Look& look, PanelHost& host);
PanelParts MakeWhiteCommandsRow(HWND parent, const Look& look, PanelHost& host);
PanelParts MakeSkinToneRow(HWND parent, const Look& look, PanelHost& host);

}  // namespace tarnwell
