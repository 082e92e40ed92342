#include "ui/skin_tones_window.h"

#include "modules/skin_tones.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "ui/fields.h"
#include "ui/wide_text.h"

namespace tarnwell {
namespace {

constexpr int kWidth = 70 * kGrid;
constexpr int kHeight = 52 * kGrid;
constexpr int kMargin = 3 * kGrid;
constexpr int kCaptionHeight = 20;
constexpr int kFieldHeight = 4 * kGrid;
constexpr int kButtonWidth = 15 * kGrid;
constexpr int kEntryHeight = 4 * kGrid;

constexpr int kListId = 101;
constexpr int kDescriptionId = 102;
constexpr int kFirstColourId = 103;
constexpr std::array<const wchar_t*, 3> kColourNames = {L"Red", L"Green", L"Blue"};

Colour ColourOf(const std::string& tone) {
  const Rgb colour = ColourOfTone(tone);
  return {static_cast<std::uint8_t>(colour.red), static_cast<std::uint8_t>(colour.green),
          static_cast<std::uint8_t>(colour.blue)};
}

}  // namespace

SkinTonesWindow::SkinTonesWindow(HWND owner, frmSkinTones& model, Form1& form)
    : model_(model), form_(form), swatch_(look_) {
  MakeDialog(Wide(frmSkinTones::kTitle), owner, kWidth, kHeight);
  MakeHiddenLabel(handle(), L"Skin tones");
  list_ =
      CreateWindowExW(0, L"LISTBOX", L"Skin tones",
                      WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY |
                          LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT,
                      0, 0, 0, 0, handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(kListId)),
                      GetModuleHandleW(nullptr), nullptr);
  Dress(list_);
  description_ = MakeField(handle(), kDescriptionId, L"Description");
  Dress(description_);
  for (int i = 0; i < 3; ++i) {
    colours_[i] = MakeField(handle(), kFirstColourId + i, kColourNames[i]);
    Dress(colours_[i]);
  }
  swatch_.Create(handle(), L"Color");
  MakeButtons();
  LayOut(Client());
}

void SkinTonesWindow::MakeButtons() {
  for (int i = 0; i < static_cast<int>(kSkinToneButtons.size()); ++i) {
    auto button = std::make_unique<Button>(look_, Ground::kPage, ButtonKind::kPlain);
    button->clicked = [this, i] {
      SkinToneButton_Click(form_.app, form_.platform, model_, static_cast<SkinToneButton>(i));
      ShowList();
      ShowFields();
    };
    button->Create(handle(), Wide(kSkinToneButtons[i]));
    edits_.push_back(std::move(button));
  }
  pick_ = std::make_unique<Button>(look_, Ground::kCard, ButtonKind::kPlain);
  pick_->clicked = [this] {
    GetColorFromPhoto(model_, form_.modules);
    Update();
  };
  pick_->Create(handle(), Wide(kGetColorCaption));
  ok_ = std::make_unique<Button>(look_, Ground::kCard, ButtonKind::kAccent);
  ok_->clicked = [this] { OnConfirm(); };
  ok_->Create(handle(), L"&OK");
  cancel_ = std::make_unique<Button>(look_, Ground::kCard, ButtonKind::kPlain);
  cancel_->clicked = [this] { OnDismiss(); };
  cancel_->Create(handle(), L"&Cancel");
}

void SkinTonesWindow::Update() {
  if (model_.visible) {
    pick_->Enable(form_.buffer.surfaces.picOriginal.picture != nullptr);
    ShowList();
    ShowFields();
    if (!IsWindowVisible(handle())) ShowCentred();
    SetForegroundWindow(handle());
    SetFocus(list_);
    return;
  }
  if (!IsWindowVisible(handle())) return;
  Show(false);
  closed();
}

void SkinTonesWindow::ShowList() {
  SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
  SendMessageW(list_, LB_RESETCONTENT, 0, 0);
  for (const std::string& name : model_.list.names) {
    SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(name).c_str()));
  }
  SendMessageW(list_, LB_SETCURSEL, model_.list.selected, 0);
  SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(list_, nullptr, TRUE);
}

void SkinTonesWindow::ShowFields() {
  showing_ = true;
  const auto show = [](HWND field, const std::string& text) {
    const std::wstring wide = Wide(text);
    if (TextOf(field) != wide) SetWindowTextW(field, wide.c_str());
  };
  show(description_, model_.description);
  for (int i = 0; i < 3; ++i) show(colours_[i], model_.fields[i]);
  swatch_.SetColour(model_.swatch);
  showing_ = false;
}

void SkinTonesWindow::FieldChanged(int field) {
  if (showing_) return;
  ColourField_Change(form_.app, form_.platform, model_, field, Narrow(TextOf(colours_[field])));
  ShowFields();
}

void SkinTonesWindow::OnConfirm() {
  SkinTonesOk(form_.app, form_.platform, model_, form_.modules);
  Update();
}

void SkinTonesWindow::OnDismiss() {
  SkinTonesCancel(model_);
  Update();
}

