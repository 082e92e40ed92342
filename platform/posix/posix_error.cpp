#include "platform/posix/posix_error.h"

#include <cerrno>
#include <system_error>

#include "platform/posix/posix_path.h"

namespace tarnwell {
namespace {

const char* MissingText(Subject subject) {
  switch (subject) {
    case Subject::kFile:
      return "no such file";
    case Subject::kNewFile:
      return "its folder does not exist";
    case Subject::kFolder:
      return "no such folder";
    case Subject::kNewFolder:
      return "the folder above it does not exist";
  }
  return "no such file";
}

}  // namespace

Status PathError(Failure failure, const std::string& path, const std::string& reason) {
  return Status::Error(failure, DisplayPath(path) + ": " + reason);
}

Status SystemError(int error, const std::string& path, Subject subject) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return PathError(Failure::kNotFound, path, MissingText(subject));
    case EEXIST:
      return PathError(Failure::kExists, path, "something of that name exists already");
    case EACCES:
    case EPERM:
      return PathError(Failure::kNoAccess, path, "no permission");
    case EROFS:
      return PathError(Failure::kNoAccess, path, "the disk is read-only");
    case ENOSPC:
      return PathError(Failure::kDiskFull, path, "disk full");
    case EDQUOT:
      return PathError(Failure::kDiskFull, path, "your share of the disk is full");
    case EISDIR:
      return PathError(Failure::kOther, path, "is a folder, not a file");
    case ENOTEMPTY:
      return PathError(Failure::kOther, path, "the folder is not empty");
    case EFBIG:
      return PathError(Failure::kOther, path, "the file would become too large");
    case ENAMETOOLONG:
      return PathError(Failure::kOther, path, "the name is too long");
    case ENOMEM:
      return PathError(Failure::kTooLarge, path, "not enough memory");
    case EMFILE:
    case ENFILE:
      return PathError(Failure::kOther, path, "too many files are open");
    case EIO:
      return PathError(Failure::kOther, path, "the disk reports an error");
    case ELOOP:
      return PathError(Failure::kOther, path, "links that lead round in a circle");
    case EBUSY:
    case ETXTBSY:
      return PathError(Failure::kOther, path, "in use by another program");
    case ENXIO:
    case ENODEV:
      return PathError(Failure::kOther, path, "is not a file");
    default:
      return PathError(Failure::kOther, path, std::generic_category().message(error));
  }
}

}  // namespace tarnwell
