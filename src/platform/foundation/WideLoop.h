// SPDX-License-Identifier: MIT
#pragma once

// A function that is written for the compiler's vectoriser: compiled for wider instruction sets
// too, the best one picked at start. Sanitizers do not bear the resolver that picks.
#if defined(__x86_64__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) &&      \
    !defined(__clang__)
#define ZELVO_WIDE_LOOP __attribute__((target_clones("avx2", "default"), optimize("O3")))
#else
#define ZELVO_WIDE_LOOP
#endif
