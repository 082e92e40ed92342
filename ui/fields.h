#pragma once

#include <string>
#include <windows.h>

#include "ui/painter.h"

namespace tarnwell {

// Names the system's own control that is made next: screen readers read the label before it.
void MakeHiddenLabel(HWND parent, const std::wstring& name);

// A text field of the system inside a frame that the window around it draws. `name` goes before it
// as a hidden label, which screen readers read.
HWND MakeField(HWND parent, int id, const std::wstring& name);

// The field within its frame `box`.
void PlaceField(HWND field, const Look& look, const Box& box);
void PaintFieldFrame(Painter& painter, HWND field, const Box& box);

std::wstring TextOf(HWND field);

}  // namespace tarnwell
