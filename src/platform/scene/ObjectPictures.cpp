// SPDX-License-Identifier: MIT
#include "platform/scene/ObjectPictures.h"

#include "platform/image/Color.h"
#include "platform/image/reading/ImageReader.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace zelvo::scene {

using image::Image;
using image::ImagePtr;
using object::Channel;
using object::PictureUse;

namespace {

/// A function of one component, for all its values.
using Table = std::array<std::uint8_t, 256>;

constexpr float kMost = 255;

[[nodiscard]] std::uint8_t byteOf(float value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0F, 1.0F) * kMost));
}

template <class Function> [[nodiscard]] Table tableOf(const Function& function) {
    Table table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = byteOf(function(static_cast<float>(i) / kMost));
    return table;
}

using Texel = const std::uint8_t*;

[[nodiscard]] std::uint8_t brightnessOf(Texel texel) {
    return byteOf(image::whiteOf(
        {static_cast<float>(texel[0]) / kMost,
         static_cast<float>(texel[1]) / kMost,
         static_cast<float>(texel[2]) / kMost,
         1}));
}

/// The extreme values of a picture's alpha.
[[nodiscard]] std::pair<int, int> alphaRange(const Image& picture) {
    int least = 255;
    int most = 0;
    for (std::size_t i = 3; i < picture.pixels.size(); i += 4) {
        least = std::min<int>(least, picture.pixels[i]);
        most = std::max<int>(most, picture.pixels[i]);
    }
    return {least, most};
}

/// What the choice comes to for this picture. Nothing if its alpha does not count.
[[nodiscard]] std::optional<Channel> settled(Channel channel, const Image& picture) {
    if (channel == Channel::color)
        return Channel::brightness;
    if (channel != Channel::alphaOrBrightness && channel != Channel::alphaIfVaried)
        return channel;
    const auto [least, most] = alphaRange(picture);
    const bool isOpaque = least == 255;
    if (channel == Channel::alphaOrBrightness)
        return isOpaque ? Channel::brightness : Channel::alpha;
    return isOpaque || most == 0 ? std::nullopt : std::optional(Channel::alpha);
}

[[nodiscard]] std::uint8_t channelOf(Texel texel, Channel channel) {
    switch (channel) {
    case Channel::red:
        return texel[0];
    case Channel::green:
        return texel[1];
    case Channel::blue:
        return texel[2];
    case Channel::alpha:
        return texel[3];
    default:
        return brightnessOf(texel);
    }
}

/// The place of a channel's scale and bias.
[[nodiscard]] int componentOf(Channel channel) {
    switch (channel) {
    case Channel::green:
        return 1;
    case Channel::blue:
        return 2;
    case Channel::alpha:
        return 3;
    default:
        return 0;
    }
}

[[nodiscard]] Table numberTable(const PictureUse& use, Channel channel) {
    const int component = componentOf(channel);
    return tableOf([&](float value) { return value * use.scale[component] + use.bias[component]; });
}

[[nodiscard]] Table opacityTable(const PictureOpacity& opacity, Channel channel) {
    const int component = componentOf(channel);
    return tableOf([&](float value) {
        const float shown =
            (value * opacity.use.scale[component] + opacity.use.bias[component]) * opacity.factor;
        if (opacity.cutOutBelow > 0)
            return shown < opacity.cutOutBelow ? 0.0F : 1.0F;
        return shown;
    });
}

/// A picture of the same size; `change` gets a texel of the source and the new one.
template <class Change> [[nodiscard]] ImagePtr mapped(const Image& source, const Change& change) {
    auto result = std::make_shared<Image>(source.width, source.height);
    for (std::size_t i = 0; i + 3 < source.pixels.size(); i += 4)
        change(&source.pixels[i], &result->pixels[i]);
    return result;
}

/// Mostly pointing upwards: (128, 128, 255).
[[nodiscard]] bool looksLikeNormals(const Image& picture) {
    std::array<double, 3> sums{};
    for (std::size_t i = 0; i + 3 < picture.pixels.size(); i += 4) {
        for (std::size_t part = 0; part < sums.size(); ++part)
            sums.at(part) += picture.pixels[i + part];
    }
    const double count = std::max<double>(1, static_cast<double>(picture.pixels.size()) / 4);
    constexpr double kMiddle = 128;
    constexpr double kNear = 24;
    constexpr double kHigh = 190;
    return std::abs(sums[0] / count - kMiddle) < kNear &&
           std::abs(sums[1] / count - kMiddle) < kNear && sums[2] / count > kHigh;
}

