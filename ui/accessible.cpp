// The identifiers of the accessibility service are defined here.
#include "ui/accessible.h"

#include <initguid.h>
#include <wrl/client.h>

namespace tarnwell {
namespace {

using Microsoft::WRL::ComPtr;

ComPtr<IAccPropServices> Services() {
  ComPtr<IAccPropServices> services;
  CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                   &services);
  return services;
}

}  // namespace

void SetRole(HWND control, DWORD role) {
  const ComPtr<IAccPropServices> services = Services();
  if (!services) return;
  VARIANT value = {};
  value.vt = VT_I4;
  value.lVal = static_cast<LONG>(role);
  services->SetHwndProp(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_ROLE,
                        value);
}

void SetAccessibleValue(HWND control, const std::wstring& value) {
  const ComPtr<IAccPropServices> services = Services();
  if (!services) return;
  services->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                           PROPID_ACC_VALUE, value.c_str());
  NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, control, OBJID_CLIENT, CHILDID_SELF);
}

void ClearAccessible(HWND control) {
  const ComPtr<IAccPropServices> services = Services();
  if (!services) return;
  const MSAAPROPID properties[] = {PROPID_ACC_ROLE, PROPID_ACC_VALUE};
  services->ClearHwndProps(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, properties, 2);
}

}  // namespace tarnwell
