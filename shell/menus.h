#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace tarnwell {

struct Form1;
struct MainWindow;

enum MenuNumber : int {
  kFileMenu = 0,
  kEditMenu = 1,
  kOptionsMenu = 2,
  kToolsMenu = 3,
  kHelpMenu = 4
};
inline constexpr int kMenuCount = 5;

inline constexpr std::string_view kSeparator = "--";

// What a row works on; without it the row is disabled.
enum class Needs { kNothing, kPhoto, kPhotoFile };

// A row of a drop-down menu. Rows are numbered from 0, separators included.
struct MenuRow {
  std::string_view caption;        // UTF-8; kSeparator for a line
  std::string_view shortcut = {};  // as shown at the right, "ALT+O" or "F1"; empty for none
  Needs needs = Needs::kNothing;
  bool power_toy = false;  // in the menu only while the power-toys menu is on

  bool IsSeparator() const { return caption == kSeparator; }
};

struct Menu {
  std::string_view caption;
  std::span<const MenuRow> rows;
};
extern const std::array<Menu, kMenuCount> kMenus;

// The row's data; null for a menu or row that does not exist.
const MenuRow* FindRow(int menu, int row);

// Whether the row is in its menu now. The power toys come and go while the program runs, whatever
// the box about them says.
bool IsRowShown(const Form1& form, int menu, int row);

// Whether the row can be chosen now. False for separators and rows that do not exist.
bool IsRowEnabled(const Form1& form, int menu, int row);

// Whether the row carries a check mark now.
bool IsRowChecked(const MainWindow& window, int menu, int row);

struct RowPosition {
  int menu = 0;
  int row = 0;
  bool operator==(const RowPosition&) const = default;
};

// The row that a keyboard shortcut, spelled as in the rows, stands for.
std::optional<RowPosition> RowOfShortcut(std::string_view shortcut);

// Whether what a command needs is there.
bool IsThere(const Form1& form, Needs needs);

}  // namespace tarnwell
