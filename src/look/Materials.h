// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNMaterial.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <variant>

// The tables of all materials: surfaces, and the pairs that the user chooses. How to add one:
// docs/adding-a-material.md.

namespace zelvo::look {

enum class Surface {
    plain,
    flat,
    plate,
    plastic,
    iron,
    rock,
    circuitBoard,
    grained,
    oldMetal,
    cracks,
    reflecting,
    dynamic
};

/// The content of one slot in a recipe: a picture's name, a number or a colour.
struct SlotRecipe {
    /// Null: the recipe ends here.
    scene::SCNMaterialProperty scene::SCNMaterial::*slot = nullptr;
    std::variant<std::string_view, float, image::Color> contents;
    float intensity = 1;
};

/// What a surface has beyond its slots.
struct Finish {
    scene::SCNMaterial::Rim rim{1.0f, 1.0f};
    float clearCoat = 0;
    float clearCoatRelief = 0;
};

struct SurfaceRecipe {
    Surface surface;
    std::string_view name;
    scene::SCNLightingModel lightingModel;
    std::array<SlotRecipe, 3> slots;
    Finish finish{};
};

// Metals shine most along their edges; stone does not.
inline constexpr Finish kMetal{.rim = {0.12f, 0.6f}};
inline constexpr Finish kMatte{.rim = {1.0f, 0.6f}};
inline constexpr Finish kLacquered{.rim = {0.2f, 0.8f}, .clearCoat = 1.0f};
inline constexpr Finish kEnamelled{
    .rim = {0.12f, 0.6f}, .clearCoat = 1.0f, .clearCoatRelief = 1.0f};
inline constexpr Finish kVarnished{
    .rim = {0.12f, 0.5f}, .clearCoat = 0.6f, .clearCoatRelief = 0.3f};

// clang-format off
inline constexpr auto kSurfaces = [] {
    using Slots = scene::SCNMaterial;
    using namespace std::string_view_literals;
    constexpr auto kPhysical = scene::SCNLightingModel::physicallyBased;
    constexpr auto kConstant = scene::SCNLightingModel::constant;
    return std::to_array<SurfaceRecipe>({
        {Surface::plain,        "Plain",        kPhysical, {}, kMatte},
        {Surface::flat,         "Flat",         kConstant, {}},
        {Surface::plate,        "Plate",        kPhysical,
         {{{&Slots::normal, "QX_NoiseNormal_21.jpg"sv}}}, kEnamelled},
        {Surface::plastic,      "Plastic",      kPhysical,
         {{{&Slots::normal, "plastic_normal.png"sv}}}, kLacquered},
        {Surface::iron,         "Iron",         kPhysical,
         {{{&Slots::roughness, "scratches_roughness.jpg"sv},
           {&Slots::metalness, "scratches_metal.jpg"sv},
           {&Slots::ambientOcclusion, "scratches_ambientOcclusion.jpg"sv}}}, kMetal},
        {Surface::rock,         "Rock",         kPhysical,
         {{{&Slots::roughness, "rock.jpg"sv},
           {&Slots::normal, "rock_normal.jpg"sv},
           {&Slots::ambientOcclusion, "rock_ambientOcclusion.jpg"sv}}}},
        {Surface::circuitBoard, "CircuitBoard", kPhysical,
         {{{&Slots::roughness, "scratches_roughness.jpg"sv},
           {&Slots::metalness, "scratches_metal.jpg"sv},
           {&Slots::normal, "circuits_normal.jpg"sv}}}, kMetal},
        {Surface::grained,      "Grained",      kPhysical,
         {{{&Slots::metalness, 0.5f},
           {&Slots::normal, "seamlesstexture14_500_NRM.png"sv}}}, kVarnished},
        {Surface::oldMetal,     "Old Metal",    kPhysical,
         {{{&Slots::roughness, "scratches_roughness.jpg"sv},
           {&Slots::metalness, image::Color::white(0.88f)},
           {&Slots::normal, "scratches_normal.jpg"sv, 0.3f}}}, kMetal},
        {Surface::cracks,       "Cracked",      kPhysical,
         {{{&Slots::ambientOcclusion, "cracks_ambientocclusion.png"sv},
           {&Slots::specular, "cracks_specular.png"sv},
           {&Slots::normal, "cracks_normal.png"sv, 0.9f}}}},
        {Surface::reflecting,   "Reflecting",   kConstant,
         {{{&Slots::reflective, "buildings_night.png"sv, 0.35f}}}, kMetal},
        // Both pictures are only read by the shader modifier.
        {Surface::dynamic,      "Dynamic",      kPhysical,
         {{{&Slots::diffuse, "QX_Noise_04.jpg"sv},
           {&Slots::specular, "QX_NoiseNormal_05.jpg"sv}}}},
    });
}();
// clang-format on

/// The names of the material pairs. There is no pair for `bigBand`.
enum class XMATClasses : std::uint8_t {
    plate,
    bigBand,
    ironCircuit,
    ironPlastic,
    plain,
    flat,
    plastic,
    iron,
    rock,
    circuits,
    grained,
    oldMetal,
    dynamic,
    cracked,
    reflecting,
    plasticReflecting,
    dynamicFlat,
    flatDynamic
};

/// Which nodes have a pair.
enum class PairUse { everyNode, textsOnly };

struct PairRow {
    XMATClasses name;
    std::string_view title;
    Surface front;
    Surface band;
    PairUse use;
    /// Typical colours, for the sheet of all materials.
    std::uint32_t sampleFront, sampleBand;
};

/// All pairs, in the order in which a node shows them: first those for all nodes, then those for
/// texts.
// clang-format off
inline constexpr auto kPairs = [] {
    using Name = XMATClasses;
    using S = Surface;
    using enum PairUse;
    return std::to_array<PairRow>({
        {Name::flat,              "Flat",                 S::flat,         S::flat,         everyNode, 0xE6B219, 0xE64C19},
        {Name::plain,             "Plain",                S::plain,        S::plain,        everyNode, 0xF2EFE8, 0xE64C19},
        {Name::plastic,           "Plastic",              S::plastic,      S::plastic,      everyNode, 0xE6194C, 0xE6B219},
        {Name::iron,              "Iron",                 S::iron,         S::iron,         everyNode, 0xDDE2E8, 0xB8C4D6},
        {Name::plate,             "Plate",                S::plate,        S::plate,        everyNode, 0xE6A03C, 0xB06A28},
        {Name::dynamic,           "Dynamic",              S::dynamic,      S::dynamic,      everyNode, 0xFF7A19, 0xE62A19},
        {Name::circuits,          "Circuits",             S::circuitBoard, S::circuitBoard, everyNode, 0x2FB37A, 0xE6B219},
        {Name::rock,              "Rock",                 S::rock,         S::rock,         everyNode, 0xB9A48C, 0x8C7A66},
        {Name::grained,           "Grained",              S::grained,      S::grained,      everyNode, 0x9C5821, 0x4A3222},
        {Name::oldMetal,          "Old Metal",            S::oldMetal,     S::oldMetal,     everyNode, 0xC89A5A, 0x8A5A30},
        {Name::cracked,           "Cracked",              S::cracks,       S::cracks,       everyNode, 0xD0713E, 0x6E4630},
        {Name::reflecting,        "Reflecting",           S::reflecting,   S::reflecting,   everyNode, 0x16357C, 0x0C1C44},
        {Name::ironCircuit,       "Iron / Circuit",       S::iron,         S::circuitBoard, textsOnly, 0xDDE2E8, 0x2FB37A},
        {Name::ironPlastic,       "Iron / Plastic",       S::iron,         S::plastic,      textsOnly, 0xDDE2E8, 0xE6194C},
        {Name::plasticReflecting, "Plastic / Reflecting", S::plastic,      S::reflecting,   textsOnly, 0xE6B219, 0x16357C},
        {Name::dynamicFlat,       "Dynamic / Flat",       S::dynamic,      S::flat,         textsOnly, 0x19CCE6, 0x0C1C44},
        {Name::flatDynamic,       "Flat / Dynamic",       S::flat,         S::dynamic,      textsOnly, 0x14141C, 0xE619BF},
    });
}();
// clang-format on

} // namespace zelvo::look
