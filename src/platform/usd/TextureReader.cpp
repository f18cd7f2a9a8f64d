// SPDX-License-Identifier: MIT
#include "platform/usd/TextureReader.h"

#include <fmt/format.h>
#include <glm/gtc/type_ptr.hpp>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace zelvo::usd {

using object::Channel;
using object::Wrap;

namespace {

constexpr int kMostTransforms = 16;

Channel channelOf(std::string_view output) {
    constexpr auto kChannels = std::to_array<std::pair<std::string_view, Channel>>(
        {{"r", Channel::red}, {"g", Channel::green}, {"b", Channel::blue}, {"a", Channel::alpha}});
    const auto* found =
        std::ranges::find(kChannels, output, &std::pair<std::string_view, Channel>::first);
    return found == kChannels.end() ? Channel::color : found->second;
}

/// The numbers of an input, or of what it is connected to.
Numbers
numbersInput(const Stage& stage, const Prim& node, const std::string& input, std::size_t n) {
    const InputSource source = sourceOf(stage, node, input);
    if (source.holder == nullptr)
        return {};
    Numbers values = source.holder->numbers(source.attribute, n);
    const bool isFinite = std::ranges::all_of(values, [](double v) { return std::isfinite(v); });
    return isFinite ? values : Numbers();
}

std::optional<glm::vec4>
vector4Input(const Stage& stage, const Prim& node, const std::string& input) {
    const Numbers v = numbersInput(stage, node, input, 4);
    return v.empty() ? std::nullopt : std::optional(glm::vec4(v[0], v[1], v[2], v[3]));
}

/// First scaled, then turned, then moved.
glm::dmat3 transformOf(const Stage& stage, const Prim& node) {
    const auto pair = [&](const std::string& input, double fallback) {
        const Numbers v = numbersInput(stage, node, input, 2);
        return v.empty() ? glm::dvec2(fallback) : glm::dvec2(v[0], v[1]);
    };
    const Numbers turn = numbersInput(stage, node, "inputs:rotation", 1);
    const double angle = glm::radians(turn.empty() ? 0 : turn.front());
    const glm::dvec2 scale = pair("inputs:scale", 1);
    const glm::dvec2 move = pair("inputs:translation", 0);
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return {
        glm::dvec3(c * scale.x, s * scale.x, 0),
        glm::dvec3(-s * scale.y, c * scale.y, 0),
        glm::dvec3(move, 1)};
}

} // namespace

std::string TextureReader::textInput(const Prim& node, const std::string& input) const {
    const InputSource source = sourceOf(stage, node, input);
    return source.holder == nullptr ? std::string() : source.holder->text(source.attribute);
}

Wrap TextureReader::wrapOf(const Prim& node, const std::string& input) const {
    const std::string mode = textInput(node, input);
    if (mode == "clamp")
        return Wrap::clamp;
    if (mode == "mirror")
        return Wrap::mirror;
    // The default asks the picture, which says nothing; people expect it to repeat.
    return mode == "black" ? Wrap::border : Wrap::repeat;
}

TextureReader::Coordinates TextureReader::coordinatesOf(const Prim& node) const {
    Coordinates result;
    InputSource source = sourceOf(stage, node, "inputs:st");
    for (int i = 0; i < kMostTransforms && source.shader != nullptr; ++i) {
        const std::string kind = shaderKind(*source.shader);
        if (kind == "UsdTransform2d") {
            result.transform = result.transform * transformOf(stage, *source.shader);
            source = sourceOf(stage, *source.shader, "inputs:in");
            continue;
        }
        if (kind.starts_with("UsdPrimvarReader"))
            result.name = textInput(*source.shader, "inputs:varname");
        break;
    }
    return result;
}

/// A name with <UDIM> stands for many pictures; the first one that is there is taken.
std::optional<AssetId> TextureReader::findPicture(const std::string& path, AssetId layer) {
    constexpr std::string_view kTile = "<UDIM>";
    constexpr int kFirst = 1001;
    constexpr int kLast = 1100;
    const std::size_t at = path.find(kTile);
    if (at == std::string::npos)
        return stage.assets().resolve(path, layer);
    for (int tile = kFirst; tile <= kLast; ++tile) {
        std::string name = path;
        name.replace(at, kTile.size(), std::to_string(tile));
        if (const auto found = stage.assets().resolve(name, layer))
            return found;
    }
    return std::nullopt;
}

std::optional<std::size_t> TextureReader::loadPicture(const Prim& node) {
    const InputSource source = sourceOf(stage, node, "inputs:file");
    const std::string path =
        source.holder == nullptr ? std::string() : source.holder->text(source.attribute);
    if (path.empty())
        return std::nullopt;
    const auto id = findPicture(path, source.holder->layerOf(source.attribute));
    if (!id) {
        stage.warnings().add(fmt::format("the picture {} is missing", path));
        return std::nullopt;
    }
    const auto [place, isNew] = loaded.try_emplace(*id);
    if (!isNew)
        return place->second;
    auto bytes = stage.assets().bytes(*id);
    if (!bytes || bytes->empty() || bytes->size() > object::Limits::kMaxTextureBytes) {
        stage.warnings().add(fmt::format("the picture {} cannot be read", path));
        return std::nullopt;
    }
    place->second = scene.textures.size();
    object::Texture& texture = scene.textures.emplace_back();
    texture.name = stage.assets().name(*id);
    texture.bytes = *std::move(bytes);
    return place->second;
}

TextureValue TextureReader::read(const Prim& node, const std::string& output) {
    TextureValue result;
    result.fallback = vector4Input(stage, node, "inputs:fallback");
    const auto texture = loadPicture(node);
    if (!texture)
        return result;
    object::PictureUse use;
    use.texture = *texture;
    use.channel = channelOf(output);
    use.wrapS = wrapOf(node, "inputs:wrapS");
    use.wrapT = wrapOf(node, "inputs:wrapT");
    use.scale = vector4Input(stage, node, "inputs:scale").value_or(glm::vec4(1));
    use.bias = vector4Input(stage, node, "inputs:bias").value_or(glm::vec4(0));
    use.isData = textInput(node, "inputs:sourceColorSpace") == "raw";
    Coordinates coordinates = coordinatesOf(node);
    // Here v grows upwards, in the result downwards: v' = 1 - v, before and after.
    const glm::dmat3 flip(1, 0, 0, 0, -1, 0, 0, 1, 1);
    use.transform = glm::mat3(flip * coordinates.transform * flip);
    result.uvName = std::move(coordinates.name);
    result.picture = use;
    return result;
}

} // namespace zelvo::usd
