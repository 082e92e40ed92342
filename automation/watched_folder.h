#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/status.h"

namespace tarnwell {

class Files;

// What tells one content of a photo's file from the next.
struct PhotoVersion {
  std::uint64_t size = 0;
  std::int64_t modified_nanos = 0;

  friend bool operator==(const PhotoVersion&, const PhotoVersion&) = default;
};

// A photo in the watched folder as it was when the folder was listed.
struct WatchedPhoto {
  std::string name;  // without the folder
  PhotoVersion version;
  std::string saved_as;    // where its corrected copy is already; empty: nowhere
  PhotoVersion corrected;  // what that is a copy of
};

// The watched list: remembers from one look at the input folder to the next which photos still
// grow, and which are not to be tried again. What has left the folder is forgotten, so that the
// memory does not grow with the photos that pass through.
class WatchedFolder {
 public:
  // How long a photo must have stayed as it is. Less than the timer's interval, so that the tick
  // after the first look finds it ready, and long enough to see a copy in progress move.
  static constexpr std::int64_t kSteadyNanos = 500'000'000;

  // Lists `folder` and gives the photos that are ready, in the order of their names: those that
  // have not changed for kSteadyNanos and were not given up since. `first_look_counts`: those seen
  // for the first time are ready too.
  Result<std::vector<WatchedPhoto>> Look(Files& files, const std::string& folder, std::int64_t now,
                                         bool first_look_counts);

  // How many of the photos that are there are not to be given again.
  int given_up() const;

  // Not to be given again until it changes.
  void GiveUp(const WatchedPhoto& photo);
  // The corrected copy of this version is saved; only the move is still to be done, unless the
  // photo changes.
  void Saved(const WatchedPhoto& photo, const std::string& saved_as, const PhotoVersion& corrected);
  // True the first time it is called for the photo as it is.
  bool FirstComplaint(const WatchedPhoto& photo);

  void ForgetAll() { seen_.clear(); }

 private:
  struct Seen {
    PhotoVersion version;
    std::int64_t since = 0;
    bool given_up = false;
    bool complained = false;
    std::string saved_as;
    PhotoVersion corrected;
  };

  std::map<std::string, Seen> seen_;  // by name
};

}  // namespace tarnwell
