#include "platform/win32/wic_jpeg_library.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <vector>

#include "imaging/pixel_array.h"
#include "platform/win32/wic.h"
#include "platform/win32/win32_files.h"

namespace tarnwell {
namespace {

// Values of the record's fields that stand for what the encoder does: blue-green-red in, YCbCr with
// chroma at half the resolution both ways out.
constexpr int kColourBgr = 2;
constexpr int kColourYcbcr = 3;
constexpr int kSubsampling420 = 1;

bool IsWritable(const JPEG_CORE_PROPERTIES& record) {
  // Compared negated: the lowest value has no absolute one.
  const bool sides_fit = record.DIBWidth >= 1 && record.DIBWidth <= kMaxSide &&
                         record.DIBHeight >= -kMaxSide && record.DIBHeight <= kMaxSide &&
                         record.DIBHeight != 0;
  return sides_fit && record.DIBBytes != nullptr && record.JPGFile != nullptr &&
         record.DIBPadBytes >= 0 && record.DIBPadBytes <= kMaxSide && record.DIBChannels == 3 &&
         record.DIBColor == kColourBgr && record.JPGWidth == record.DIBWidth &&
         record.JPGHeight == std::abs(record.DIBHeight) && record.jquality >= 0 &&
         record.jquality <= 100;
}

HRESULT SetOption(IPropertyBag2& options, const wchar_t* name, VARIANT value) {
  PROPBAG2 option = {};
  option.pstrName = const_cast<wchar_t*>(name);
  return options.Write(1, &option, &value);
}

HRESULT SetOptions(IPropertyBag2& options, const JPEG_CORE_PROPERTIES& record) {
  VARIANT subsampling = {};
  subsampling.vt = VT_UI1;
  subsampling.bVal = record.JPGSubsampling == kSubsampling420 ? WICJpegYCrCbSubsampling420
                                                              : WICJpegYCrCbSubsampling444;
  // Not every version of the encoder knows this option; what it does without is good enough.
  SetOption(options, L"JpegYCrCbSubsampling", subsampling);
  VARIANT quality = {};
  quality.vt = VT_R4;
  quality.fltVal = static_cast<float>(record.jquality) / 100.0f;
  return SetOption(options, L"ImageQuality", quality);
}

HRESULT WriteRows(IWICBitmapFrameEncode& frame, const JPEG_CORE_PROPERTIES& record) {
  const auto row_bytes = static_cast<std::size_t>(record.DIBWidth) * 3;
  const std::size_t stride = row_bytes + record.DIBPadBytes;
  const int height = std::abs(record.DIBHeight);
  std::vector<BYTE> row(row_bytes);  // the call takes no constant memory
  for (int y = 0; y < height; ++y) {
    const int stored = record.DIBHeight < 0 ? height - 1 - y : y;
    std::memcpy(row.data(), record.DIBBytes + stored * stride, row_bytes);
    const auto length = static_cast<UINT>(row_bytes);
    const HRESULT result = frame.WritePixels(1, length, length, row.data());
    if (FAILED(result)) return result;
  }
  return S_OK;
}

HRESULT EncodeTo(IStream* stream, const JPEG_CORE_PROPERTIES& record) {
  ComPtr<IWICImagingFactory> factory;
  ComPtr<IWICBitmapEncoder> encoder;
  ComPtr<IWICBitmapFrameEncode> frame;
  ComPtr<IPropertyBag2> options;
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  HRESULT result = MakeImagingFactory(factory);
  if (FAILED(result)) return result;
  result = factory->CreateEncoder(GUID_ContainerFormatJpeg, nullptr, &encoder);
  if (FAILED(result)) return result;
  result = encoder->Initialize(stream, WICBitmapEncoderNoCache);
  if (SUCCEEDED(result)) result = encoder->CreateNewFrame(&frame, &options);
  if (SUCCEEDED(result)) result = SetOptions(*options.Get(), record);
  if (SUCCEEDED(result)) result = frame->Initialize(options.Get());
  if (SUCCEEDED(result)) {
    result =
        frame->SetSize(static_cast<UINT>(record.JPGWidth), static_cast<UINT>(record.JPGHeight));
  }
  if (SUCCEEDED(result)) result = frame->SetPixelFormat(&format);
  if (SUCCEEDED(result) && format != GUID_WICPixelFormat24bppBGR) {
    result = WINCODEC_ERR_UNSUPPORTEDPIXELFORMAT;
  }
  if (SUCCEEDED(result)) result = WriteRows(*frame.Get(), record);
  if (SUCCEEDED(result)) result = frame->Commit();
  if (SUCCEEDED(result)) result = encoder->Commit();
  return result;
}

int CodeOf(HRESULT result) {
  if (SUCCEEDED(result)) return 0;
  return result == E_OUTOFMEMORY ? WicJpegLibrary::kNoMemory : WicJpegLibrary::kEncoderFailed;
}

// Writes what `stream` holds in memory.
int WriteFileFrom(IStream* stream, const char* path) {
  HGLOBAL memory = nullptr;
  STATSTG about = {};
  HRESULT result = GetHGlobalFromStream(stream, &memory);
  if (SUCCEEDED(result)) result = stream->Stat(&about, STATFLAG_NONAME);
  if (FAILED(result)) return CodeOf(result);
  // The memory may be larger than what was written into it.
  const auto* bytes = static_cast<const char*>(GlobalLock(memory));
  if (bytes == nullptr) return WicJpegLibrary::kNoMemory;
  const auto length = static_cast<std::size_t>(about.cbSize.QuadPart);
  const Status written = Win32Files().Replace(path, std::string_view(bytes, length));
  GlobalUnlock(memory);
  return written.ok() ? 0 : WicJpegLibrary::kFileNotWritten;
}

}  // namespace

int WicJpegLibrary::ijlInit(JPEG_CORE_PROPERTIES* record) {
  if (record == nullptr) return kBadRecord;
  std::memset(record, 0, sizeof *record);
  record->DIBChannels = 3;
  record->DIBColor = kColourBgr;
  record->JPGChannels = 3;
  record->JPGColor = kColourYcbcr;
  record->JPGSubsampling = kSubsampling420;
  record->cconversion_reqd = 1;
  record->upsampling_reqd = 1;
  record->jquality = 75;
  return 0;
}

int WicJpegLibrary::ijlWrite(JPEG_CORE_PROPERTIES* record, int mode) try {
  if (record == nullptr || mode != kWriteWholeFile || !IsWritable(*record)) return kBadRecord;
  const ComApartment apartment;
  ComPtr<IStream> stream;
  HRESULT result = CreateStreamOnHGlobal(nullptr, TRUE, &stream);
  if (SUCCEEDED(result)) result = EncodeTo(stream.Get(), *record);
  return FAILED(result) ? CodeOf(result) : WriteFileFrom(stream.Get(), record->JPGFile);
} catch (const std::bad_alloc&) {
  return kNoMemory;
}

int WicJpegLibrary::ijlFree(JPEG_CORE_PROPERTIES* record) {
  return record == nullptr ? kBadRecord : 0;
}

std::string WicJpegLibrary::EncodePath(const std::string& path) { return path; }

}  // namespace tarnwell
