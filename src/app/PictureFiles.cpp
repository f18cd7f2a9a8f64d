// SPDX-License-Identifier: MIT
#include "app/PictureFiles.h"

#include "platform/image/Image.h"

#include <fmt/format.h>

#include <cmath>
#include <memory>

namespace zelvo::app {

namespace {

constexpr double kFramesPerSecond = 60;

[[nodiscard]] foundation::Result<void>
save(const render::FrameView& frame, image::Image& scratch, const std::filesystem::path& file) {
    scratch.width = frame.size.width;
    scratch.height = frame.size.height;
    scratch.pixels.assign(frame.bytes.begin(), frame.bytes.end());
    return image::savePNG(scratch, file);
}

} // namespace

int tickOf(double time) {
    return static_cast<int>(std::lround(time * kFramesPerSecond));
}

movie::FrameTap framesTap(const std::filesystem::path& folder, int count) {
    const auto scratch = std::make_shared<image::Image>();
    return {
        .wants =
            [count](double time) {
                const int tick = tickOf(time);
                return tick >= 0 && tick < count;
            },
        .take =
            [folder, scratch](double time, const render::FrameView& frame) {
                return save(frame, *scratch, folder / fmt::format("frame_{:05}.png", tickOf(time)));
            },
        .count = count};
}

movie::FrameTap pictureTap(const std::filesystem::path& file, int tick) {
    const auto scratch = std::make_shared<image::Image>();
    return {
        .wants = [tick](double time) { return tickOf(time) == tick; },
        .take = [file, scratch](
                    double, const render::FrameView& frame) { return save(frame, *scratch, file); },
        .count = 1};
}

} // namespace zelvo::app
