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
    Seen photo{
        .size = entry.size, .modified_nanos = entry.modified_nanos, .since = now, .saved_as = {}};
    bool is_ready = first_look_counts;
    const auto before = seen_.find(entry.name);
    if (before != seen_.end() && before->second.size == photo.size &&
        before->second.modified_nanos == photo.modified_nanos) {
      photo = before->second;
      is_ready = first_look_counts || now - photo.since >= kSteadyNanos;
    }
    if (is_ready && !photo.given_up) {
      ready.push_back({entry.name, photo.size, photo.modified_nanos, photo.saved_as});
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

void WatchedFolder::Saved(const WatchedPhoto& photo, const std::string& saved_as) {
  seen_[photo.name].saved_as = saved_as;
}

bool WatchedFolder::FirstComplaint(const WatchedPhoto& photo) {
  return !std::exchange(seen_[photo.name].complained, true);
}

}  // namespace tarnwell
