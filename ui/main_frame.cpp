#include "ui/main_frame.h"

#include <algorithm>
#include <shellapi.h>
#include <utility>
#include <windowsx.h>

#include "automation/auto_window.h"
#include "engine/adjust_photo.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/menu_click.h"
#include "shell/module1.h"
#include "shell/photo_from_outside.h"
#include "shell/preview_follow.h"
#include "shell/shut_down.h"
#include "shell/status_text.h"
#include "shell/tell.h"
#include "shell/timers.h"
#include "shell/tips.h"
#include "shell/tool_button.h"
#include "ui/auto_windows.h"
#include "ui/other_windows.h"
#include "ui/shell_links.h"
#include "ui/wide_text.h"
#include "ui/window_place.h"

namespace tarnwell {
namespace {

constexpr UINT_PTR kTimer1 = 1;
constexpr UINT_PTR kTimer2 = 2;
// The preview follows the panel: at once while that is quick, else when the user pauses.
constexpr UINT_PTR kFollowTimer = 4;
constexpr UINT kFollowMilliseconds = 15;
constexpr UINT kPauseMilliseconds = 400;
constexpr ULONGLONG kLongMilliseconds = 100;

std::wstring FirstDropped(HDROP drop) {
  std::wstring path(DragQueryFileW(drop, 0, nullptr, 0), L'\0');
  DragQueryFileW(drop, 0, path.data(), static_cast<UINT>(path.size()) + 1);
  DragFinish(drop);
  return path;
}

}  // namespace

MainFrame::MainFrame() : menus_(look_) {}
MainFrame::~MainFrame() = default;

void MainFrame::Create(MainWindow& window, const Beside& beside) {
  window_ = &window;
  others_ = &beside.others;
  others_->panel_changed = [this] { FollowPanel(); };
  auto_windows_ = &beside.auto_windows;
  automated_ = &beside.automated;
  const ClientSize start = StartClientSize({96});
  MakeTop(kMainClass, Wide(window.form.app.title), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, nullptr,
          start.width, start.height);
  menus_.Create(handle(), window);
  MakeTools();

  lblTitle_ = std::make_unique<Label>(look_, Ground::kPage, Face::kTitle, false, DT_CENTER);
  lblTitle_->Create(handle(), L"");
  preview_ =
      std::make_unique<PreviewControl>(look_, window.form.buffer.surfaces, window.form.metadata);
  preview_->open_wanted = [this] { picToolBtn_Click(*window_, kOpenButton); };
  preview_->Create(handle());
  MakeActions();
  histogram_ = std::make_unique<HistogramControl>(look_, window.form);
  histogram_->Create(handle());
  MakePanel();
  status_ = std::make_unique<Label>(look_, Ground::kCard, Face::kCaption, true);
  status_->Create(handle(), L"");
  profile_ = std::make_unique<Label>(look_, Ground::kCard, Face::kCaption, true, DT_RIGHT);
  profile_->Create(handle(), L"");
  DragAcceptFiles(handle(), TRUE);
}

void MainFrame::AddTool(std::vector<Tool>& tools, int index, ButtonKind kind,
                        std::optional<Glyph> glyph, bool text_shown) {
  const Ground ground = &tools == &tools_ ? Ground::kCard : Ground::kPage;
  auto button = std::make_unique<Button>(look_, ground, kind, glyph);
  button->clicked = [this, index] {
    picToolBtn_Click(*window_, index);
    if (index == kDefaultsButton || index == kOpenPresetButton) FollowPanel();
  };
  button->Create(handle(), Wide(kToolButtons[index].caption), text_shown);
  button->SetTip(Wide(kToolButtons[index].tooltip));
  tools.push_back({index, std::move(button)});
}

void MainFrame::MakeTools() {
  AddTool(tools_, kOpenButton, ButtonKind::kFlat, Glyph::kOpen, true);
  AddTool(tools_, kSaveButton, ButtonKind::kFlat, Glyph::kSave, true);
  AddTool(tools_, kRestoreButton, ButtonKind::kFlat, Glyph::kRestore, true);
  AddTool(tools_, kDefaultsButton, ButtonKind::kFlat, Glyph::kDefaults, false);
  AddTool(tools_, kOpenPresetButton, ButtonKind::kFlat, Glyph::kPresetOpen, false);
  AddTool(tools_, kSavePresetButton, ButtonKind::kFlat, Glyph::kPresetSave, false);
  AddTool(tools_, kModulesButton, ButtonKind::kFlat, Glyph::kPanel, false);
  AddTool(tools_, kOptionsButton, ButtonKind::kFlat, Glyph::kOptions, false);
  AddTool(tools_, kTipsButton, ButtonKind::kFlat, Glyph::kTips, false);
  AddTool(tools_, kHelpButton, ButtonKind::kFlat, Glyph::kHelp, false);
}

void MainFrame::MakeActions() {
  AddTool(actions_, kPreviewButton, ButtonKind::kAccent, Glyph::kPreview, true);
  AddTool(actions_, kAdjustButton, ButtonKind::kPlain, Glyph::kAdjust, true);
  AddTool(actions_, kZoomButton, ButtonKind::kPlain, Glyph::kZoom, false);
  compare_ = std::make_unique<Button>(look_, Ground::kPage, ButtonKind::kPlain, Glyph::kCompare);
  compare_->holding = [this](bool held) { preview_->ShowOriginal(held); };
  compare_->Create(handle(), L"Before and after", /*text_shown=*/false);
  compare_->SetTip(L"Hold to see the photo before its correction");
}

void MainFrame::MakePanel() {
  panel_ = std::make_unique<PanelView>(
      look_, PanelHost{
                 .form = window_->form,
                 .command = [this](const auto& change) { RunCommand(change, true); },
                 .small_change = [this](const auto& change) { RunCommand(change, false); },
                 .manage_skin_tones = [this] { others_->ManageSkinTones(); },
                 .save_white_balance = [this] { others_->SaveWhiteBalance(); },
                 .module_toggled = [this](int module) { OfferModuleTip(*window_, module); },
                 .choose_shots = [this](const auto& title) { return others_->ChoosePhotos(title); },
                 .check_entries =
                     [this](const auto& title, const auto& text, const auto& entries) {
                       return others_->CheckEntries(title, text, entries);
                     },
             });
  panel_->Create(handle());
}

void MainFrame::RunCommand(const std::function<void()>& change, bool refresh) {
  if (IsOccupied(*window_)) return;
  {
    const Occupied occupied(*window_);
    TellLackOfMemory(window_->form, change);
  }
  if (refresh) {
    Refresh();
  } else {
    histogram_->Update();
  }
  FollowPanel();
}

void MainFrame::FollowPanel() {
  if (!PreviewFollowsPanel(window_->form)) return TellState();
  const bool slow = preview_took_long_ || IsPreviewSlow(window_->form);
  SetTimer(handle(), kFollowTimer, slow ? kPauseMilliseconds : kFollowMilliseconds, nullptr);
}

// What was corrected with other settings than the panel's says so.
void MainFrame::TellState() {
  status_->SetText(Wide(StatusText(window_->form)));
  PlaceStatus();
}

void MainFrame::CorrectPreview() {
  Form1& form = window_->form;
  const bool slow = preview_took_long_ || IsPreviewSlow(form);
  // A slider that is held would be let go by the progress window.
  if (slow && GetCapture()) return;
  if (IsOccupied(*window_)) return;
  KillTimer(handle(), kFollowTimer);
  if (!PreviewFollowsPanel(form)) return;
  const Occupied occupied(*window_);
  const ULONGLONG start = GetTickCount64();
  TellLackOfMemory(form, [&] {
    TellFailure(form, slow ? CorrectPreviewAnew(form) : others_->CorrectPreviewQuietly());
  });
  preview_took_long_ = GetTickCount64() - start > kLongMilliseconds;
  RefreshPhoto();
}

void MainFrame::Open() {
  RestorePlacement(handle(), window_->form.memory.placement);
  Refresh();
  ShowWindow(handle(), window_->form.memory.placement.maximized ? SW_SHOWMAXIMIZED : SW_SHOW);
  SetForegroundWindow(handle());
  SetFocus(tools_.front().button->handle());
  SetTimer(handle(), kTimer1, static_cast<UINT>(window_->timer1_interval), nullptr);
  SetTimer(handle(), kTimer2, kPollingMilliseconds, nullptr);
}

void MainFrame::KeyboardUsed(bool used) {
  ShowFocus(used);
  others_->ShowFocus(used);
  auto_windows_->ShowFocus(used);
}

bool MainFrame::Shortcut(const char* shortcut) { return PressShortcut(*window_, shortcut); }

std::optional<int> MainFrame::ChooseMenuRow(int menu) {
  return menus_.ChooseRow(menu, BelowTool(kOptionsButton));
}

POINT MainFrame::BelowTool(int index) const {
  RECT rect = {};
  for (const Tool& tool : tools_) {
    if (tool.index == index) GetWindowRect(tool.button->handle(), &rect);
  }
  return {rect.left, rect.bottom + look_.Px(2)};
}

void MainFrame::UpdateTools(std::vector<Tool>& tools) {
  for (Tool& tool : tools) tool.button->Enable(IsButtonEnabled(window_->form, tool.index));
}

void MainFrame::Refresh() {
  RefreshPhoto();
  panel_->Update();
  others_->Refresh();
}

void MainFrame::RefreshPhoto() {
  const Form1& form = window_->form;
  SetText(Wide(form.caption.empty() ? form.app.title : form.caption));
  const bool photo = form.buffer.surfaces.picOriginal.picture != nullptr;
  lblTitle_->SetText(Wide(ShownPhotoName(form)));
  const std::wstring title = lblTitle_->Text();
  const bool cut = TextSize(look_, Face::kTitle, title).cx > layout_.title.width;
  lblTitle_->SetTip(cut ? title : L"");
  UpdateTools(tools_);
  UpdateTools(actions_);
  compare_->Enable(photo);
  preview_->Update();
  histogram_->Update();
  profile_->SetText(Wide(form.modules.camera + " / " + form.modules.mode));
  TellState();
}

void MainFrame::ShowStatus(const std::string& text) {
  status_->SetText(Wide(text));
  UpdateWindow(status_->handle());
}

void MainFrame::ShowTipsWindow(int tip, bool asked_for) { others_->ShowTip(tip, asked_for); }
bool MainFrame::IsTipsWindowShown() const { return others_->IsTipShown(); }
// The panel is as tall as the window.
void MainFrame::MaximizeModules() {
  if (!IsZoomed(handle())) FillHeight();
  KeyboardUsed(true);
  panel_->TakeFocus();
}
void MainFrame::ShowOpenMode() { others_->ShowOpenMode(); }
void MainFrame::ShowAbout() { others_->ShowAbout(); }
void MainFrame::StartAutomatedMode() { automated_->Start(); }
void MainFrame::EndAutomatedMode() { automated_->End(); }
void MainFrame::ShowAutomatedSetup() { automated_->ShowSetup(); }

Status MainFrame::OpenHelp(const std::string& help_file) {
  return OpenHelpFile(window_->form.platform.files, help_file);
}

Status MainFrame::OpenWebPage(const std::string& address) { return OpenInBrowser(address); }
Status MainFrame::MakeQuickLaunchShortcut() { return MakeShortcutInQuickLaunch(); }

void MainFrame::Close() { PostMessageW(handle(), WM_CLOSE, 0, 0); }
void MainFrame::UnloadOtherWindows() {
  auto_windows_->CloseAll();
  others_->CloseAll();
}
void MainFrame::RemoveTrayIcon() { automated_->RemoveIcon(); }

void MainFrame::OnDismiss() {
  KeepPlacement(handle(), window_->form.memory.placement);
  if (!CloseMainWindow(*window_)) return;
  KillTimer(handle(), kTimer1);
  KillTimer(handle(), kTimer2);
  Show(false);
  PostQuitMessage(0);
}

void MainFrame::LayOut(const Box& client) {
  if (!profile_) return;
  layout_ = LayOutMain(client.width, client.height, look_.scale);
  menus_.LayOut(layout_.menus);
  LayOutTools(layout_.tools);
  lblTitle_->Place(layout_.title);
  preview_->Place(layout_.preview);
  LayOutActions(layout_.actions);
  histogram_->Show(layout_.histogram_visible);
  histogram_->Place(layout_.histogram);
  panel_->Place(layout_.panel);
  PlaceStatus();
  Invalidate();
}

// Camera and mode take what they need, at most half; the rest is for what is going on.
void MainFrame::PlaceStatus() {
  const Box status = Inset(layout_.status, Px(2 * kGrid), Px(2));
  const int wanted = TextSize(look_, Face::kCaption, profile_->Text()).cx + Px(kGrid);
  const int right = std::min(wanted, status.width / 2);
  const int left = status.width - right;
  status_->Place({status.x, status.y, left, status.height});
  profile_->Place({status.x + left, status.y, right, status.height});
  const std::wstring text = status_->Text();
  status_->SetTip(TextSize(look_, Face::kCaption, text).cx > left ? text : L"");
}

void MainFrame::LayOutTools(const Box& row) {
  // Three with their text, three for the settings, then those for the program at the right end.
  const std::vector<int> widths = {88, 84, 100, 0, 40, 40, 40};
  const Scale across = ScaleAcross(row.width, look_.scale);
  const Box inner = Inset(row, across.Px(kGrid), Px(4));
  const std::vector<Box> left = LayOutRow(inner, widths, 4, across);
  std::size_t tool = 0;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (!left[i].empty()) tools_[tool++].button->Place(left[i]);
  }
  int x = inner.right();
  for (std::size_t i = tools_.size(); i-- > tool;) {
    x -= across.Px(40);
    tools_[i].button->Place({x, inner.y, across.Px(40), inner.height});
    x -= across.Px(4);
  }
}

