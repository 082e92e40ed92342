#include "ui/popup_menu.h"

#include <cwctype>

#include "ui/painter.h"
#include "ui/window.h"

namespace tarnwell {
namespace {

constexpr int kRowHeight = 4 * kGrid;
constexpr int kLineHeight = kGrid + 1;
constexpr int kMarkWidth = 4 * kGrid;  // left of the text, for the check mark
constexpr int kShortcutGap = 4 * kGrid;
constexpr int kRightMargin = 2 * kGrid;

// Measures and draws the rows while the menu is open.
class MenuOwner : public Window {
 public:
  MenuOwner(HWND owner, const Look& look, const std::vector<MenuEntry>& entries, int least_width)
      : look_(look), entries_(entries), least_width_(least_width) {
    Make(kChildClass, L"", WS_CHILD, 0, owner, {});
  }

 protected:
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override {
    if (message == WM_MEASUREITEM) {
      Measure(*reinterpret_cast<MEASUREITEMSTRUCT*>(l));
      return TRUE;
    }
    if (message == WM_DRAWITEM) {
      Draw(*reinterpret_cast<DRAWITEMSTRUCT*>(l));
      return TRUE;
    }
    if (message == WM_MENUSELECT) {
      selected_ = HIWORD(w) == 0xFFFF ? -1 : static_cast<int>(LOWORD(w)) - 1;
      return 0;
    }
    if (message == WM_MENUCHAR) return FindLetter(static_cast<wchar_t>(LOWORD(w)));
    return Window::Handle(message, w, l);
  }

 private:
  // Entries are drawn by the program, so the system knows none of their letters. One that is the
  // only one of its letter is chosen at once, several are gone through.
  LRESULT FindLetter(wchar_t letter) const {
    std::vector<int> found;
    const int count = static_cast<int>(entries_.size());
    for (int i = 1; i <= count; ++i) {
      const int at = (std::max(selected_, -1) + i) % count;
      const MenuEntry& entry = entries_[at];
      if (!entry.enabled || entry.text.empty()) continue;
      if (std::towupper(entry.text.front()) == std::towupper(letter)) found.push_back(at);
    }
    if (found.empty()) return MAKELRESULT(0, MNC_IGNORE);
    return MAKELRESULT(found.front(), found.size() == 1 ? MNC_EXECUTE : MNC_SELECT);
  }

  void Measure(MEASUREITEMSTRUCT& item) {
    const MenuEntry& entry = entries_[item.itemData];
    item.itemHeight = look_.Px(entry.separator ? kLineHeight : kRowHeight);
    int width = TextSize(look_, Face::kBody, entry.text).cx + look_.Px(kMarkWidth + kRightMargin);
    if (!entry.shortcut.empty()) {
      width += look_.Px(kShortcutGap) + TextSize(look_, Face::kBody, entry.shortcut).cx;
    }
    // The system adds room for a check mark of its own.
    const int own_mark = GetSystemMetrics(SM_CXMENUCHECK);
    item.itemWidth = std::max(width, least_width_) - own_mark;
  }

  void Draw(const DRAWITEMSTRUCT& item) {
    const MenuEntry& entry = entries_[item.itemData];
    const Box row = ToBox(item.rcItem);
    const Theme& theme = look_.theme;
    Painter painter(item.hDC, row, look_);
    painter.Fill(row, theme.card);
    if (entry.separator) {
      painter.Fill({row.x, row.y + row.height / 2, row.width, 1}, theme.border);
      return;
    }
    if ((item.itemState & ODS_SELECTED) && entry.enabled) {
      painter.Round(Inset(row, look_.Px(4), look_.Px(1)), look_.scale.Exact(4), theme.hover);
    }
    const Colour text = entry.enabled ? theme.text : theme.disabled;
    const int mark = look_.Px(16);
    if (entry.checked) {
      painter.Icon({row.x + look_.Px(10), row.y + (row.height - mark) / 2, mark, mark},
                   Glyph::kCheck, theme.accent);
    }
    const Box inner = {row.x + look_.Px(kMarkWidth), row.y,
                       row.width - look_.Px(kMarkWidth + kRightMargin), row.height};
    painter.Text(inner, entry.text, Face::kBody, text, DT_LEFT | DT_NOPREFIX);
    painter.Text(inner, entry.shortcut, Face::kBody, entry.enabled ? theme.quiet : text,
                 DT_RIGHT | DT_NOPREFIX);
  }

