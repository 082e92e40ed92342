#include "ui/auto_setup_window.h"

#include "ui/fields.h"
#include "ui/wide_text.h"

namespace tarnwell {
namespace {

constexpr int kWidth = 64 * kGrid;
constexpr int kExplanationHeight = 8 * kGrid;
constexpr int kLabelHeight = 3 * kGrid;
constexpr int kFieldHeight = 4 * kGrid;
constexpr int kRowHeight = kLabelHeight + kFieldHeight + kGrid;
constexpr int kBrowseWidth = 12 * kGrid;
constexpr int kFirstFieldId = 100;

}  // namespace

AutoSetupWindow::AutoSetupWindow(HWND owner, frmAutoSetup& setup, Dialogs& dialogs)
    : setup_(setup), dialogs_(dialogs), explanation_(look_, Ground::kPage, Face::kBody, true) {
  CreateModal(L"Setup Automated Mode", owner, kWidth,
              kExplanationHeight + 3 * kRowHeight + 4 * kGrid);
  explanation_.SetWrapped(true);
  explanation_.Create(handle(), Wide(frmAutoSetup::kExplanation));
  for (int i = 0; i < 3; ++i) {
    const std::wstring name = Wide(frmAutoSetup::kLabels[i]);
    Row& row = rows_[i];
    row.label = std::make_unique<Label>(look_, Ground::kPage, Face::kBody);
    row.label->Create(handle(), name);
    row.field = MakeField(handle(), kFirstFieldId + i, name);
    Dress(row.field);
    SetWindowTextW(row.field, Wide(setup_.Text1[i]).c_str());
    row.browse = std::make_unique<Button>(look_, Ground::kPage, ButtonKind::kPlain);
    row.browse->clicked = [this, i] { Browse(i); };
    row.browse->Create(handle(), L"Browse...");
  }
}

void AutoSetupWindow::TakeFields() {
  for (int i = 0; i < 3; ++i) setup_.Text1[i] = Narrow(TextOf(rows_[i].field));
}

void AutoSetupWindow::Browse(int row) {
  TakeFields();
  setup_.BrowseClicked(row, dialogs_);
  SetWindowTextW(rows_[row].field, Wide(setup_.Text1[row]).c_str());
}

void AutoSetupWindow::LayOutContent(const Box& content) {
  explanation_.Place({content.x, content.y, content.width, Px(kExplanationHeight)});
  int y = content.y + Px(kExplanationHeight);
  const int browse = Px(kBrowseWidth);
  for (Row& row : rows_) {
    row.label->Place({content.x, y, content.width, Px(kLabelHeight)});
    const int top = y + Px(kLabelHeight);
    row.field_box = {content.x, top, content.width - browse - Px(kGrid), Px(kFieldHeight)};
    PlaceField(row.field, look_, row.field_box);
    row.browse->Place({content.right() - browse, top, browse, Px(kFieldHeight)});
    y += Px(kRowHeight);
  }
}

void AutoSetupWindow::PaintClient(Painter& painter, const Box& client) {
  ModalWindow::PaintClient(painter, client);
  for (const Row& row : rows_) PaintFieldFrame(painter, row.field, row.field_box);
}

LRESULT AutoSetupWindow::Handle(UINT message, WPARAM w, LPARAM l) {
  const bool focus = HIWORD(w) == EN_SETFOCUS || HIWORD(w) == EN_KILLFOCUS;
  if (message == WM_COMMAND && focus) Invalidate();
  return ModalWindow::Handle(message, w, l);
}

}  // namespace tarnwell
