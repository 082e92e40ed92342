#pragma once

#include <string>

namespace tarnwell {

// The pictures of the icon in the notification area: at rest, and the fast-forward symbol.
enum class TrayPicture { kIdle, kBusy };

// The program's icon in the notification area of the taskbar. Hosts keep picture and tip, so that
// they can show the icon again after the taskbar has been restarted.
class Tray {
 public:
  virtual ~Tray() = default;

  // Shows the icon, or changes its picture.
  virtual void SetIcon(TrayPicture picture) = 0;
  // What the icon says when the mouse rests on it; UTF-8, at most 127 characters.
  virtual void SetTip(const std::string& tip) = 0;
  // Takes the icon away for good: nothing shows it again.
  virtual void Remove() = 0;
};

}  // namespace tarnwell
