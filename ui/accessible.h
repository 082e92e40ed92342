#pragma once

#include <oleacc.h>
#include <string>
#include <windows.h>

namespace tarnwell {

// Tells screen readers what a drawn control is (a ROLE_SYSTEM_ constant); its name is the window's
// text. Without the system's service nothing happens.
void SetRole(HWND control, DWORD role);

// Its value ("42", "on"), whenever that changes.
void SetAccessibleValue(HWND control, const std::wstring& value);

// Forgets both, before the window goes.
void ClearAccessible(HWND control);

}  // namespace tarnwell
