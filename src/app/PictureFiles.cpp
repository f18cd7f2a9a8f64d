// SPDX-License-Identifier: MIT
#include "app/PictureFiles.h"

#include "platform/image/Image.h"

#include <fmt/format.h>

#include <memory>

namespace zelvo::app {

namespace {

[[nodiscard]] foundation::Result<void>
save(const render::FrameView& frame, image::Image& scratch, const std::filesystem::path& file) {
    scratch.width = frame.size.width;
    scratch.height = frame.size.height;
    scratch.pixels.assign(frame.bytes.begin(), frame.bytes.end());
    return image::savePNG(scratch, file);
}

} // namespace

std::string frameName(int frame) {
    return fmt::format("frame_{:05}.png", frame);
}

movie::FrameTap framesTap(const std::filesystem::path& folder, int count) {
    const auto scratch = std::make_shared<image::Image>();
    return {
        .wants = [count](int frame) { return frame >= 0 && frame < count; },
        .take =
            [folder, scratch](int frame, const render::FrameView& picture) {
                return save(picture, *scratch, folder / frameName(frame));
            },
        .count = count};
}

movie::FrameTap pictureTap(const std::filesystem::path& file, int frame) {
    const auto scratch = std::make_shared<image::Image>();
    return {
        .wants = [frame](int drawn) { return drawn == frame; },
        .take =
            [file, scratch](int, const render::FrameView& picture) {
                return save(picture, *scratch, file);
            },
        .count = 1};
}

} // namespace zelvo::app
