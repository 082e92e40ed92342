#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "shell/main_view.h"
#include "shell/main_window.h"
#include "shell/tips.h"
#include "tests/support/pictures.h"
#include "tests/support/test_window.h"

namespace tarnwell {

// A view that writes down what it is asked for. Refreshes are counted apart: they come with
// everything.
class RecordingView : public MainView {
 public:
  std::vector<std::string> log;
  int refreshes = 0;
  bool tips_shown = false;
  std::optional<int> menu_choice;
  Status outcome;                      // of help, web page and shortcut
  std::function<void()> on_open_mode;  // plays the user in the dialog
  std::function<void()> on_unload;

  void Refresh() override { ++refreshes; }
  void ShowStatus(const std::string& text) override { log.push_back("status " + text); }
  void ShowTipsWindow(int tip, bool) override { log.push_back("tip " + std::to_string(tip)); }
  bool IsTipsWindowShown() const override { return tips_shown; }
  void MaximizeModules() override { log.push_back("modules"); }
  void ShowOpenMode() override {
    log.push_back("open mode");
    if (on_open_mode) on_open_mode();
  }
  void ShowAbout() override { log.push_back("about"); }
  void StartAutomatedMode() override { log.push_back("automated mode"); }
  void EndAutomatedMode() override { log.push_back("automated mode ends"); }
  void ShowAutomatedSetup() override { log.push_back("automated setup"); }
  std::optional<int> ChooseMenuRow(int menu) override {
    log.push_back("menu " + std::to_string(menu));
    return menu_choice;
  }
  Status OpenHelp(const std::string& help_file) override { return Try("help " + help_file); }
  Status OpenWebPage(const std::string& address) override { return Try("web " + address); }
  Status MakeQuickLaunchShortcut() override { return Try("shortcut"); }
  void Close() override { log.push_back("close"); }
  void ReleaseDrawing() override { log.push_back("release drawing"); }
  void RestoreWindowProcedure() override { log.push_back("restore procedure"); }
  void UnloadOtherWindows() override {
    log.push_back("unload windows");
    if (on_unload) on_unload();
  }
  void RemoveTrayIcon() override { log.push_back("remove tray icon"); }

 private:
  Status Try(const std::string& what) {
    log.push_back(what);
    return outcome;
  }
};

// A whole main window whose view writes down what it is asked for. Tips are connected.
struct MainDesk : TestWindow {
  using TestWindow::TestWindow;

  RecordingView view;
  Tips tips_wanted;
  MainWindow window{.form = form, .view = view, .tips = tips_wanted};
  std::vector<ZoomMode> zooms;

  void Connect() {
    ConnectTips(window);
    modules.ShowZoom = [this](ZoomMode mode) { zooms.push_back(mode); };
  }

  // Puts a photo of 400 x 300 pixels into the window, large enough to have a smaller preview. It
  // has the path `current_file` where that is given.
  Picture ShowLargePhoto(const std::string& current_file = {}) {
    const Picture photo = NoisyPicture(400, 300, 7);
    Show(photo);
    app.current_file = current_file;
    view.log.clear();
    return photo;
  }
};

// The pixels of two pictures are the same.
inline bool SamePixels(const Picture& a, const Picture& b) {
  if (!a || !b || a->width() != b->width() || a->height() != b->height()) return false;
  const PixelView left = a->view();
  const PixelView right = b->view();
  return std::equal(left.data, left.data + left.byte_count(), right.data);
}

}  // namespace tarnwell
