#include "ui/fields.h"

namespace tarnwell {

void MakeHiddenLabel(HWND parent, const std::wstring& name) {
  CreateWindowExW(0, L"STATIC", name.c_str(), WS_CHILD, 0, 0, 0, 0, parent, nullptr,
                  GetModuleHandleW(nullptr), nullptr);
}

HWND MakeField(HWND parent, int id, const std::wstring& name) {
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  MakeHiddenLabel(parent, name);
  return CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, 0, 0,
                         0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), instance,
                         nullptr);
}

void PlaceField(HWND field, const Look& look, const Box& box) {
  const int height = TextSize(look, Face::kBody, L"Ag").cy;
  const Box inner = {box.x + look.Px(kGrid), box.y + (box.height - height) / 2,
                     box.width - 2 * look.Px(kGrid), height};
  SetWindowPos(field, nullptr, inner.x, inner.y, inner.width, inner.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void PaintFieldFrame(Painter& painter, HWND field, const Box& box) {
  const Theme& theme = painter.theme();
  const double radius = painter.look().scale.Exact(5);
  painter.Round(box, radius, theme.card);
  const bool focus = GetFocus() == field;
  painter.Outline(box, radius, focus ? painter.look().scale.Exact(2) : 1,
                  focus ? theme.accent : theme.control_border);
}

std::wstring TextOf(HWND field) {
  std::wstring text(GetWindowTextLengthW(field), L'\0');
  GetWindowTextW(field, text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

}  // namespace tarnwell
