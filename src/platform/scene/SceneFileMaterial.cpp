// SPDX-License-Identifier: MIT
#include "platform/image/reading/ImageNamed.h"
#include "platform/scene/SceneFile.h"

#include <fmt/format.h>
#include <glm/gtc/matrix_transform.hpp>

#include <array>
#include <charconv>
#include <limits>

namespace zelvo::scene {

namespace {

constexpr Range kFraction{0, 1};
constexpr Range kIntensity{0, std::numeric_limits<double>::infinity()};

constexpr auto kLightingModels = std::to_array<Named<SCNLightingModel>>(
    {{"physicallyBased", SCNLightingModel::physicallyBased},
     {"constant", SCNLightingModel::constant}});

// clang-format off
constexpr auto kBlendModes = std::to_array<Named<SCNBlendMode>>({
    {"alpha",    SCNBlendMode::alpha   },
    {"add",      SCNBlendMode::add     },
    {"subtract", SCNBlendMode::subtract},
    {"multiply", SCNBlendMode::multiply},
    {"screen",   SCNBlendMode::screen  },
    {"replace",  SCNBlendMode::replace }
});
constexpr auto kSlots = std::to_array<Named<SCNMaterialProperty SCNMaterial::*>>({
    {"diffuse",          &SCNMaterial::diffuse         },
    {"ambient",          &SCNMaterial::ambient         },
    {"specular",         &SCNMaterial::specular        },
    {"emission",         &SCNMaterial::emission        },
    {"transparent",      &SCNMaterial::transparent     },
    {"reflective",       &SCNMaterial::reflective      },
    {"multiply",         &SCNMaterial::multiply        },
    {"normal",           &SCNMaterial::normal          },
    {"displacement",     &SCNMaterial::displacement    },
    {"ambientOcclusion", &SCNMaterial::ambientOcclusion},
    {"selfIllumination", &SCNMaterial::selfIllumination},
    {"metalness",        &SCNMaterial::metalness       },
    {"roughness",        &SCNMaterial::roughness       }
});

// clang-format on

void readPicture(JsonObject& slot, SCNMaterialProperty& property) {
    const std::optional<std::string> name = slot.string("image");
    if (!name)
        return;
    const auto picture = image::imageNamed(*name);
    if (!picture)
        return slot.report("image", "names no usable picture: " + picture.error().message);
    property.setImage(*picture);
    property.wrapS = SCNWrapMode::repeat;
    property.wrapT = SCNWrapMode::repeat;
}

} // namespace

std::optional<image::Color> parseColor(std::string_view text) {
    constexpr std::size_t kOpaque = 7; // "#RRGGBB"
    std::optional<image::Color> color = image::Color::parse(text.substr(0, kOpaque));
    if (!color || text.size() == kOpaque)
        return color;
    unsigned alpha = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data() + kOpaque, end, alpha, 16);
    if (text.size() != kOpaque + 2 || read.ec != std::errc() || read.ptr != end)
        return {};
    color->alpha = static_cast<float>(alpha) / 255.0f;
    return color;
}

std::optional<image::Color> readColor(JsonObject& object, std::string_view key) {
    const std::optional<std::string> text = object.string(key);
    if (!text)
        return {};
    const std::optional<image::Color> color = parseColor(*text);
    if (!color)
        object.report(key, R"(must be a colour like "#RRGGBB" or "#RRGGBBAA")");
    return color;
}

SCNMaterialProperty readProperty(JsonObject& object, std::string_view key, Problems& problems) {
    SCNMaterialProperty property;
    const JsonValue* value = object.find(key);
    if (value == nullptr)
        return property;
    if (value->kind == JsonValue::Kind::string) {
        if (const auto color = readColor(object, key))
            property.contents = *color;
        return property;
    }
    if (value->kind == JsonValue::Kind::number) {
        if (const auto number = object.number(key, kFraction))
            property.contents = static_cast<float>(*number);
        return property;
    }
    if (value->kind != JsonValue::Kind::object) {
        object.report(key, "must be a colour, a number or an object");
        return property;
    }
    JsonObject slot(*value, object.placeOf(key), problems);
    readPicture(slot, property);
    if (const auto color = readColor(slot, "color")) {
        if (!property.isEmpty())
            slot.report("color", "cannot stand beside \"image\"");
        property.contents = *color;
    }
    if (const auto intensity = slot.number("intensity", kIntensity))
        property.intensity = static_cast<float>(*intensity);
    if (const auto scale = slot.vector2("scale", kCoordinate))
        property.contentsTransform = glm::scale(glm::mat4(1), glm::vec3(glm::vec2(*scale), 1));
    slot.finish();
    if (property.isEmpty())
        object.report(key, R"(needs "image" or "color")");
    return property;
}

SCNFloorLook readFloor(const JsonValue& value, const std::string& place, Problems& problems) {
    SCNFloorLook floor;
    JsonObject object(value, place, problems);
    const auto read = [&](std::string_view key, Range range, float& target) {
        if (const auto number = object.number(key, range))
            target = static_cast<float>(*number);
    };
    read("mirror", kFraction, floor.mirror);
    read("blur", kFraction, floor.blur);
    read("contact", kFraction, floor.contact);
    read("height", kCoordinate, floor.height);
    object.finish();
    return floor;
}

SCNMaterialPtr readMaterial(const JsonValue& value, const std::string& place, Problems& problems) {
    auto material = std::make_shared<SCNMaterial>();
    JsonObject object(value, place, problems);
    if (const auto model = object.oneOf("lightingModel", kLightingModels))
        material->lightingModelName = *model;
    if (const auto mode = object.oneOf("blendMode", kBlendModes))
        material->blendMode = *mode;
    if (const auto transparency = object.number("transparency", kFraction))
        material->transparency = static_cast<float>(*transparency);
    if (const auto doubleSided = object.boolean("doubleSided"))
        material->isDoubleSided = *doubleSided;
    if (const JsonValue* floor = object.find("floor"))
        material->floor = readFloor(*floor, object.placeOf("floor"), problems);
    for (const auto& slot : kSlots) {
        (*material).*slot.value = readProperty(object, slot.name, problems);
    }
    object.finish();
    return material;
}

} // namespace zelvo::scene
