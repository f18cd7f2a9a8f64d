// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Check.h"
#include "platform/image/Image.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

// Pictures and picture files made for one test.

namespace zelvo::image {

/// A folder of the test's own, gone with it.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "zelvo-XXXXXX").string();
        CHECK(mkdtemp(name.data()) != nullptr, "no scratch folder {}", name);
        path = name;
    }

    ~ScratchFolder() { std::filesystem::remove_all(path); }

    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::filesystem::path path;
};

/// A quarter each, from the top left by rows: red, green, blue, half transparent white.
inline Image quartered(int width, int height) {
    constexpr std::uint8_t kColours[4][4] = {
        {255, 0,   0,   255},
        {0,   255, 0,   255},
        {0,   0,   255, 255},
        {255, 255, 255, 128}
    };
    Image image(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int quarter = (y * 2 >= height ? 2 : 0) + (x * 2 >= width ? 1 : 0);
            const auto at = static_cast<std::size_t>(y * width + x) * 4;
            std::copy_n(
                std::begin(kColours[quarter]), 4, image.pixels.begin() + static_cast<int>(at));
        }
    }
    return image;
}

inline std::vector<std::uint8_t> bytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    return {text.begin(), text.end()};
}

} // namespace zelvo::image
