#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <windows.h>

#include "platform/tray.h"
#include "ui/look.h"
#include "ui/window.h"

namespace tarnwell {

// The program's icon in the notification area, and the hidden window that hears of clicks on it.
// When the taskbar is made anew the icon is shown again as it was.
class HostTray : public Window, public Tray {
 public:
  HostTray() : look_(StartScale()) {}
  ~HostTray() override;

  void Create();

  std::function<void(POINT)> menu_wanted = [](POINT) {};  // at a point of the screen
  std::function<void()> selected = [] {};                 // a click, Enter
  std::function<void()> double_clicked = [] {};

  // As it looks now, for a menu over the icon.
  const Look& FreshLook();

  void SetIcon(TrayPicture picture) override;
  void SetTip(const std::string& tip) override;
  void Remove() override;

 protected:
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  struct IconDeleter {
    void operator()(HICON icon) const { DestroyIcon(icon); }
  };
  using OwnedIcon = std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter>;

  void Send();
  void Clicked(UINT event);

  Look look_;
  UINT taskbar_created_ = 0;
  bool shown_ = false;
  bool removed_ = false;
  std::optional<TrayPicture> picture_;
  OwnedIcon icon_;
  std::string tip_;
};

}  // namespace tarnwell
