#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "deadpixels/dead_pixel_commands.h"
#include "ui/control.h"
#include "ui/look/panel_layout.h"

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

// A control of a row, where it lies, and how it learns that the settings have changed.
struct PanelPart {
  std::unique_ptr<Control> control;
  std::function<Box(const Box& row)> place;
  std::function<void()> update = [] {};
};

// Makes the controls of a row of the panel, in the order of the Tab key.
std::vector<PanelPart> MakeRow(HWND parent, const Look& look, PanelHost& host, const PanelRow& row);

}  // namespace tarnwell
