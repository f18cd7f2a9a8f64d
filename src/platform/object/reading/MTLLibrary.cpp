// SPDX-License-Identifier: MIT
#include "platform/object/reading/MTLLibrary.h"

#include "platform/image/Color.h"
#include "platform/object/reading/MTLPictures.h"
#include "platform/object/reading/Words.h"

#include <glm/common.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

namespace zelvo::object {

namespace {

template <class Kind> struct Key {
    std::string_view name;
    Kind kind;
};

// clang-format off
constexpr auto kNumberKeys = std::to_array<Key<MTLNumber>>({
    {"d",     dissolve        },
    {"tr",    transparency    },
    {"ns",    exponent        },
    {"pr",    physicalRough   },
    {"pm",    physicalMetal   },
    {"illum", illumination    },
});
constexpr auto kColorKeys = std::to_array<Key<MTLColor>>({
    {"kd", diffuse }, {"ks", specular}, {"ke", emissive},
});
constexpr auto kMapKeys = std::to_array<Key<MTLMap>>({
    {"map_kd",   diffuseMap     },
    {"map_ke",   emissiveMap    },
    {"map_pr",   roughMap       },
    {"map_pm",   metalMap       },
    {"map_d",    dissolveMap    },
    {"map_tr",   transparencyMap},
    {"bump",     bumpMap        },
    {"map_bump", bumpMap        },
    {"norm",     normalMap      },
    {"map_kn",   normalMap      },
});

// clang-format on

/// Three numbers, or one for a grey. Nothing for a spectrum or another system of colors.
[[nodiscard]] std::optional<glm::vec3> readColor(Words& words) {
    const auto red = words.number();
    if (!red)
        return std::nullopt;
    const auto green = words.number();
    const auto blue = words.number();
    const glm::vec3 color(*red, green.value_or(*red), blue.value_or(green.value_or(*red)));
    // Some programs write 0 to 255.
    const bool isWhole = color == glm::floor(color);
    const float most = std::max({color.r, color.g, color.b});
    constexpr float kBytes = 255;
    return glm::clamp(most > 1 && isWhole ? color / kBytes : color, glm::vec3(0), glm::vec3(1));
}

[[nodiscard]] glm::vec3 linear(const glm::vec3& color) {
    return {
        image::linearFromSRGB(color.r),
        image::linearFromSRGB(color.g),
        image::linearFromSRGB(color.b)};
}

[[nodiscard]] bool isGrey(const glm::vec3& color) {
    constexpr float kSame = 0.01F;
    return std::abs(color.r - color.g) < kSame && std::abs(color.g - color.b) < kSame;
}

template <class Keys> [[nodiscard]] auto keyNamed(const Keys& keys, std::string_view name) {
    using Row = typename Keys::value_type;
    const auto* found = std::ranges::find(keys, name, &Row::name);
    return found != keys.end() ? std::optional(found->kind) : std::nullopt;
}

void readStatement(std::string_view keyword, Words& words, MTLStatements& material) {
    if (const auto number = keyNamed(kNumberKeys, keyword)) {
        auto value = words.number();
        if (!value && keyword == "d") { // "d -halo 0.5"
            (void)words.next();
            value = words.number();
        }
        if (value)
            material.numbers[*number] = static_cast<float>(*value);
    } else if (const auto color = keyNamed(kColorKeys, keyword)) {
        if (const auto value = readColor(words))
            material.colors[*color] = *value;
    } else if (const auto map = keyNamed(kMapKeys, keyword)) {
        MTLPicture picture = readMTLPicture(words.rest());
        if (!picture.name.empty())
            material.maps[*map] = std::move(picture);
    }
}

/// Turns what is written into a material.
class Converter {
public:
    Converter(const MTLStatements& statements, NeighbourFiles& neighbours, ObjectScene& target)
        : written(statements)
        , files(neighbours)
        , scene(target) {}

    [[nodiscard]] Material convert(const std::string& name) {
        material.name = name;
        material.isDoubleSided = true; // many programs do not care how faces turn
        setBaseColor();
        setOpacity();
        material.roughness = {roughness(), use(roughMap, Channel::brightness)};
        material.metalness = {
            fraction(physicalMetal, written.maps[metalMap] ? 1.0F : 0.0F),
            use(metalMap, Channel::brightness)};
        material.emission = {emission(), use(emissiveMap, Channel::color)};
        setNormal();
        return std::move(material);
    }

private:
    [[nodiscard]] float fraction(MTLNumber number, float fallback) const {
        return std::clamp(written.numbers[number].value_or(fallback), 0.0F, 1.0F);
    }

    /// A grey or black beside a picture is an exporter's leftover: the picture alone is meant.
    void setBaseColor() {
        constexpr float kDefault = 0.8F;
        const auto& color = written.colors[diffuse];
        const bool hasPicture = written.maps[diffuseMap].has_value();
        if (hasPicture) {
            material.baseColor.factor = color && !isGrey(*color) ? linear(*color) : glm::vec3(1);
        } else {
            material.baseColor.factor = linear(color.value_or(glm::vec3(kDefault)));
        }
        material.baseColor.picture = use(diffuseMap, Channel::color);
    }

