// SPDX-License-Identifier: MIT
#include "platform/scene/ParticleFile.h"

#include "platform/foundation/Folders.h"
#include "platform/foundation/Process.h"
#include "platform/image/reading/ImageNamed.h"
#include "platform/scene/SCNParticleSystem.h"
#include "platform/scene/SceneFile.h"

#include <fmt/format.h>
#include <glm/geometric.hpp>

#include <array>
#include <fstream>
#include <iterator>

namespace zelvo::scene {

namespace {

constexpr Range kRate{0, 20'000};
constexpr Range kSeconds{0, 600};
constexpr Range kSpan{0.001, 60};
constexpr Range kLength{0, 1e5};
constexpr Range kAny{-1e6, 1e6};
constexpr Range kFactor{0, 100};
constexpr Range kSeed{0, 1e9};
constexpr std::size_t kMaxKeys = 16;

struct NumberRow {
    std::string_view key;
    float SCNParticleSystem::*field;
    Range range;
};

using S = SCNParticleSystem;

// clang-format off
constexpr auto kNumbers = std::to_array<NumberRow>({
    {"birthRate",                        &S::birthRate,                        kRate   },
    {"birthRateVariation",               &S::birthRateVariation,               kRate   },
    {"warmupDuration",                   &S::warmupDuration,                   kSeconds},
    {"emissionDuration",                 &S::emissionDuration,                 kSpan   },
    {"idleDuration",                     &S::idleDuration,                     kSeconds},
    {"speedFactor",                      &S::speedFactor,                      kFactor },
    {"spreadingAngle",                   &S::spreadingAngle,                   {0, 360}},
    {"particleLifeSpan",                 &S::particleLifeSpan,                 kSpan   },
    {"particleLifeSpanVariation",        &S::particleLifeSpanVariation,        kSpan   },
    {"particleVelocity",                 &S::particleVelocity,                 kAny    },
    {"particleVelocityVariation",        &S::particleVelocityVariation,        kLength },
    {"dampingFactor",                    &S::dampingFactor,                    kFactor },
    {"wander",                           &S::wander,                           kLength },
    {"wanderFrequency",                  &S::wanderFrequency,                  kFactor },
    {"particleMass",                     &S::particleMass,                     kLength },
    {"particleSize",                     &S::particleSize,                     kLength },
    {"particleSizeVariation",            &S::particleSizeVariation,            kLength },
    {"particleAngle",                    &S::particleAngle,                    kAny    },
    {"particleAngleVariation",           &S::particleAngleVariation,           kAny    },
    {"particleAngularVelocity",          &S::particleAngularVelocity,          kAny    },
    {"particleAngularVelocityVariation", &S::particleAngularVelocityVariation, kAny    },
    {"stretchFactor",                    &S::stretchFactor,                    kFactor },
});

// clang-format on

struct FlagRow {
    std::string_view key;
    bool SCNParticleSystem::*field;
};

// clang-format off
constexpr auto kFlags = std::to_array<FlagRow>({
    {"loops",                   &S::loops                  },
    {"isLocal",                 &S::isLocal                },
    {"affectedByGravity",       &S::affectedByGravity      },
    {"affectedByPhysicsFields", &S::affectedByPhysicsFields},
    {"lightingEnabled",         &S::lightingEnabled        },
    {"blackPassEnabled",        &S::blackPassEnabled       },
});
constexpr auto kShapeKinds = std::to_array<Named<ParticleShapeKind>>({
    {"point",    ParticleShapeKind::point   },
    {"sphere",   ParticleShapeKind::sphere  },
    {"box",      ParticleShapeKind::box     },
    {"plane",    ParticleShapeKind::plane   },
    {"cylinder", ParticleShapeKind::cylinder},
});
// clang-format on

constexpr auto kLocations = std::to_array<Named<ParticleBirthLocation>>({
    {"volume", ParticleBirthLocation::volume},
    {"surface", ParticleBirthLocation::surface},
});

constexpr auto kDirections = std::to_array<Named<ParticleBirthDirection>>({
    {"constant", ParticleBirthDirection::constant},
    {"outwards", ParticleBirthDirection::outwards},
});

constexpr auto kBlendModes = std::to_array<Named<ParticleBlendMode>>({
    {"alpha", ParticleBlendMode::alpha},
    {"additive", ParticleBlendMode::additive},
});

glm::vec4 vectorOf(const image::Color& color) {
    return {color.red, color.green, color.blue, color.alpha};
}

void readShape(JsonObject& object, SCNParticleSystem& system, Problems& problems) {
    const JsonValue* value = object.find("emitterShape");
    if (value == nullptr)
        return;
    JsonObject shape(*value, object.placeOf("emitterShape"), problems);
    const auto kind = shape.oneOf("type", kShapeKinds);
    if (!kind) {
        shape.report("type", "is missing");
        return;
    }
    const auto half = [&shape](std::string_view key) {
        return static_cast<float>(shape.number(key, kLength).value_or(0)) / 2;
    };
    system.emitterShape.kind = *kind;
    system.emitterShape.half = {half("width"), half("height"), half("length")};
    if (const auto radius = shape.number("radius", kLength))
        system.emitterShape.half.x = static_cast<float>(*radius);
    shape.finish();
}

/// Adds a key to a curve; keys must be in ascending order.
template <class T> void addKey(JsonObject& key, ParticleCurve<T>& curve, const T& value) {
    const auto at = static_cast<float>(key.number("at", {0, 1}).value_or(0));
    if (curve.size() >= kMaxKeys || (!curve.empty() && at <= curve.back().at))
        key.report("at", fmt::format("must be after the one before, {} keys at most", kMaxKeys));
    curve.push_back({at, value});
    key.finish();
}

void readCurves(JsonObject& object, SCNParticleSystem& system, Problems& problems) {
    object.forEach("sizeOverLife", [&](const JsonValue& value, const std::string& place) {
        JsonObject key(value, place, problems);
        const auto size = key.number("size", kFactor);
        addKey(key, system.sizeOverLife, static_cast<float>(size.value_or(1)));
    });
    object.forEach("colorOverLife", [&](const JsonValue& value, const std::string& place) {
        JsonObject key(value, place, problems);
        const auto color = readColor(key, "color");
        addKey(key, system.colorOverLife, vectorOf(color.value_or(image::Color::white(1))));
    });
}

void readColors(JsonObject& object, SCNParticleSystem& system, Problems& problems) {
    std::vector<glm::vec4> colors;
    object.forEach("particleColors", [&](const JsonValue& value, const std::string& place) {
        const auto color =
            value.kind == JsonValue::Kind::string ? parseColor(value.string) : std::nullopt;
        if (!color || colors.size() >= kMaxKeys)
            problems.add(
                value.line,
                fmt::format(
                    R"({} must be a colour like "#RRGGBB" or "#RRGGBBAA", and there are {} at most)",
                    place,
                    kMaxKeys));
        colors.push_back(vectorOf(color.value_or(image::Color::white(1))));
    });
    if (!colors.empty())
        system.particleColors = std::move(colors);
}

void readLook(JsonObject& object, SCNParticleSystem& system, Problems& problems) {
    if (const auto mode = object.oneOf("blendMode", kBlendModes))
        system.blendMode = *mode;
    readColors(object, system, problems);
    readCurves(object, system, problems);
    const auto name = object.string("particleImage");
    if (!name)
        return;
    const auto picture = image::imageNamed(*name);
    if (!picture)
        return object.report(
            "particleImage", "names no usable picture: " + picture.error().message);
    system.particleImage = *picture;
}

SCNParticleSystemPtr readSystem(JsonObject& object, Problems& problems) {
    auto system = std::make_shared<SCNParticleSystem>();
    for (const NumberRow& row : kNumbers) {
        if (const auto number = object.number(row.key, row.range))
            (*system).*row.field = static_cast<float>(*number);
    }
    for (const FlagRow& row : kFlags) {
        if (const auto flag = object.boolean(row.key))
            (*system).*row.field = *flag;
    }
    if (const auto location = object.oneOf("birthLocation", kLocations))
        system->birthLocation = *location;
    if (const auto direction = object.oneOf("birthDirection", kDirections))
        system->birthDirection = *direction;
    if (const auto direction = object.vector3("emittingDirection", kCoordinate))
        system->emittingDirection = *direction;
    if (glm::length(system->emittingDirection) < 1e-3f)
        object.report("emittingDirection", "must point somewhere");
    if (const auto position = object.vector3("emitterPosition", kCoordinate))
        system->emitterPosition = *position;
    if (const auto acceleration = object.vector3("acceleration", kCoordinate))
        system->acceleration = *acceleration;
    if (const auto seed = object.integer("seed", kSeed))
        system->seed = static_cast<std::uint64_t>(*seed);
    readShape(object, *system, problems);
    readLook(object, *system, problems);
    if (system->mostAlive() > kMaxParticles)
        object.report("birthRate", fmt::format("makes over {} particles", kMaxParticles));
    object.finish();
    return system;
}

} // namespace

void readParticles(JsonObject& object, SCNNode& node, Problems& problems) {
    constexpr std::size_t kMaxSystems = 64;
    object.forEach("particles", [&](const JsonValue& value, const std::string& place) {
        JsonObject entry(value, place, problems);
        const SCNParticleSystemPtr system = readSystem(entry, problems);
        if (!problems.isEmpty())
            return;
        if (node.particleSystems().size() >= kMaxSystems) {
            problems.add(value.line, fmt::format("over {} systems on a node", kMaxSystems));
            return;
        }
        node.addParticleSystem(system);
    });
}

foundation::Result<SCNParticleSystemPtr>
SCNParticleSystem::fromJSON(const std::string& text, const std::string& name) {
    const auto document = foundation::parseJson(text);
    if (!document)
        return failureOf(document.error(), name);
    Problems problems;
    JsonObject object(*document, "the particles", problems);
    SCNParticleSystemPtr system = readSystem(object, problems);
    if (!problems.isEmpty())
        return failureOf(problems.sorted(1).front(), name);
    return system;
}

SCNParticleSystemPtr SCNParticleSystem::named(const std::string& name) {
    const std::filesystem::path file = foundation::mainBundle().path(name);
    std::ifstream in(file, std::ios::binary);
    if (file.empty() || !in.good())
        foundation::endWithoutResource(name + " is missing");
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    auto system = fromJSON(text, file.filename().string());
    if (!system)
        foundation::endWithoutResource(system.error().message);
    return std::move(*system);
}

} // namespace zelvo::scene