  const Look& look_;
  const std::vector<MenuEntry>& entries_;
  int least_width_;
  int selected_ = -1;
};

// Watches the messages of the open menu for what leads to another one. The system calls a plain
// function without a word of its own, so the one that is open is kept here; menus do not nest.
class MenuWatch {
 public:
  explicit MenuWatch(const MenuNeighbours* neighbours) : neighbours_(neighbours) {
    GetCursorPos(&pointer_);
    if (!neighbours) return;
    open_ = this;
    hook_ = SetWindowsHookExW(WH_MSGFILTER, Filter, nullptr, GetCurrentThreadId());
  }
  ~MenuWatch() {
    if (hook_) UnhookWindowsHookEx(hook_);
    open_ = nullptr;
  }
  MenuWatch(const MenuWatch&) = delete;
  MenuWatch& operator=(const MenuWatch&) = delete;

  std::optional<int> wanted() const { return wanted_; }

 private:
  static LRESULT CALLBACK Filter(int code, WPARAM w, LPARAM l) {
    if (code == MSGF_MENU && open_ && open_->Takes(*reinterpret_cast<MSG*>(l))) return TRUE;
    return CallNextHookEx(nullptr, code, w, l);
  }

  bool Takes(const MSG& message) {
    switch (message.message) {
      case WM_KEYDOWN:
        if (message.wParam != VK_LEFT && message.wParam != VK_RIGHT) return false;
        return Leave(neighbours_->beside(message.wParam == VK_LEFT ? -1 : 1));
      case WM_MOUSEMOVE: {
        // The system tells a move when the menu appears under a pointer that rests.
        if (message.pt.x == pointer_.x && message.pt.y == pointer_.y) return false;
        pointer_ = message.pt;
        const std::optional<int> under = neighbours_->under(message.pt);
        return under && Leave(*under);
      }
      case WM_LBUTTONDOWN:
        return neighbours_->is_own(message.pt) && Leave(std::nullopt);
      default:
        return false;
    }
  }

  bool Leave(std::optional<int> wanted) {
    wanted_ = wanted;
    EndMenu();
    return true;
  }

  inline static MenuWatch* open_ = nullptr;
  const MenuNeighbours* neighbours_;
  HHOOK hook_ = nullptr;
  POINT pointer_ = {};
  std::optional<int> wanted_;
};

void AddEntry(HMENU menu, int index, const MenuEntry& entry) {
  MENUITEMINFOW item = {};
  item.cbSize = sizeof(item);
  item.fMask = MIIM_FTYPE | MIIM_ID | MIIM_DATA | MIIM_STATE | MIIM_STRING;
  item.fType = MFT_OWNERDRAW | (entry.separator ? MFT_SEPARATOR : 0);
  item.fState =
      (entry.enabled ? MFS_ENABLED : MFS_DISABLED) | (entry.checked ? MFS_CHECKED : MFS_UNCHECKED);
  item.wID = index + 1;
  item.dwItemData = index;
  item.dwTypeData = const_cast<wchar_t*>(entry.text.c_str());
  InsertMenuItemW(menu, index, TRUE, &item);
}

}  // namespace

MenuAnswer ChooseFromMenu(HWND owner, const Look& look, const std::vector<MenuEntry>& entries,
                          POINT at, int least_width, bool by_keyboard,
                          const MenuNeighbours* neighbours) {
  MenuOwner drawer(owner, look, entries, least_width);
  const HMENU menu = CreatePopupMenu();
  for (int i = 0; i < static_cast<int>(entries.size()); ++i) AddEntry(menu, i, entries[i]);
  const HBRUSH ground = CreateSolidBrush(ToColorRef(look.theme.card));
  MENUINFO info = {};
  info.cbSize = sizeof(info);
  info.fMask = MIM_BACKGROUND;
  info.hbrBack = ground;
  SetMenuInfo(menu, &info);
  // The menu finds this waiting when it opens.
  if (by_keyboard) PostMessageW(drawer.handle(), WM_KEYDOWN, VK_DOWN, 0);
  const MenuWatch watch(neighbours);
  const int chosen = TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN, at.x,
                                      at.y, drawer.handle(), nullptr);
  DestroyMenu(menu);
  DeleteObject(ground);
  MenuAnswer answer;
  answer.other_menu = watch.wanted();
  if (chosen > 0) answer.chosen = chosen - 1;
  return answer;
}

}  // namespace tarnwell
