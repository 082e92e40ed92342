#pragma once

#include "ui/look/panel_layout.h"
#include "ui/panel_parts.h"

namespace tarnwell {

// Makes the controls of a row of the panel.
PanelParts MakeRow(HWND parent, const Look& look, PanelHost& host, const PanelRow& row);

}  // namespace tarnwell
