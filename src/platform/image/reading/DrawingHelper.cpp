// SPDX-License-Identifier: MIT
// zelvo-draw SECONDS: draws the SVG file that comes on stdin. Writes a DrawingHeader and the pixels to
// stdout, and returns 0; or a sentence about what is wrong with the file, and returns 1.
#include "platform/image/reading/SVGDrawing.h"

#include <malloc.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace zelvo::image;

// A sanitizer reserves terabytes of addresses.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr rlim_t kMaxMemory = RLIM_INFINITY;
#else
constexpr rlim_t kMaxMemory = rlim_t{2} << 30U;
#endif

void limit(__rlimit_resource resource, rlim_t most) {
    const rlimit both{most, most + 1};
    (void)setrlimit(resource, &both);
}

/// The kernel ends this process: when it has used its time or its memory, when it
/// sleeps, and when nobody is left who waits for it.
void limitProcess(unsigned seconds) {
    constexpr unsigned kPatience = 6; // for a machine that has much else to do
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    limit(RLIMIT_CPU, seconds);
    limit(RLIMIT_AS, kMaxMemory);
    limit(RLIMIT_CORE, 0);
    alarm(seconds * kPatience);
    // Each heap of a thread would reserve 64 MiB of addresses.
    mallopt(M_ARENA_MAX, 1);
    setenv("RAYON_NUM_THREADS", "2", 1); // NOLINT(concurrency-mt-unsafe): before any thread
}

std::vector<std::uint8_t> readInput() {
    std::vector<std::uint8_t> bytes;
    std::array<std::uint8_t, 1U << 16U> part{};
    while (const std::size_t count = std::fread(part.data(), 1, part.size(), stdin))
        bytes.insert(bytes.end(), part.begin(), part.begin() + static_cast<std::ptrdiff_t>(count));
    return bytes;
}

} // namespace

int main(int argc, char** argv) {
    const int seconds = argc == 2 ? std::atoi(argv[1]) : 0;
    if (seconds <= 0) {
        std::fputs("usage: zelvo-draw SECONDS < FILE.svg\n", stderr);
        return 2;
    }
    limitProcess(static_cast<unsigned>(seconds));
    const auto drawing = drawSVG(readInput());
    if (!drawing) {
        std::fputs(drawing.error().message.c_str(), stdout);
        return 1;
    }
    const DrawingHeader header{drawing->width, drawing->height};
    std::fwrite(&header, sizeof(header), 1, stdout);
    std::fwrite(drawing->pixels.data(), sizeof(std::uint32_t), drawing->pixels.size(), stdout);
    return std::fflush(stdout) == 0 ? 0 : 2;
}
