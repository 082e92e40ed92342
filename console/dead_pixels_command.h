#pragma once

namespace tarnwell {

struct ConsoleHost;
struct DeadPixelsOptions;

// "deadpixels": adds test shots to a camera, or makes its dead pixel maps from them.
int RunDeadPixelsCommand(const DeadPixelsOptions& options, ConsoleHost& host);

}  // namespace tarnwell
