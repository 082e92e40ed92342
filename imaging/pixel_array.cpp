#include "imaging/pixel_array.h"

#include <cstring>
#include <new>
#include <stdexcept>

namespace tarnwell {

std::shared_ptr<PixelArray> TryMakePixels(std::int64_t width, std::int64_t height) {
  if (width < 1 || width > kMaxSide || height < 1 || height > kMaxSide) return nullptr;
  try {
    return std::make_shared<PixelArray>(static_cast<int>(width), static_cast<int>(height));
  } catch (const std::bad_alloc&) {
    return nullptr;
  } catch (const std::length_error&) {  // more than an address space of 32 bits can hold
    return nullptr;
  }
}

std::shared_ptr<PixelArray> TryCopyPixels(const PixelView& source) {
  auto copy = TryMakePixels(source.width, source.height);
  if (copy) std::memcpy(copy->mutable_view().data, source.data, source.byte_count());
  return copy;
}

}  // namespace tarnwell