void MainFrame::LayOutActions(const Box& row) {
  const std::vector<Box> boxes =
      LayOutRow(row, {112, 104, 40, 40}, kGrid, ScaleAcross(Client().width, look_.scale));
  for (std::size_t i = 0; i < actions_.size(); ++i) actions_[i].button->Place(boxes[i]);
  compare_->Place(boxes.back());
}

void MainFrame::PaintClient(Painter& painter, const Box& client) {
  painter.Fill(client, theme().page);
  const Box top = {0, 0, client.width, layout_.tools.bottom()};
  painter.Fill(top, theme().card);
  painter.Fill({0, top.bottom() - 1, client.width, 1}, theme().border);
  painter.Fill(layout_.status, theme().card);
  painter.Fill({0, layout_.status.y, client.width, 1}, theme().border);
}

// A photo that is dropped during a command waits for its end.
void MainFrame::OpenDropped() {
  if (dropped_.empty() || IsOccupied(*window_)) return;
  const std::wstring path = std::exchange(dropped_, {});
  OpenFromOutside(*window_, [&path] { return Narrow(path); });
  FollowPanel();
}

// Another instance may have handed over a photo while this window was out of the way.
void MainFrame::Poll() {
  const bool opened = Timer2_Tick(*window_);
  const bool seen = IsWindowVisible(handle()) && !IsIconic(handle());
  if (opened && !seen) auto_windows_->ShowMainWindow();
  OpenDropped();
}

