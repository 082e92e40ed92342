#include "engine/processor.h"

namespace tarnwell {

Instructions BestInstructions() {
#if defined(__x86_64__) || defined(__i386__)
  if (__builtin_cpu_supports("avx2")) return Instructions::kAvx2;
#endif
  return Instructions::kPlain;
}

}  // namespace tarnwell
