#pragma once

#include <string>
#include <string_view>

namespace tarnwell {

class Files;

// The visual-style manifest beside the executable asks the system for its themed controls. The
// system reads it when a process starts, so the first start writes it and starts anew.
extern const std::string_view kManifestText;

enum class ManifestCheck {
  kPresent,  // some manifest is there, or none can be written: go on
  kWritten,  // just written: start the program again and end
};

// Writes the manifest to `path` when nothing of that name is there. An existing one is never read
// or changed. Where it cannot be written, the program goes on without it: starting anew would find
// it missing again, for ever.
ManifestCheck CheckManifest(Files& files, const std::string& path);

}  // namespace tarnwell
