#pragma once

#include <objbase.h>
#include <string>
#include <wincodec.h>
#include <windows.h>
#include <wrl/client.h>

#include "platform/status.h"

namespace tarnwell {

using Microsoft::WRL::ComPtr;

// COM for the calling thread while it lives. A thread that has chosen another apartment before (the
// user-interface thread) keeps that; the imaging components work in either.
class ComApartment {
 public:
  ComApartment() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {}
  ~ComApartment() {
    if (entered_) CoUninitialize();
  }
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;

 private:
  bool entered_;
};

// The factory of the imaging components. Call within a ComApartment that outlives the factory.
HRESULT MakeImagingFactory(ComPtr<IWICImagingFactory>& factory);

// The failure for an error of the imaging components, as "FILE: reason".
Status StatusOfImagingError(const std::string& path, HRESULT error);

}  // namespace tarnwell