void MainFrame::OnTimer(WPARAM timer) {
  if (timer == kTimer1) Timer1_Tick(*window_);
  if (timer == kTimer1 && window_->timer1_interval == 0) KillTimer(handle(), kTimer1);
  if (timer == kTimer2) Poll();
  if (timer == kFollowTimer) CorrectPreview();
  if (timer == kAutoModeTimer) automated_->Tick();
}

LRESULT MainFrame::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_TIMER:
      OnTimer(w);
      return 0;
    case WM_DROPFILES:
      dropped_ = FirstDropped(reinterpret_cast<HDROP>(w));
      OpenDropped();
      return 0;
    case WM_MOUSEWHEEL: {
      POINT point = {GET_X_LPARAM(l), GET_Y_LPARAM(l)};
      ScreenToClient(handle(), &point);
      if (layout_.panel.Contains(point.x, point.y)) panel_->Wheel(GET_WHEEL_DELTA_WPARAM(w));
      return 0;
    }
    case WM_GETMINMAXINFO: {
      const SIZE least = FrameWithin(WorkArea(handle()), LeastClientSize(look_.scale),
                                     WS_OVERLAPPEDWINDOW, look_.scale);
      reinterpret_cast<MINMAXINFO*>(l)->ptMinTrackSize = {least.cx, least.cy};
      return 0;
    }
    case WM_SYSCOMMAND:
      // ALT or F10 alone; ALT and the space bar belong to the system.
      if ((w & 0xFFF0) != SC_KEYMENU || l != 0) break;
      KeyboardUsed(true);
      menus_.ToggleFocus();
      return 0;
    case WM_COMMAND:
      // Esc closes the windows beside this one; here it only leaves the menus.
      menus_.Leave();
      return 0;
    case WM_QUERYENDSESSION:
      return MayEndSession(*window_);
    case WM_ENDSESSION:
      if (!w) return 0;
      KeepPlacement(handle(), window_->form.memory.placement);
      EndSession(*window_);
      return 0;
  }
  return FrameWindow::Handle(message, w, l);
}

}  // namespace tarnwell
