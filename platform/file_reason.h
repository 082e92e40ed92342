#pragma once

#include <string>

#include "platform/status.h"

namespace tarnwell {

// What a call was about, so that a missing thing is named for what it is.
enum class Subject {
  kFile,       // an existing file
  kNewFile,    // a file to be made: what can be missing is the folder
  kFolder,     // an existing folder
  kNewFolder,  // a folder to be made: what can be missing is the one above
};

// Why a file could not be used, in the program's own words on every system.
enum class FileReason {
  kMissing,
  kTaken,
  kNoPermission,
  kReadOnlyDisk,
  kInUse,
  kDiskFull,
  kQuotaUsedUp,
  kNoMemory,
  kFolderNotEmpty,
  kNameTooLong,
  kInvalidName,
  kIsFolder,
  kNoFile,
};

// The failure for this reason, as "FILE: reason"; `shown_path` is the path as the user spells it.
Status FileStatus(FileReason reason, const std::string& shown_path, Subject subject);

}  // namespace tarnwell
