#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "deadpixels/dead_pixel_files.h"
#include "deadpixels/deviations.h"
#include "platform/status.h"

namespace tarnwell {

struct Module1;
struct Platform;

// What the test shots of one resolution came to.
struct Assessment {
  Resolution resolution;
  Status status;  // when it is not ok, the map is as it was
  int dark_shots = 0;
  int light_shots = 0;
  std::size_t stuck_pixels = 0;       // above the default threshold
  std::vector<std::string> left_out;  // a line for each shot that could not be assessed
};

// Looks through the test shots of the current camera and this resolution, one after the other, for
// pixels that stand out in all dark or in all light ones, and writes what it finds as the map that
// the repair reads. A map that is there is replaced as a whole. Takes 16 bytes of memory per pixel,
// however many shots there are.
//
// Shots that cannot be read, of another size, or neither dark nor light are left out. Fails when no
// shot remains, when so many pixels stand out that the shots must show a scene, when memory or disk
// do not suffice, and when `go_on` (asked with the share done) says no.
Assessment AssessTestShots(const Module1& app, Platform& platform, const Resolution& resolution,
                           const GoOn& go_on);

// That as a line for the user, without the shots that were left out.
std::string AssessmentText(const Assessment& assessment);

}  // namespace tarnwell
