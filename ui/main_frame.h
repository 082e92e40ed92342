#pragma once

#include <memory>
#include <string>
#include <vector>

#include "shell/main_view.h"
#include "shell/main_window.h"
#include "ui/buttons.h"
#include "ui/frame_window.h"
#include "ui/histogram_control.h"
#include "ui/look/main_layout.h"
#include "ui/main_menus.h"
#include "ui/panel_view.h"
#include "ui/preview_control.h"

namespace tarnwell {

class AutoWindow;
class AutoWindows;
class OtherWindows;

// The main window: menus, tools, photo, module panel, status bar. It passes events to the main
// window's model and draws the model's state.
class MainFrame : public FrameWindow, public MainView {
 public:
  MainFrame();
  ~MainFrame() override;

  // What comes up beside the main window.
  struct Beside {
    OtherWindows& others;
    AutoWindows& auto_windows;
    AutoWindow& automated;
  };
  // Makes the window, hidden. `window` refers to this view; all live until the program ends.
  void Create(MainWindow& window, const Beside& beside);
  void Open();  // shows it and starts its timers

  // The shortcut of a menu row was pressed; true when there is one.
  bool Shortcut(const char* shortcut);
  void KeyboardUsed(bool used);

  void Refresh() override;
  void ShowStatus(const std::string& text) override;
  void ShowTipsWindow(int tip, bool asked_for) override;
  bool IsTipsWindowShown() const override;
  void MaximizeModules() override;
  void ShowOpenMode() override;
  void ShowAbout() override;
  void StartAutomatedMode() override;
  void EndAutomatedMode() override;
  void ShowAutomatedSetup() override;
  std::optional<int> ChooseMenuRow(int menu) override;
  Status OpenHelp(const std::string& help_file) override;
  Status OpenWebPage(const std::string& address) override;
  Status MakeQuickLaunchShortcut() override;
  void Close() override;
  // Drawing ends with the window, and its procedure was never replaced.
  void ReleaseDrawing() override {}
  void RestoreWindowProcedure() override {}
  void UnloadOtherWindows() override;
  void RemoveTrayIcon() override;

 protected:
  void LayOut(const Box& client) override;
  void PaintClient(Painter& painter, const Box& client) override;
  void OnDismiss() override;
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  struct Tool {
    int index;  // ToolButtonIndex
    std::unique_ptr<Button> button;
  };

  void AddTool(std::vector<Tool>& tools, int index, ButtonKind kind, std::optional<Glyph> glyph,
               bool text_shown);
  void MakeTools();
  void MakeActions();
  void MakePanel();
  void LayOutTools(const Box& row);
  void LayOutActions(const Box& row);
  void UpdateTools(std::vector<Tool>& tools);
  POINT BelowTool(int index) const;
  void OpenDropped();
  void Poll();
  void OnTimer(WPARAM timer);
  void PlaceStatus();
  void RunCommand(const std::function<void()>& change, bool refresh);
  void RefreshPhoto();
  void FollowPanel();
  void TellState();
  void CorrectPreview();

  MainWindow* window_ = nullptr;
  OtherWindows* others_ = nullptr;
  AutoWindows* auto_windows_ = nullptr;
  AutoWindow* automated_ = nullptr;
  MainLayout layout_;
  MainMenus menus_;
  std::vector<Tool> tools_;
  std::vector<Tool> actions_;
  std::unique_ptr<Button> compare_;
  std::unique_ptr<Label> lblTitle_;
  std::unique_ptr<Label> status_;
  std::unique_ptr<Label> profile_;
  std::unique_ptr<PreviewControl> preview_;
  std::unique_ptr<HistogramControl> histogram_;
  std::unique_ptr<PanelView> panel_;
  std::wstring dropped_;  // the photo that was dropped last and is not open yet
  bool preview_took_long_ = false;
};

}  // namespace tarnwell
