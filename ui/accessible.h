#pragma once

#include <memory>
#include <oleacc.h>
#include <optional>
#include <string>
#include <windows.h>

namespace tarnwell {

// What a screen reader is told about a drawn control beside its name, which is the window's text.
// The control keeps it up to date.
struct AccessibleFacts {
  DWORD role = ROLE_SYSTEM_CLIENT;  // a ROLE_SYSTEM_ constant
  std::wstring value;               // "42"
  std::wstring description;         // what it is for
  std::optional<bool> checked;      // of what can be on and off
};

// The answer to WM_GETOBJECT for such a control; nothing when another object is asked for.
std::optional<LRESULT> AnswerGetObject(HWND control, const std::shared_ptr<AccessibleFacts>& facts,
                                       WPARAM w, LPARAM l);

}  // namespace tarnwell
