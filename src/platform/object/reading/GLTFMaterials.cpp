// SPDX-License-Identifier: MIT
#include "platform/object/reading/GLTFMaterials.h"

#include "platform/object/reading/GLTFAccessor.h"

#include <fmt/format.h>
#include <glm/common.hpp>
#include <tiny_gltf.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace zelvo::object {

namespace {

[[nodiscard]] float numberAt(const std::vector<double>& list, std::size_t index, float fallback) {
    return index < list.size() && std::isfinite(list[index]) ? static_cast<float>(list[index])
                                                             : fallback;
}

[[nodiscard]] float fraction(double value) {
    return std::isfinite(value) ? std::clamp(static_cast<float>(value), 0.0F, 1.0F) : 1;
}

[[nodiscard]] glm::vec3 colorOf(const std::vector<double>& list, float fallback) {
    const glm::vec3 color(
        numberAt(list, 0, fallback), numberAt(list, 1, fallback), numberAt(list, 2, fallback));
    return glm::clamp(color, glm::vec3(0), glm::vec3(1));
}

[[nodiscard]] const tinygltf::Value*
extensionOf(const tinygltf::ExtensionMap& extensions, const char* name) {
    const auto found = extensions.find(name);
    return found != extensions.end() && found->second.IsObject() ? &found->second : nullptr;
}

/// A number of an extension.
[[nodiscard]] float memberOf(const tinygltf::Value& object, const char* key, float fallback) {
    const tinygltf::Value& value = object.Get(key);
    return value.IsNumber() && std::isfinite(value.GetNumberAsDouble())
               ? static_cast<float>(value.GetNumberAsDouble())
               : fallback;
}

[[nodiscard]] glm::vec2
pairOf(const tinygltf::Value& object, const char* key, const glm::vec2& fallback) {
    const tinygltf::Value& list = object.Get(key);
    if (!list.IsArray() || list.ArrayLen() != 2 || !list.Get(0).IsNumber() ||
        !list.Get(1).IsNumber())
        return fallback;
    return {list.Get(0).GetNumberAsDouble(), list.Get(1).GetNumberAsDouble()};
}

/// KHR_texture_transform: scaled, turned, then moved; v is downwards there, too.
[[nodiscard]] glm::mat3 transformOf(const tinygltf::ExtensionMap& extensions) {
    const auto* found = extensionOf(extensions, "KHR_texture_transform");
    if (found == nullptr)
        return glm::mat3(1);
    const glm::vec2 offset = pairOf(*found, "offset", glm::vec2(0));
    const glm::vec2 scale = pairOf(*found, "scale", glm::vec2(1));
    const float angle = memberOf(*found, "rotation", 0);
    const glm::mat3 turned(
        {std::cos(angle), std::sin(angle), 0}, {-std::sin(angle), std::cos(angle), 0}, {0, 0, 1});
    return glm::mat3({1, 0, 0}, {0, 1, 0}, {offset, 1}) * turned *
           glm::mat3({scale.x, 0, 0}, {0, scale.y, 0}, {0, 0, 1});
}

/// The transform can name another set.
template <class Info> [[nodiscard]] int setOf(const Info& info) {
    const auto* transform = extensionOf(info.extensions, "KHR_texture_transform");
    const bool isNamed = transform != nullptr && transform->Get("texCoord").IsNumber();
    return isNamed ? transform->Get("texCoord").GetNumberAsInt() : info.texCoord;
}

[[nodiscard]] Wrap wrapOf(int mode) {
    switch (mode) {
    case TINYGLTF_TEXTURE_WRAP_CLAMP_TO_EDGE:
        return Wrap::clamp;
    case TINYGLTF_TEXTURE_WRAP_MIRRORED_REPEAT:
        return Wrap::mirror;
    default:
        return Wrap::repeat;
    }
}

/// The WebP variant of a picture comes first.
[[nodiscard]] int imageOf(const tinygltf::Texture& texture) {
    const auto* webp = extensionOf(texture.extensions, "EXT_texture_webp");
    if (webp != nullptr && webp->Get("source").IsNumber())
        return webp->Get("source").GetNumberAsInt();
    return texture.source;
}

[[nodiscard]] float emissiveStrength(const tinygltf::Material& material) {
    const auto* found = extensionOf(material.extensions, "KHR_materials_emissive_strength");
    return found != nullptr ? std::max(memberOf(*found, "emissiveStrength", 1), 0.0F) : 1;
}

[[nodiscard]] bool isIndex(int index, std::size_t size) {
    return index >= 0 && static_cast<std::size_t>(index) < size;
}

} // namespace

std::string percentDecoded(std::string_view uri) {
    std::string text;
    for (std::size_t i = 0; i < uri.size(); ++i) {
        unsigned value = 0;
        const char* const digits = uri.data() + i + 1;
        const bool isCode = uri[i] == '%' && i + 2 < uri.size() &&
                            std::from_chars(digits, digits + 2, value, 16).ptr == digits + 2;
        text += isCode ? static_cast<char>(value) : uri[i];
        i += isCode ? 2 : 0;
    }
    return text;
}

