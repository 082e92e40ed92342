#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>
#include <windows.h>

#include "modules/frm_skin_tones.h"
#include "modules/frm_zoom.h"
#include "platform/status.h"
#include "shell/occupying.h"
#include "ui/look.h"

namespace tarnwell {

class Messages;
class ProgressBox;
struct MainWindow;

class AboutWindow;
class FrameWindow;
class SkinTonesWindow;
class TipsWindow;
class ZoomWindow;

// The windows beside the main one. Each is made when it is first wanted.
class OtherWindows {
 public:
  OtherWindows(MainWindow& window, Messages& messages);
  ~OtherWindows();
  OtherWindows(const OtherWindows&) = delete;
  OtherWindows& operator=(const OtherWindows&) = delete;

  // A setting of the panel came from one of the windows.
  std::function<void()> panel_changed = [] {};

  // Makes the progress window over `main_window` and lets the correction show itself there. Windows
  // that are made later begin with the main one's look.
  void Attach(const FrameWindow& main_window);

  void ShowTip(int tip, bool asked_for);
  bool IsTipShown() const;
  void ShowAbout();
  void ShowOpenMode();
  void ShowZoom(ZoomMode mode);
  void ManageSkinTones();
  void SaveWhiteBalance();  // asks where to, then saves
  std::vector<std::string> ChoosePhotos(const std::string& title);
  // One answer per entry, all of them on at first; none when the user cancels.
  std::vector<bool> CheckEntries(const std::string& title, const std::string& text,
                                 const std::vector<std::string>& entries);
  // Corrects the preview without a progress window and without letting events in.
  Status CorrectPreviewQuietly();
  std::string AskText(const std::string& title, const std::string& prompt);

  void ShowFocus(bool show);  // in all of them
  void Refresh();             // what shows settings that may have changed
  void CloseAll();

 private:
  // The window, made from `parts` if it is not there yet.
  template <typename Kind, typename... Parts>
  Kind& Made(std::unique_ptr<Kind>& window, Parts&&... parts);
  const Picture& PhotoForZoom(ZoomMode mode) const;
  MainWindow& window_;
  Messages& messages_;
  OccupyingEvents events_;
  HWND main_window_ = nullptr;
  const Look* main_look_ = nullptr;
  frmZoom zoom_model_;
  frmSkinTones skin_tones_model_;
  std::unique_ptr<ProgressBox> progress_;
  std::unique_ptr<TipsWindow> tips_;
  std::unique_ptr<AboutWindow> about_;
  std::unique_ptr<ZoomWindow> zoom_;
  std::unique_ptr<SkinTonesWindow> skin_tones_;
};

}  // namespace tarnwell