/// Normals of a height map by central differences. A difference of the whole range over two texels
/// is a slope of `kSteepness`; the format has no scale of its own. The picture repeats.
[[nodiscard]] ImagePtr normalsOfHeights(const Image& heights) {
    constexpr float kSteepness = 2;
    auto result = std::make_shared<Image>(heights.width, heights.height);
    const auto at = [&](int x, int y) {
        const int column = (x + heights.width) % heights.width;
        const int row = (y + heights.height) % heights.height;
        const auto first =
            (static_cast<std::size_t>(row) * static_cast<std::size_t>(heights.width) +
             static_cast<std::size_t>(column)) *
            4;
        return static_cast<float>(brightnessOf(&heights.pixels[first])) / kMost;
    };
    std::size_t place = 0;
    for (int y = 0; y < heights.height; ++y) {
        for (int x = 0; x < heights.width; ++x) {
            const glm::vec3 normal = glm::normalize(glm::vec3(
                (at(x - 1, y) - at(x + 1, y)) * kSteepness,
                (at(x, y + 1) - at(x, y - 1)) * kSteepness, // rows go down, green goes up
                1));
            for (int part = 0; part < 3; ++part)
                result->pixels[place++] = byteOf(normal[part] / 2 + 0.5F);
            result->pixels[place++] = 255;
        }
    }
    return result;
}

} // namespace

bool usesSameTexels(const PictureUse& a, const PictureUse& b) {
    return a.texture == b.texture && a.transform == b.transform && a.wrapS == b.wrapS &&
           a.wrapT == b.wrapT;
}

ObjectPictures::ObjectPictures(object::ObjectScene& source)
    : scene(source) {}

ImagePtr ObjectPictures::decoded(std::size_t texture) {
    const auto [entry, isNew] = pictures.try_emplace(texture);
    if (!isNew || scene.textures[texture].isMissing())
        return entry->second;
    const object::Texture& source = scene.textures[texture];
    const auto picture =
        source.bytes.empty() ? image::loadImage(source.file) : image::decodeImage(source.bytes);
    if (picture) {
        entry->second = *picture;
    } else {
        scene.warn("the picture " + source.name + ": " + picture.error().message);
    }
    return entry->second;
}

ImagePtr ObjectPictures::color(
    const PictureUse& use, const glm::vec3& factor, const std::optional<PictureOpacity>& opacity) {
    const ImagePtr source = decoded(use.texture);
    if (!source)
        return nullptr;
    std::array<Table, 3> tables{};
    for (int part = 0; part < 3; ++part) {
        tables.at(static_cast<std::size_t>(part)) = tableOf([&](float value) {
            const float linear = use.isData ? value : image::linearFromSRGB(value);
            return image::sRGBFromLinear(
                std::clamp((linear * use.scale[part] + use.bias[part]) * factor[part], 0.0F, 1.0F));
        });
    }
    const auto channel = opacity && usesSameTexels(opacity->use, use)
                             ? settled(opacity->use.channel, *source)
                             : std::nullopt;
    const Table alphas = channel ? opacityTable(*opacity, *channel) : Table();
    return mapped(*source, [&](Texel texel, std::uint8_t* made) {
        for (std::size_t part = 0; part < 3; ++part)
            made[part] = tables.at(part)[texel[part]];
        made[3] = channel ? alphas[channelOf(texel, *channel)] : 255;
    });
}

ImagePtr ObjectPictures::number(const PictureUse& use) {
    const ImagePtr source = decoded(use.texture);
    const auto channel = source ? settled(use.channel, *source) : std::nullopt;
    if (!channel)
        return nullptr;
    const Table table = numberTable(use, *channel);
    return mapped(*source, [&](Texel texel, std::uint8_t* made) {
        const std::uint8_t value = table[channelOf(texel, *channel)];
        std::fill_n(made, 3, value);
        made[3] = 255;
    });
}

ImagePtr ObjectPictures::alpha(const PictureOpacity& opacity) {
    const ImagePtr source = decoded(opacity.use.texture);
    const auto channel = source ? settled(opacity.use.channel, *source) : std::nullopt;
    if (!channel)
        return nullptr;
    const Table table = opacityTable(opacity, *channel);
    ImagePtr result = mapped(*source, [&](Texel texel, std::uint8_t* made) {
        std::fill_n(made, 3, std::uint8_t{255});
        made[3] = table[channelOf(texel, *channel)];
    });
    return alphaRange(*result).first == 255 ? nullptr : result;
}

ImagePtr ObjectPictures::normal(const PictureUse& use, object::NormalPicture kind) {
    const ImagePtr source = decoded(use.texture);
    if (!source)
        return nullptr;
    const bool isHeight = kind == object::NormalPicture::height ||
                          (kind == object::NormalPicture::unknown && !looksLikeNormals(*source));
    if (isHeight)
        return normalsOfHeights(*source);
    std::array<Table, 3> tables{};
    for (int part = 0; part < 3; ++part) {
        tables.at(static_cast<std::size_t>(part)) =
            tableOf([&](float value) { return value * use.scale[part] + use.bias[part]; });
    }
    return mapped(*source, [&](Texel texel, std::uint8_t* made) {
        for (std::size_t part = 0; part < 3; ++part)
            made[part] = tables.at(part)[texel[part]];
        made[3] = 255;
    });
}

} // namespace zelvo::scene