    void setOpacity() {
        Slot<float>& opacity = material.opacity;
        opacity.factor = fraction(dissolve, 1 - fraction(transparency, 0));
        if (opacity.factor == 0) // nobody makes a thing that is never seen
            opacity.factor = 1;
        if (written.maps[dissolveMap]) {
            opacity.picture = use(dissolveMap, Channel::alphaOrBrightness);
            if (material.baseColor.picture && opacity.picture &&
                opacity.picture->texture == material.baseColor.picture->texture) {
                opacity.picture->channel = Channel::alpha;
            }
        } else if (written.maps[transparencyMap]) {
            opacity.picture = use(transparencyMap, Channel::brightness);
            opacity.picture->scale = glm::vec4(-1);
            opacity.picture->bias = glm::vec4(1);
        } else if (material.baseColor.picture) {
            opacity.picture = material.baseColor.picture;
            opacity.picture->channel = Channel::alphaIfVaried;
        }
    }

    [[nodiscard]] float roughness() const {
        if (written.numbers[physicalRough] || written.maps[roughMap])
            return fraction(physicalRough, 1);
        const auto& model = written.numbers[illumination];
        const auto& highlight = written.colors[specular];
        if ((model && *model < 2) || (highlight && *highlight == glm::vec3(0)))
            return 1;
        constexpr float kMaxExponent = 1000;
        constexpr float kDefault = 0.5F;
        const auto& exponent = written.numbers[MTLNumber::exponent];
        return exponent ? std::sqrt(2 / (std::clamp(*exponent, 0.0F, kMaxExponent) + 2)) : kDefault;
    }

    [[nodiscard]] glm::vec3 emission() const {
        const glm::vec3 color = written.colors[emissive].value_or(glm::vec3(0));
        const bool isOff = color == glm::vec3(0);
        return isOff && written.maps[emissiveMap] ? glm::vec3(1) : linear(color);
    }

    void setNormal() {
        const MTLMap kind = written.maps[normalMap] ? normalMap : bumpMap;
        material.normal.picture = use(kind, Channel::color);
        if (!material.normal.picture)
            return;
        material.normal.factor = written.maps[kind]->strength;
        material.normalPicture =
            kind == normalMap ? NormalPicture::tangentSpace : NormalPicture::unknown;
    }

    [[nodiscard]] std::optional<PictureUse> use(MTLMap map, Channel channel) {
        const auto& picture = written.maps[map];
        if (!picture)
            return std::nullopt;
        PictureUse result;
        result.texture = textureNamed(picture->name);
        result.channel = channelOf(*picture, channel);
        if (picture->isClamped) {
            result.wrapS = Wrap::clamp;
            result.wrapT = Wrap::clamp;
        }
        result.transform = withVDownwards(
            glm::mat3({picture->scale.x, 0, 0}, {0, picture->scale.y, 0}, {picture->offset, 1}));
        result.scale = glm::vec4(picture->gain);
        result.bias = glm::vec4(picture->base);
        return result;
    }

    [[nodiscard]] static Channel channelOf(const MTLPicture& picture, Channel fallback) {
        switch (picture.channel) {
        case 'r':
            return Channel::red;
        case 'g':
            return Channel::green;
        case 'b':
            return Channel::blue;
        case 'm':
            return Channel::alpha;
        case 'l':
            return Channel::brightness;
        default:
            return fallback;
        }
    }

    [[nodiscard]] std::size_t textureNamed(const std::string& name) {
        const auto file = files.findPicture(name);
        const auto found = std::ranges::find_if(scene.textures, [&](const Texture& texture) {
            return file ? texture.file == *file : texture.name == name && texture.isMissing();
        });
        if (found != scene.textures.end())
            return static_cast<std::size_t>(found - scene.textures.begin());
        if (!file)
            scene.warn("the picture " + name + " is missing");
        scene.textures.push_back({name, file.value_or(std::filesystem::path()), {}});
        return scene.textures.size() - 1;
    }

    const MTLStatements& written;
    NeighbourFiles& files;
    ObjectScene& scene;
    Material material;
};

} // namespace

void MTLLibrary::read(ByteSource source) {
    MTLStatements* current = nullptr;
    TextLines lines(std::move(source));
    while (const auto line = lines.next()) {
        Words words(*line);
        const std::string keyword = lowered(words.next());
        if (keyword == "newmtl") {
            current = nullptr;
            if (materials.size() < Limits::kMaxMaterials)
                current = &(materials[std::string(words.name())] = MTLStatements());
        } else if (current != nullptr) {
            readStatement(keyword, words, *current);
        }
    }
}

std::optional<Material>
MTLLibrary::material(std::string_view name, NeighbourFiles& files, ObjectScene& scene) const {
    const auto found = materials.find(name);
    if (found == materials.end())
        return std::nullopt;
    return Converter(found->second, files, scene).convert(found->first);
}

} // namespace zelvo::object
