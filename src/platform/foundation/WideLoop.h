// SPDX-License-Identifier: MIT
#pragma once

// Marks a function that the compiler vectorises: it is also compiled for wider instruction sets,
// and the best version is chosen at start. Not with sanitizers, which do not support this.
#if defined(__x86_64__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) &&      \
    !defined(__clang__)
#define ZELVO_WIDE_LOOP __attribute__((target_clones("avx2", "default"), optimize("O3")))
#else
#define ZELVO_WIDE_LOOP
#endif
