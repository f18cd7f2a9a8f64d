// SPDX-License-Identifier: MIT
// zelvo-draw SECONDS: draws the SVG file that comes on stdin. Writes a DrawingHeader and the pixels to
// stdout, and returns 0; or a sentence about what is wrong with the file, and returns 1.
#include "platform/foundation/HelperLimits.h"
#include "platform/image/reading/SVGDrawing.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace zelvo;
using namespace zelvo::image;

constexpr rlim_t kMaxMemory = rlim_t{2} << 30U;

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
    foundation::limitHelperMemory(kMaxMemory);
    foundation::limitHelperTime(static_cast<unsigned>(seconds));
    setenv("RAYON_NUM_THREADS", "2", 1); // NOLINT(concurrency-mt-unsafe): before any thread
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
