#include "imaging/pixel_array.h"

#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include "platform/pixel_memory.h"

namespace tarnwell {
namespace {

// Throws std::bad_alloc.
std::uint8_t* TakeMemory(int width, int height) {
  const std::uint64_t bytes =
      static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) * kBytesPerPixel;
  if (bytes == 0) return nullptr;
  // More than an address space of 32 bits can hold?
  if (bytes > std::numeric_limits<std::ptrdiff_t>::max()) throw std::bad_alloc();
  std::uint8_t* memory = TakePixelMemory(static_cast<std::size_t>(bytes));
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

PixelArray::PixelArray(int width, int height)
    : width_(width),
      height_(height),
      bytes_(TakeMemory(width, height), {PixelView{nullptr, width, height}.byte_count()}) {}

PixelArray::PixelArray(const PixelArray& other) : PixelArray(other.width_, other.height_) {
  if (bytes_) std::memcpy(bytes_.get(), other.bytes_.get(), view().byte_count());
}

PixelArray::PixelArray(PixelArray&& other) noexcept
    : width_(std::exchange(other.width_, 0)),
      height_(std::exchange(other.height_, 0)),
      bytes_(std::move(other.bytes_)) {}

PixelArray& PixelArray::operator=(PixelArray other) noexcept {
  std::swap(width_, other.width_);
  std::swap(height_, other.height_);
  std::swap(bytes_, other.bytes_);
  return *this;
}

bool PixelArray::operator==(const PixelArray& other) const {
  return width_ == other.width_ && height_ == other.height_ &&
         (!bytes_ || std::memcmp(bytes_.get(), other.bytes_.get(), view().byte_count()) == 0);
}

void PixelArray::Returner::operator()(std::uint8_t* memory) const {
  ReturnPixelMemory(memory, bytes);
}

std::shared_ptr<PixelArray> TryMakePixels(std::int64_t width, std::int64_t height) {
  if (width < 1 || width > kMaxSide || height < 1 || height > kMaxSide) return nullptr;
  try {
    return std::make_shared<PixelArray>(static_cast<int>(width), static_cast<int>(height));
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

std::shared_ptr<PixelArray> TryCopyPixels(const PixelView& source) {
  auto copy = TryMakePixels(source.width, source.height);
  if (copy) std::memcpy(copy->mutable_view().data, source.data, source.byte_count());
  return copy;
}

}  // namespace tarnwell
