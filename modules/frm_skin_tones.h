#pragma once

#include <array>
#include <string>

#include "modules/frm_modules.h"
#include "modules/skin_tone_list.h"

namespace tarnwell {

struct Module1;
struct Platform;

// The window "Manage Skin Tones": edits a copy of the panel's list and gives it back on OK.
struct frmSkinTones {
  static constexpr const char* kTitle = "Manage Skin Tones";

  bool visible = false;
  bool awaits_colour = false;  // hidden while a colour is picked from the photo
  SkinTones list;
  std::string description;
  std::array<std::string, 3> fields = {"0", "0", "0"};  // "Red", "Green", "Blue", as typed
  Rgb swatch = {0, 0, 0};                               // "Color": the last three numbers
};

enum SkinToneButton : int { kAdd = 0, kReplace = 1, kDelete = 2, kMoveDown = 3, kMoveUp = 4 };
inline constexpr std::array<const char*, 5> kSkinToneButtons = {"&Add", "&Replace", "&Delete",
                                                                "Move Down", "&Move Up"};
inline constexpr const char* kGetColorCaption = "&Get Color from Photo >";

// Shows the window with a copy of the panel's list, nothing selected. One that is open, or waits
// for a colour, keeps its edits.
void OpenSkinTones(frmSkinTones& window, const SkinTones& tones);

// A click on a list entry: shows its name and colour in the fields.
void SkinToneList_Click(const Module1& app, Platform& platform, frmSkinTones& window, int index);

// The text of colour field 0 to 2 changed. Numbers outside 0 to 255 become the nearest bound; a
// text that is no number is told and keeps the swatch as it was.
void ColourField_Change(const Module1& app, Platform& platform, frmSkinTones& window, int field,
                        const std::string& text);

// One of the five buttons beside the list. Adding and replacing want three numbers; every button
// but Add wants a selected entry. Otherwise the user is told and nothing changes. An entry at the
// end of the list does not move beyond it; the selection goes with a moved entry.
void SkinToneButton_Click(const Module1& app, Platform& platform, frmSkinTones& window,
                          SkinToneButton button);

// Gives the list to the panel, saves it and closes the window.
void SkinTonesOk(const Module1& app, Platform& platform, frmSkinTones& window, frmModules& panel);

void SkinTonesCancel(frmSkinTones& window);

// Hides the window, its edits kept, and opens the zoom window to pick a colour from the photo. It
// awaits the colour until one is picked or the zoom window closes.
void GetColorFromPhoto(frmSkinTones& window, frmModules& panel);

// The way back from the zoom window: shows the window again with the picked colour in its fields.
void TakeColorFromPhoto(frmSkinTones& window, const Rgb& colour);
// Shows a window that awaits a colour again, as it was; nothing otherwise.
void StopAwaitingColour(frmSkinTones& window);

}  // namespace tarnwell
