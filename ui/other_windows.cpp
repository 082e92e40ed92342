#include "ui/other_windows.h"

#include <initializer_list>
#include <utility>

#include "engine/adjust_photo.h"
#include "modules/open_mode.h"
#include "modules/white_balance.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/main_view.h"
#include "shell/main_window.h"
#include "shell/module1.h"
#include "shell/power_toys.h"
#include "ui/about_window.h"
#include "ui/frame_window.h"
#include "ui/host_dialogs.h"
#include "ui/messages.h"
#include "ui/modal_window.h"
#include "ui/progress_window.h"
#include "ui/skin_tones_window.h"
#include "ui/tips_window.h"
#include "ui/wide_text.h"
#include "ui/zoom_window.h"

namespace tarnwell {
namespace {

constexpr char kPhotoFilter[] = "Image Files (*.bmp; *.gif; *.jpg)|*.bmp;*.gif;*.jpg;*.jpeg";

}  // namespace

OtherWindows::OtherWindows(MainWindow& window, Messages& messages)
    : window_(window), messages_(messages), events_(messages, window) {}
OtherWindows::~OtherWindows() = default;

void OtherWindows::Attach(const FrameWindow& main_window) {
  main_window_ = main_window.handle();
  main_look_ = &main_window.look();
  Form1& form = window_.form;
  progress_ = std::make_unique<ProgressBox>(form.progress, form.app.cancel_requested, events_);
  progress_->Create(main_window_);
  form.progress.view = progress_.get();
}

template <typename Kind, typename... Parts>
Kind& OtherWindows::Made(std::unique_ptr<Kind>& window, Parts&&... parts) {
  if (!window) {
    window = std::make_unique<Kind>(std::forward<Parts>(parts)...);
    window->ShowFocus(main_look_->show_focus);
  }
  return *window;
}

void OtherWindows::ShowTip(int tip, bool asked_for) {
  Made(tips_, main_window_, window_.tips).Open(tip, asked_for);
}

bool OtherWindows::IsTipShown() const { return tips_ && IsWindowVisible(tips_->handle()); }

void OtherWindows::ShowAbout() {
  Form1& form = window_.form;
  const auto toggle = [&form] { TogglePowerToys(form.app, form.platform); };
  Made(about_, main_window_, form.app.power_toys, toggle).Open();
}

void OtherWindows::ShowOpenMode() {
  frmOpenMode model(window_.form.app);
  std::vector<std::wstring> captions;
  for (const char* caption : kOpenModeCaptions) captions.push_back(Wide(caption));
  ChoiceWindow dialog(main_window_, L"Photo Open Mode", L"When a photo is opened:", captions,
                      model.selected);
  if (!dialog.Run(messages_, main_window_)) return;
  model.selected = dialog.chosen();
  model.OkClicked(window_.form.app);
}

void OtherWindows::ShowZoom(ZoomMode mode) {
  Form1& form = window_.form;
  ZoomWindow& zoom = Made(
      zoom_, main_window_,
      ZoomWindow::Models{zoom_model_, form.modules, skin_tones_model_, events_, form.metadata});
  zoom.closed = [this](bool picked) {
    if (skin_tones_ && skin_tones_model_.visible) skin_tones_->Update();
    window_.view.Refresh();
    if (picked) panel_changed();
  };
  OpenZoom(zoom_model_, mode, PhotoForZoom(mode));
  zoom.Open();
}

// A colour is picked from the photo as it was taken.
const Picture& OtherWindows::PhotoForZoom(ZoomMode mode) const {
  const PhotoSurfaces& surfaces = window_.form.buffer.surfaces;
  return mode == ZoomMode::kViewOnly ? surfaces.picSource.picture : surfaces.picOriginal.picture;
}

Status OtherWindows::CorrectPreviewQuietly() {
  const Messages::Hold hold(messages_);
  frmProgress& progress = window_.form.progress;
  progress.view = nullptr;
  Status status = CorrectPreviewAnew(window_.form);
  progress.view = progress_.get();
  return status;
}

void OtherWindows::ManageSkinTones() {
  Form1& form = window_.form;
  SkinTonesWindow& manager = Made(skin_tones_, main_window_, skin_tones_model_, form);
  manager.closed = [this] { window_.view.Refresh(); };
  if (zoom_ && skin_tones_model_.awaits_colour) zoom_->Dismiss();
  OpenSkinTones(skin_tones_model_, form.modules.skin_tones);
  manager.Update();
}

void OtherWindows::SaveWhiteBalance() {
  Form1& form = window_.form;
  frmWhiteBalnc model;
  ChoiceWindow dialog(main_window_, L"Save White Balance Setting", Wide(frmWhiteBalnc::kQuestion),
                      {Wide(frmWhiteBalnc::kCustomChoice), Wide(frmWhiteBalnc::kDefaultChoice)},
                      model.default_chosen ? 1 : 0);
  const bool confirmed = dialog.Run(messages_, main_window_);
  model.default_chosen = dialog.chosen() == 1;
  if (confirmed) {
    WhiteBalncOk(model);
  } else {
    WhiteBalncCancel(model);
  }
  SaveWhiteBalanceSetting(form.app, form.platform, form.modules, model);
}

std::vector<std::string> OtherWindows::ChoosePhotos(const std::string& title) {
  return ChooseOpenFiles(main_window_, title, kPhotoFilter);
}

std::vector<bool> OtherWindows::CheckEntries(const std::string& title, const std::string& text,
                                             const std::vector<std::string>& entries) {
  std::vector<std::wstring> captions;
  for (const std::string& entry : entries) captions.push_back(AsCaption(Wide(entry)));
  CheckListWindow dialog(main_window_, Wide(title), Wide(text), captions);
  if (!dialog.Run(messages_, main_window_)) return {};
  return dialog.checked();
}

std::string OtherWindows::AskText(const std::string& title, const std::string& prompt) {
  TextWindow dialog(main_window_, Wide(title), Wide(prompt));
  if (!dialog.Run(messages_, main_window_)) return {};
  return Narrow(dialog.text());
}

void OtherWindows::ShowFocus(bool show) {
  const std::initializer_list<FrameWindow*> windows = {progress_.get(), tips_.get(), about_.get(),
                                                       zoom_.get(), skin_tones_.get()};
  for (FrameWindow* window : windows) {
    if (window) window->ShowFocus(show);
  }
}

void OtherWindows::Refresh() {
  // What the zoom window shows must be the photo in the main one.
  if (zoom_model_.visible && !ShowInZoom(zoom_model_, PhotoForZoom(zoom_model_.mode))) {
    zoom_->Dismiss();
  }
  if (zoom_) zoom_->Invalidate();
  if (about_) about_->Invalidate();
}

void OtherWindows::CloseAll() {
  tips_.reset();
  about_.reset();
  zoom_.reset();
  skin_tones_.reset();
  window_.form.progress.view = nullptr;
  progress_.reset();
}

}  // namespace tarnwell
