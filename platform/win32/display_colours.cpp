#include "platform/win32/display_colours.h"

#include <vector>
#include <windows.h>

// Needs what windows.h declares.
#include <icm.h>

#include "imaging/srgb_profile.h"

namespace tarnwell {
namespace {

class OpenProfile {
 public:
  explicit OpenProfile(const std::string& bytes) {
    // The call has no form for constant memory, and only reads.
    Open(PROFILE_MEMBUFFER, const_cast<char*>(bytes.data()), bytes.size());
  }
  explicit OpenProfile(const std::wstring& file) {
    Open(PROFILE_FILENAME, const_cast<wchar_t*>(file.c_str()), (file.size() + 1) * sizeof(wchar_t));
  }
  ~OpenProfile() {
    if (handle_ != nullptr) CloseColorProfile(handle_);
  }
  OpenProfile(const OpenProfile&) = delete;
  OpenProfile& operator=(const OpenProfile&) = delete;

  HPROFILE handle() const { return handle_; }

 private:
  void Open(DWORD type, void* data, std::size_t bytes) {
    PROFILE profile = {type, data, static_cast<DWORD>(bytes)};
    handle_ = OpenColorProfileW(&profile, PROFILE_READ, FILE_SHARE_READ, OPEN_EXISTING);
  }

  HPROFILE handle_ = nullptr;
};

bool Translate(HTRANSFORM transform, std::vector<ColourCube::Colour>& samples) {
  std::vector<COLOR> colours(samples.size());
  for (std::size_t i = 0; i < samples.size(); ++i) {
    colours[i].rgb = {samples[i][0], samples[i][1], samples[i][2]};
  }
  std::vector<COLOR> translated(samples.size());
  if (!TranslateColors(transform, colours.data(), static_cast<DWORD>(colours.size()), COLOR_RGB,
                       translated.data(), COLOR_RGB)) {
    return false;
  }
  for (std::size_t i = 0; i < samples.size(); ++i) {
    samples[i] = {translated[i].rgb.red, translated[i].rgb.green, translated[i].rgb.blue};
  }
  return true;
}

std::unique_ptr<ColourCube> CubeBetween(const OpenProfile& from, const OpenProfile& to) {
  if (from.handle() == nullptr || to.handle() == nullptr) return nullptr;
  HPROFILE profiles[] = {from.handle(), to.handle()};
  DWORD intents[] = {INTENT_RELATIVE_COLORIMETRIC, INTENT_RELATIVE_COLORIMETRIC};
  const HTRANSFORM transform =
      CreateMultiProfileTransform(profiles, 2, intents, 2, BEST_MODE, INDEX_DONT_CARE);
  if (transform == nullptr) return nullptr;
  auto cube = std::make_unique<ColourCube>();
  const bool translated = Translate(transform, cube->samples());
  DeleteColorTransform(transform);
  return translated ? std::move(cube) : nullptr;
}

}  // namespace

std::unique_ptr<ColourCube> CubeForDisplay(const std::string& photo, const std::wstring& display) {
  const OpenProfile from(photo);
  if (!display.empty()) {
    if (auto cube = CubeBetween(from, OpenProfile(display))) return cube;
  }
  return CubeBetween(from, OpenProfile(SrgbProfile()));
}

}  // namespace tarnwell
