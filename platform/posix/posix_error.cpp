#include "platform/posix/posix_error.h"

#include <cerrno>
#include <system_error>

#include "platform/posix/posix_path.h"

namespace tarnwell {
Status PathError(Failure failure, const std::string& path, const std::string& reason) {
  return Status::Error(failure, DisplayPath(path) + ": " + reason);
}

Status SystemError(int error, const std::string& path, Subject subject) {
  const auto because = [&](FileReason reason) {
    return FileStatus(reason, DisplayPath(path), subject);
  };
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return because(FileReason::kMissing);
    case EEXIST:
      return because(FileReason::kTaken);
    case EACCES:
    case EPERM:
      return because(FileReason::kNoPermission);
    case EROFS:
      return because(FileReason::kReadOnlyDisk);
    case EBUSY:
    case ETXTBSY:
      return because(FileReason::kInUse);
    case ENOSPC:
      return because(FileReason::kDiskFull);
    case EDQUOT:
      return because(FileReason::kQuotaUsedUp);
    case ENOMEM:
      return because(FileReason::kNoMemory);
    case ENOTEMPTY:
      return because(FileReason::kFolderNotEmpty);
    case ENAMETOOLONG:
      return because(FileReason::kNameTooLong);
    case EISDIR:
      return because(FileReason::kIsFolder);
    case ENXIO:
    case ENODEV:
      return because(FileReason::kNoFile);
    case EFBIG:
      return PathError(Failure::kOther, path, "the file would become too large");
    case EMFILE:
    case ENFILE:
      return PathError(Failure::kOther, path, "too many files are open");
    case EIO:
      return PathError(Failure::kOther, path, "the disk reports an error");
    case ELOOP:
      return PathError(Failure::kOther, path, "links that lead round in a circle");
    default:
      return PathError(Failure::kOther, path, std::generic_category().message(error));
  }
}

}  // namespace tarnwell
