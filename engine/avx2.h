#pragma once

// Marks a function that uses AVX2, for processors that have it (engine/processor.h). Not there
// where the build is for others.
#if defined(__x86_64__) || defined(__i386__)
#include <immintrin.h>
#define TARNWELL_AVX2 [[gnu::target("avx2")]]
#endif
