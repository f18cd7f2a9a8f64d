// SPDX-License-Identifier: MIT
#include "platform/render/PassMean.h"

#include "platform/foundation/Check.h"
#include "platform/image/Color.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zelvo::render {
namespace {

constexpr std::uint32_t kLevels = 65535; ///< of linear light
constexpr std::size_t kValues = 256;     ///< of an encoded channel

using Decoding = std::array<std::uint32_t, kValues>;

Decoding makeDecoding() {
    Decoding table{};
    for (std::size_t i = 0; i < kValues; ++i) {
        const float light = image::linearFromSRGB(static_cast<float>(i) / (kValues - 1));
        table.at(i) = static_cast<std::uint32_t>(std::lround(light * static_cast<float>(kLevels)));
    }
    return table;
}

const Decoding& decoding() {
    static const Decoding kTable = makeDecoding();
    return kTable;
}

std::vector<std::uint8_t> makeEncoding() {
    std::vector<std::uint8_t> table(kLevels + 1);
    for (std::size_t i = 0; i < table.size(); ++i) {
        const float value =
            image::sRGBFromLinear(static_cast<float>(i) / static_cast<float>(kLevels));
        table[i] = static_cast<std::uint8_t>(std::lround(value * (kValues - 1)));
    }
    return table;
}

const std::vector<std::uint8_t>& encoding() {
    static const std::vector<std::uint8_t> kTable = makeEncoding();
    return kTable;
}

} // namespace

void PassMean::start(std::size_t bytes) {
    sums.assign(bytes / 4 * 3, 0);
    count = 0;
}

void PassMean::add(std::span<const std::uint8_t> picture) {
    CHECK(picture.size() / 4 * 3 == sums.size(), "a drawing of {} bytes has come", picture.size());
    const Decoding& light = decoding();
    for (std::size_t from = 0, to = 0; to < sums.size(); from += 4, to += 3) {
        sums[to] += light[picture[from]];
        sums[to + 1] += light[picture[from + 1]];
        sums[to + 2] += light[picture[from + 2]];
    }
    ++count;
}

void PassMean::write(std::vector<std::uint8_t>& picture) const {
    const std::vector<std::uint8_t>& encoded = encoding();
    picture.resize(sums.size() / 3 * 4);
    const std::uint32_t half = count / 2;
    for (std::size_t from = 0, to = 0; from < sums.size(); from += 3, to += 4) {
        for (std::size_t i = 0; i < 3; ++i) {
            picture[to + i] = encoded[(sums[from + i] + half) / count];
        }
        picture[to + 3] = 255;
    }
}

void PassMean::writeMatte(const PassMean& onWhite, std::vector<std::uint8_t>& picture) const {
    const std::vector<std::uint8_t>& encoded = encoding();
    picture.resize(sums.size() / 3 * 4);
    const auto scale = static_cast<float>(kLevels) * static_cast<float>(count);
    for (std::size_t from = 0, to = 0; from < sums.size(); from += 3, to += 4) {
        std::array<float, 3> light{};
        float alpha = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            light.at(i) = static_cast<float>(sums[from + i]) / scale;
            const float through = static_cast<float>(onWhite.sums[from + i]) / scale - light.at(i);
            alpha = std::max({alpha, 1 - through, light.at(i)});
        }
        alpha = std::min(alpha, 1.0F);
        for (std::size_t i = 0; i < 3; ++i) {
            const float straight = alpha > 0 ? std::min(light.at(i) / alpha, 1.0F) : 0;
            picture[to + i] = encoded[static_cast<std::size_t>(
                std::lround(straight * static_cast<float>(kLevels)))];
        }
        picture[to + 3] = static_cast<std::uint8_t>(std::lround(alpha * (kValues - 1)));
    }
}

glm::vec2 shiftOf(int index) {
    // Roberts 2018, "The Unreasonable Effectiveness of Quasirandom Sequences": the sequence R2.
    constexpr double kAcross = 0.7548776662466927;
    constexpr double kDown = 0.5698402909980532;
    const auto place = [index](double step) {
        const double at = 0.5 + index * step;
        return static_cast<float>(at - std::floor(at) - 0.5);
    };
    return {place(kAcross), place(kDown)};
}

} // namespace zelvo::render
