// What a screen reader hears of a window.
#pragma once

#include <oleacc.h>
#include <string>
#include <windows.h>

namespace tarnwell {

struct Heard {
  std::wstring name;
  std::wstring value;
  LONG role = 0;
  LONG state = 0;
};

inline std::wstring TakeText(BSTR text) {
  const std::wstring taken = text ? text : L"";
  SysFreeString(text);
  return taken;
}

// Components must have been initialised. Nothing is heard of a window that does not answer.
inline Heard HearOf(HWND window) {
  Heard heard;
  IAccessible* object = nullptr;
  if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                        __uuidof(IAccessible),
                                        reinterpret_cast<void**>(&object)))) {
    return heard;
  }
  VARIANT self = {}, role = {}, state = {};
  self.vt = VT_I4;
  BSTR name = nullptr, value = nullptr;
  if (SUCCEEDED(object->get_accName(self, &name))) heard.name = TakeText(name);
  if (SUCCEEDED(object->get_accValue(self, &value))) heard.value = TakeText(value);
  if (SUCCEEDED(object->get_accRole(self, &role))) heard.role = role.lVal;
  if (SUCCEEDED(object->get_accState(self, &state))) heard.state = state.lVal;
  object->Release();
  return heard;
}

}  // namespace tarnwell
