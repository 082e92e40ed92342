#include "automation/watched_folder.h"

#include <algorithm>
#include <utility>

#include "imaging/photo_list.h"
#include "platform/files.h"
#include "shell/letter_case.h"

namespace tarnwell {

Result<std::vector<WatchedPhoto>> WatchedFolder::Look(Files& files, const std::string& folder,
                                                      std::int64_t now, bool first_look_counts) {
  auto entries = files.List(folder);
  if (!entries.ok()) return entries.status;
  std::map<std::string, Seen> seen;
  std::vector<WatchedPhoto> ready;
  for (const FolderEntry& entry : *entries) {
    if (entry.is_folder || !IsPhotoName(entry.name)) continue;
    const PhotoVersion version = {entry.size, entry.modified_nanos};
    Seen photo{.version = version, .since = now, .saved_as = {}, .corrected = {}};
    bool is_ready = first_look_counts;
    if (const auto before = seen_.find(entry.name); before != seen_.end()) {
      // A name that cannot be looked at for the moment is no other photo.
      const bool is_unknown = version == PhotoVersion();
      const bool is_same = before->second.version == version;
      if (is_same || is_unknown) photo = before->second;
      if (is_same) is_ready = first_look_counts || now - photo.since >= kSteadyNanos;
      if (!is_same && is_unknown) is_ready = false;
    }
    if (is_ready && !photo.given_up) {
      ready.push_back({entry.name, version, photo.saved_as, photo.corrected});
    }
    seen.emplace(entry.name, std::move(photo));
  }
  seen_ = std::move(seen);
  std::sort(ready.begin(), ready.end(), [](const WatchedPhoto& a, const WatchedPhoto& b) {
    return NameComesBefore(a.name, b.name);
  });
  return ready;
}

int WatchedFolder::given_up() const {
  return static_cast<int>(std::count_if(seen_.begin(), seen_.end(),
                                        [](const auto& photo) { return photo.second.given_up; }));
}

void WatchedFolder::GiveUp(const WatchedPhoto& photo) { seen_[photo.name].given_up = true; }

void WatchedFolder::Saved(const WatchedPhoto& photo, const std::string& saved_as,
                          const PhotoVersion& corrected) {
  Seen& seen = seen_[photo.name];
  seen.saved_as = saved_as;
  seen.corrected = corrected;
}

bool WatchedFolder::FirstComplaint(const WatchedPhoto& photo) {
  return !std::exchange(seen_[photo.name].complained, true);
}

}  // namespace tarnwell
