#include "platform/win32/external_jpeg_library.h"

#include <optional>
#include <windows.h>

#include "platform/win32/utf16.h"
#include "platform/win32/win32_jpeg_library.h"

namespace tarnwell {
namespace {

using InitOrFree = int(__stdcall*)(JPEG_CORE_PROPERTIES*);
using Write = int(__stdcall*)(JPEG_CORE_PROPERTIES*, int);

template <typename Function>
Function Find(HMODULE module, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

class ExternalJpegLibrary : public JpegLibrary {
 public:
  explicit ExternalJpegLibrary(HMODULE module)
      : module_(module),
        init_(Find<InitOrFree>(module, "ijlInit")),
        write_(Find<Write>(module, "ijlWrite")),
        free_(Find<InitOrFree>(module, "ijlFree")) {}
  ~ExternalJpegLibrary() override { FreeLibrary(module_); }
  ExternalJpegLibrary(const ExternalJpegLibrary&) = delete;
  ExternalJpegLibrary& operator=(const ExternalJpegLibrary&) = delete;

  bool complete() const { return init_ && write_ && free_; }

  int ijlInit(JPEG_CORE_PROPERTIES* record) override { return init_(record); }
  int ijlWrite(JPEG_CORE_PROPERTIES* record, int mode) override { return write_(record, mode); }
  int ijlFree(JPEG_CORE_PROPERTIES* record) override { return free_(record); }

  // A character that the code page lacks is converted as the system does; the library then finds
  // no such folder, or makes a file of that other name.
  std::string EncodePath(const std::string& path) override {
    const std::optional<std::wstring> wide = Utf8ToWide(path);
    if (!wide || wide->empty()) return path;
    const int length = static_cast<int>(wide->size());
    const int needed =
        WideCharToMultiByte(CP_ACP, 0, wide->data(), length, nullptr, 0, nullptr, nullptr);
    std::string encoded(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide->data(), length, encoded.data(), needed, nullptr, nullptr);
    return encoded;
  }

 private:
  HMODULE module_;
  InitOrFree init_;
  Write write_;
  InitOrFree free_;
};

}  // namespace

std::unique_ptr<JpegLibrary> BindExternalJpegLibrary(const std::wstring& file) {
  // Not the current folder, where a photo's folder could bring a library of its own.
  const HMODULE module = LoadLibraryExW(
      file.c_str(), nullptr, LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (module == nullptr) return nullptr;
  auto library = std::make_unique<ExternalJpegLibrary>(module);
  if (!library->complete()) return nullptr;
  return library;
}

std::unique_ptr<JpegLibrary> ChooseJpegLibrary(const std::wstring& file) {
  constexpr bool kLayoutFits = sizeof(void*) == 4;
  std::unique_ptr<JpegLibrary> library;
  if (kLayoutFits) library = BindExternalJpegLibrary(file);
  if (!library) library = std::make_unique<Win32JpegLibrary>();
  return library;
}

}  // namespace tarnwell