void SkinTonesWindow::LayOut(const Box& client) {
  if (!cancel_) return;
  const int margin = Px(kMargin);
  const int gap = Px(kGrid);
  const int foot = client.height - Px(kFootHeight);
  const int right = client.width - margin - Px(kButtonWidth);
  const int list_bottom = foot - margin - 2 * Px(kCaptionHeight + kFieldHeight + kGrid) - gap;
  list_box_ = {margin, margin, right - margin - gap, list_bottom - margin};
  const Box list = Inset(list_box_, Px(2), Px(2));
  SetWindowPos(list_, nullptr, list.x, list.y, list.width, list.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
  SendMessageW(list_, LB_SETITEMHEIGHT, 0, Px(kEntryHeight));
  int y = margin;
  for (const auto& edit : edits_) {
    edit->Place({right, y, Px(kButtonWidth), Px(kFieldHeight)});
    y += Px(kFieldHeight) + gap;
  }
  const int first = list_bottom + gap + Px(kCaptionHeight);
  description_box_ = {margin, first, client.width - 2 * margin, Px(kFieldHeight)};
  PlaceField(description_, look_, description_box_);
  const int second = description_box_.bottom() + gap + Px(kCaptionHeight);
  const int width = Px(10 * kGrid);
  for (int i = 0; i < 3; ++i) {
    colour_boxes_[i] = {margin + i * (width + gap), second, width, Px(kFieldHeight)};
    PlaceField(colours_[i], look_, colour_boxes_[i]);
  }
  swatch_.Place({margin + 3 * (width + gap) + gap, second, width, Px(kFieldHeight)});
  const int top = foot + Px(12);
  pick_->Place({margin, top, Px(25 * kGrid), Px(kFieldHeight)});
  const int button = Px(11 * kGrid);
  cancel_->Place({client.width - margin - button, top, button, Px(kFieldHeight)});
  ok_->Place({client.width - margin - 2 * button - gap, top, button, Px(kFieldHeight)});
}

void SkinTonesWindow::PaintClient(Painter& painter, const Box& client) {
  PaintWithFoot(painter, client);
  const auto caption = [&](const Box& field, const wchar_t* text) {
    painter.Text({field.x, field.y - Px(kCaptionHeight), field.width, Px(kCaptionHeight)}, text,
                 Face::kCaption, theme().quiet);
  };
  PaintFieldFrame(painter, list_, list_box_);
  PaintFieldFrame(painter, description_, description_box_);
  caption(description_box_, L"Description");
  for (int i = 0; i < 3; ++i) {
    PaintFieldFrame(painter, colours_[i], colour_boxes_[i]);
    caption(colour_boxes_[i], kColourNames[i]);
  }
  Box swatch = colour_boxes_[2];
  swatch.x = swatch.right() + 2 * Px(kGrid);
  caption(swatch, L"Color");
}

void SkinTonesWindow::DrawEntry(const DRAWITEMSTRUCT& item) {
  const Box row = ToBox(item.rcItem);
  Painter painter(item.hDC, row, look_);
  painter.Fill(row, theme().card);
  if (item.itemID >= model_.list.names.size()) return;
  if (item.itemState & ODS_SELECTED) {
    painter.Round(Inset(row, Px(2), Px(1)), look_.scale.Exact(4),
                  Mix(theme().card, theme().accent, 0.22));
  }
  const int side = Px(18);
  const Box patch = {row.x + Px(kGrid), row.y + (row.height - side) / 2, side, side};
  painter.Round(patch, look_.scale.Exact(4), ColourOf(model_.list.colours[item.itemID]));
  painter.Outline(patch, look_.scale.Exact(4), 1, theme().control_border);
  const int left = patch.right() + Px(10);
  painter.Text({left, row.y, row.right() - left, row.height}, Wide(model_.list.names[item.itemID]),
               Face::kBody, theme().text, DT_LEFT | DT_NOPREFIX);
}

LRESULT SkinTonesWindow::Handle(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_DRAWITEM) {
    DrawEntry(*reinterpret_cast<DRAWITEMSTRUCT*>(l));
    return TRUE;
  }
  if (message == WM_COMMAND) {
    const int id = LOWORD(w);
    const int code = HIWORD(w);
    if (id == kListId && code == LBN_SELCHANGE) {
      const auto selected = static_cast<int>(SendMessageW(list_, LB_GETCURSEL, 0, 0));
      SkinToneList_Click(form_.app, form_.platform, model_, selected);
      ShowFields();
    }
    if (id == kDescriptionId && code == EN_CHANGE && !showing_) {
      model_.description = Narrow(TextOf(description_));
    }
    if (code == EN_CHANGE && id >= kFirstColourId && id < kFirstColourId + 3) {
      FieldChanged(id - kFirstColourId);
    }
    const bool of_list = code == LBN_SETFOCUS || code == LBN_KILLFOCUS;
    if (code == EN_SETFOCUS || code == EN_KILLFOCUS || of_list) Invalidate();
  }
  return FrameWindow::Handle(message, w, l);
}

}  // namespace tarnwell
