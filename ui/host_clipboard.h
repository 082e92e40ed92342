#pragma once

#include <windows.h>

#include "platform/clipboard.h"

namespace tarnwell {

// The system's clipboard, opened in the name of the main window.
class HostClipboard : public Clipboard {
 public:
  HWND owner = nullptr;
  bool SetPicture(const PixelView& picture) override;
  Picture GetPicture() override;
};

}  // namespace tarnwell
