#pragma once

namespace tarnwell {

struct Form1;
struct MainWindow;

// What the program finds again at its start, before the window is shown, in this order: the power
// toys, the folders of camera and mode "Default", the skin tones, the last-used settings, camera
// and mode. What a damaged file holds from its first bad line on keeps its default; the user is
// told which file and line.
void LoadStartState(Form1& form);

// The same, and which tips the user wants to see.
void LoadWindowState(MainWindow& window);

// The last step of it: selects the camera and mode that the panel names if their folders are still
// there; a mode that is gone is replaced by "Default", a camera that is gone by "Default" as well.
// A picked white pixel and a custom white balance file stay in force, the file if it still exists.
void SelectStartProfile(Form1& form);

}  // namespace tarnwell