std::optional<std::size_t> GLTFMaterials::numberOf(int material) {
    if (!isIndex(material, model.materials.size()))
        return std::nullopt;
    const auto [entry, isNew] = materials.try_emplace(material, scene.materials.size());
    if (isNew)
        scene.materials.push_back(converted(model.materials[static_cast<std::size_t>(material)]));
    return entry->second;
}

int GLTFMaterials::uvSetOf(int material) const {
    return isIndex(material, model.materials.size())
               ? uvSetOf(model.materials[static_cast<std::size_t>(material)])
               : 0;
}

int GLTFMaterials::uvSetOf(const tinygltf::Material& source) {
    const auto& metallic = source.pbrMetallicRoughness;
    for (const tinygltf::TextureInfo* info :
         {&metallic.baseColorTexture,
          &metallic.metallicRoughnessTexture,
          &source.emissiveTexture}) {
        if (info->index >= 0)
            return setOf(*info);
    }
    if (source.normalTexture.index >= 0)
        return setOf(source.normalTexture);
    return source.occlusionTexture.index >= 0 ? setOf(source.occlusionTexture) : 0;
}

Material GLTFMaterials::converted(const tinygltf::Material& source) {
    const tinygltf::PbrMetallicRoughness& metallic = source.pbrMetallicRoughness;
    Material material;
    material.name = source.name;
    uvSet = uvSetOf(source);
    material.isDoubleSided = source.doubleSided;
    material.isUnlit = source.extensions.contains("KHR_materials_unlit");
    material.baseColor = {
        colorOf(metallic.baseColorFactor, 1), use(metallic.baseColorTexture, Channel::color)};
    if (source.alphaMode != "OPAQUE") {
        material.opacity = {
            fraction(numberAt(metallic.baseColorFactor, 3, 1)),
            use(metallic.baseColorTexture, Channel::alpha)};
    }
    if (source.alphaMode == "MASK")
        material.cutOutBelow = fraction(source.alphaCutoff);
    material.metalness = {
        fraction(metallic.metallicFactor), use(metallic.metallicRoughnessTexture, Channel::blue)};
    material.roughness = {
        fraction(metallic.roughnessFactor), use(metallic.metallicRoughnessTexture, Channel::green)};
    material.occlusion = {
        fraction(source.occlusionTexture.strength), use(source.occlusionTexture, Channel::red)};
    material.normal = {
        static_cast<float>(std::clamp(source.normalTexture.scale, -10.0, 10.0)),
        use(source.normalTexture, Channel::color)};
    material.emission = {
        colorOf(source.emissiveFactor, 0) * emissiveStrength(source),
        use(source.emissiveTexture, Channel::color)};
    return material;
}

template <class Info>
std::optional<PictureUse> GLTFMaterials::use(const Info& info, Channel channel) {
    if (!isIndex(info.index, model.textures.size()))
        return std::nullopt;
    const tinygltf::Texture& source = model.textures[static_cast<std::size_t>(info.index)];
    const auto texture = textureOf(imageOf(source));
    if (!texture)
        return std::nullopt;
    // With the wrong coordinates it would look worse than without the picture.
    if (setOf(info) != uvSet) {
        scene.warn(fmt::format(
            "the picture {} is left out, because it has texture coordinates of its own",
            scene.textures[*texture].name));
        return std::nullopt;
    }
    PictureUse result;
    result.texture = *texture;
    result.channel = channel;
    result.transform = transformOf(info.extensions);
    if (isIndex(source.sampler, model.samplers.size())) {
        const tinygltf::Sampler& sampler = model.samplers[static_cast<std::size_t>(source.sampler)];
        result.wrapS = wrapOf(sampler.wrapS);
        result.wrapT = wrapOf(sampler.wrapT);
    }
    return result;
}

std::optional<std::size_t> GLTFMaterials::textureOf(int image) {
    if (!isIndex(image, model.images.size()))
        return std::nullopt;
    const auto [entry, isNew] = textures.try_emplace(image, scene.textures.size());
    if (isNew) {
        scene.textures.push_back(converted(model.images[static_cast<std::size_t>(image)]));
        const Texture& texture = scene.textures.back();
        if (texture.isMissing())
            scene.warn("the picture " + texture.name + " is missing");
    }
    return entry->second;
}

/// A picture is in a buffer, in the text itself, or in a file.
Texture GLTFMaterials::converted(const tinygltf::Image& image) {
    Texture texture;
    texture.name = image.uri.empty() ? image.name : percentDecoded(image.uri);
    if (image.bufferView >= 0) {
        const auto bytes = viewBytes(model, image.bufferView);
        texture.bytes.assign(bytes.begin(), bytes.end());
    } else if (!image.image.empty()) {
        texture.bytes = image.image;
    } else if (auto file = files.findPicture(texture.name)) {
        texture.file = *std::move(file);
    }
    if (texture.name.empty())
        texture.name = fmt::format("no. {}", scene.textures.size() + 1);
    return texture;
}

} // namespace zelvo::object
