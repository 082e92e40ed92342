#include "platform/win32/wic.h"

namespace tarnwell {

HRESULT MakeImagingFactory(ComPtr<IWICImagingFactory>& factory) {
  return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                          IID_PPV_ARGS(factory.ReleaseAndGetAddressOf()));
}

Status StatusOfImagingError(const std::string& path, HRESULT error) {
  switch (error) {
    case E_ABORT:
      return Status::Cancelled(path);
    case E_OUTOFMEMORY:
      return Status::Error(Failure::kTooLarge, path + ": not enough memory");
    case WINCODEC_ERR_COMPONENTNOTFOUND:
    case WINCODEC_ERR_UNSUPPORTEDOPERATION:
    case WINCODEC_ERR_UNSUPPORTEDPIXELFORMAT:
    case WINCODEC_ERR_UNSUPPORTEDVERSION:
      return Status::Error(Failure::kUnsupported, path + ": a kind of picture that cannot be read");
    case REGDB_E_CLASSNOTREG:
      return Status::Error(Failure::kOther, path + ": the system cannot read pictures");
    default:
      // Decoders name many reasons for the same thing, some of them only "failed".
      return Status::Error(Failure::kDamaged, path + ": the picture data is damaged");
  }
}

}  // namespace tarnwell
