#pragma once

namespace tarnwell {

// Which instructions a kernel may use beyond those that every processor of the build has.
enum class Instructions { kPlain, kAvx2 };

// The best that the processor at hand offers.
Instructions BestInstructions();

}  // namespace tarnwell
