#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "deadpixels/dead_pixel_commands.h"
#include "ui/control.h"

namespace tarnwell {

struct Form1;

// What the panel asks of the window around it.
struct PanelHost {
  Form1& form;
  // Runs a change of the settings as a command of the program (nothing happens while another one
  // runs), and shows everything anew after it.
  std::function<void(const std::function<void()>&)> command;
  // The same for a change that only one control shows, many times a second.
  std::function<void(const std::function<void()>&)> small_change;
  std::function<void()> manage_skin_tones;
  std::function<void()> save_white_balance;
  std::function<void(int module)> module_toggled;
  ChooseShots choose_shots;
  CheckEntries check_entries;
};

// A control of a row of the panel, where it lies, and how it learns that the settings have changed.
struct PanelPart {
  std::unique_ptr<Control> control;
  std::function<Box(const Box& row)> place;
  std::function<void()> update = [] {};
};

// The controls of a row, in the order of the Tab key.
using PanelParts = std::vector<PanelPart>;

inline constexpr int kPartGap = kGrid;  // between two controls side by side, at 96 dpi

// The caption of a field, over it.
PanelPart MakeCaption(HWND parent, const Look& look, const std::wstring& text);

// The place of a field under its caption, as wide as the row less `button_width` (at 96 dpi) at its
// right, and that of a button there.
std::function<Box(const Box&)> FieldPlace(const Look& look, int button_width);
std::function<Box(const Box&)> ButtonPlace(const Look& look, int button_width);

PanelPart MakeTextButton(HWND parent, const Look& look, const std::wstring& name,
                         std::function<void()> clicked, std::function<Box(const Box&)> place);

// Two buttons that fill a row, the first with `share` percent of it. What they run are commands of
// the program.
struct RowCommand {
  const wchar_t* name;
  std::function<void()> run;
};
PanelParts MakeCommands(HWND parent, const Look& look, PanelHost& host, int share,
                        const RowCommand& first, const RowCommand& second);

}  // namespace tarnwell
