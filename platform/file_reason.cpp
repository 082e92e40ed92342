#include "platform/file_reason.h"

#include <iterator>

namespace tarnwell {
namespace {

struct Words {
  Failure failure;
  const char* text;
};

constexpr const char* kMissingTexts[] = {"no such file", "its folder does not exist",
                                         "no such folder", "the folder above it does not exist"};

// In the order of FileReason.
constexpr Words kWords[] = {
    {Failure::kNotFound, nullptr},
    {Failure::kExists, "something of that name exists already"},
    {Failure::kNoAccess, "no permission"},
    {Failure::kNoAccess, "the disk is read-only"},
    {Failure::kNoAccess, "in use by another program"},
    {Failure::kDiskFull, "disk full"},
    {Failure::kDiskFull, "your share of the disk is full"},
    {Failure::kTooLarge, "not enough memory"},
    {Failure::kOther, "the folder is not empty"},
    {Failure::kOther, "the name is too long"},
    {Failure::kOther, "not a valid file name"},
    {Failure::kOther, "is a folder, not a file"},
    {Failure::kOther, "is not a file"},
};
static_assert(std::size(kWords) == static_cast<std::size_t>(FileReason::kNoFile) + 1);

}  // namespace

Status FileStatus(FileReason reason, const std::string& shown_path, Subject subject) {
  const Words& words = kWords[static_cast<std::size_t>(reason)];
  const char* text = reason == FileReason::kMissing
                         ? kMissingTexts[static_cast<std::size_t>(subject)]
                         : words.text;
  return Status::Error(words.failure, shown_path + ": " + text);
}

}  // namespace tarnwell
