#include "ui/accessible.h"

#include <utility>
#include <wrl/client.h>

// Objects of components end by Release; their interfaces have no destructor on purpose.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace tarnwell {
namespace {

using Microsoft::WRL::ComPtr;

bool IsSelf(const VARIANT& child) { return child.vt == VT_I4 && child.lVal == CHILDID_SELF; }

HRESULT GiveText(const std::wstring& text, BSTR* out) {
  *out = text.empty() ? nullptr : SysAllocString(text.c_str());
  return *out ? S_OK : S_FALSE;
}

void GiveNumber(LONG number, VARIANT* out) {
  out->vt = VT_I4;
  out->lVal = number;
}

// The system's own object for the window, with the facts of the control in place of what the system
// cannot know.
class AccessibleControl : public IAccessible {
 public:
  AccessibleControl(HWND control, std::shared_ptr<const AccessibleFacts> facts,
                    ComPtr<IAccessible> standard)
      : control_(control), facts_(std::move(facts)), standard_(std::move(standard)) {}
  virtual ~AccessibleControl() = default;

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    const bool known =
        id == __uuidof(IUnknown) || id == __uuidof(IDispatch) || id == __uuidof(IAccessible);
    *out = known ? static_cast<IAccessible*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
  }
  STDMETHODIMP_(ULONG) Release() override {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override {
    if (!IsSelf(child)) return standard_->get_accRole(child, role);
    GiveNumber(static_cast<LONG>(facts_->role), role);
    return S_OK;
  }
  STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override {
    if (!IsSelf(child)) return standard_->get_accValue(child, value);
    return GiveText(facts_->value, value);
  }
  STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) override {
    if (!IsSelf(child)) return standard_->get_accDescription(child, description);
    return GiveText(facts_->description, description);
  }
  STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override {
    const HRESULT known = standard_->get_accState(child, state);
    if (FAILED(known) || !IsSelf(child) || state->vt != VT_I4) return known;
    if (facts_->checked == true) state->lVal |= STATE_SYSTEM_CHECKED;
    return known;
  }
  STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override {
    if (!IsSelf(child)) return standard_->get_accDefaultAction(child, action);
    return GiveText(Action(), action);
  }
  STDMETHODIMP accDoDefaultAction(VARIANT child) override {
    if (!IsSelf(child) || Action().empty()) return DISP_E_MEMBERNOTFOUND;
    return PostMessageW(control_, BM_CLICK, 0, 0) ? S_OK : E_FAIL;
  }

  // Everything else is as the system says.
  STDMETHODIMP GetTypeInfoCount(UINT* count) override { return standard_->GetTypeInfoCount(count); }
  STDMETHODIMP GetTypeInfo(UINT info, LCID locale, ITypeInfo** out) override {
    return standard_->GetTypeInfo(info, locale, out);
  }
  STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* out) override {
    return standard_->GetIDsOfNames(id, names, count, locale, out);
  }
  STDMETHODIMP Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception, UINT* wrong) override {
    return standard_->Invoke(member, id, locale, flags, parameters, result, exception, wrong);
  }
  STDMETHODIMP get_accParent(IDispatch** parent) override {
    return standard_->get_accParent(parent);
  }
  STDMETHODIMP get_accChildCount(LONG* count) override {
    return standard_->get_accChildCount(count);
  }
  STDMETHODIMP get_accChild(VARIANT child, IDispatch** out) override {
    return standard_->get_accChild(child, out);
  }
  STDMETHODIMP get_accName(VARIANT child, BSTR* name) override {
    return standard_->get_accName(child, name);
  }
  STDMETHODIMP get_accHelp(VARIANT child, BSTR* help) override {
    return standard_->get_accHelp(child, help);
  }
  STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
    return standard_->get_accHelpTopic(file, child, topic);
  }
  STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override {
    return standard_->get_accKeyboardShortcut(child, shortcut);
  }
  STDMETHODIMP get_accFocus(VARIANT* child) override { return standard_->get_accFocus(child); }
  STDMETHODIMP get_accSelection(VARIANT* children) override {
    return standard_->get_accSelection(children);
  }
  STDMETHODIMP accSelect(LONG flags, VARIANT child) override {
    return standard_->accSelect(flags, child);
  }
  STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                           VARIANT child) override {
    return standard_->accLocation(left, top, width, height, child);
  }
  STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
    return standard_->accNavigate(direction, start, end);
  }
  STDMETHODIMP accHitTest(LONG left, LONG top, VARIANT* child) override {
    return standard_->accHitTest(left, top, child);
  }
  STDMETHODIMP put_accName(VARIANT child, BSTR name) override {
    return standard_->put_accName(child, name);
  }
  STDMETHODIMP put_accValue(VARIANT child, BSTR value) override {
    return standard_->put_accValue(child, value);
  }

 private:
  std::wstring Action() const {
    switch (facts_->role) {
      case ROLE_SYSTEM_PUSHBUTTON:
      case ROLE_SYSTEM_RADIOBUTTON:
        return L"Press";
      case ROLE_SYSTEM_CHECKBUTTON:
        return facts_->checked == true ? L"Uncheck" : L"Check";
      case ROLE_SYSTEM_COMBOBOX:
        return L"Open";
      default:
        return {};
    }
  }

  HWND control_;
  std::shared_ptr<const AccessibleFacts> facts_;
  ComPtr<IAccessible> standard_;
  LONG references_ = 0;
};

}  // namespace

std::optional<LRESULT> AnswerGetObject(HWND control, const std::shared_ptr<AccessibleFacts>& facts,
                                       WPARAM w, LPARAM l) {
  if (static_cast<LONG>(l) != OBJID_CLIENT) return std::nullopt;
  ComPtr<IAccessible> standard;
  if (FAILED(CreateStdAccessibleObject(control, OBJID_CLIENT, __uuidof(IAccessible),
                                       reinterpret_cast<void**>(standard.GetAddressOf())))) {
    return std::nullopt;
  }
  const ComPtr<IAccessible> object = new AccessibleControl(control, facts, standard);
  return LresultFromObject(__uuidof(IAccessible), w, object.Get());
}

}  // namespace tarnwell
