// SPDX-License-Identifier: MIT
#include "actions/Techniques.h"

#include "actions/ActionController.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/Process.h"
#include "platform/scene/SCNSceneRenderer.h"

#include <array>
#include <utility>

namespace zelvo::actions {

namespace {

using foundation::Result;
using scene::PropertyValue;
using scene::SCNTechnique;
using scene::SCNTechniquePtr;

constexpr auto kFiles = std::to_array<std::string_view>({"Wave", "Tiles", "Blur"});

struct BuiltRow {
    std::string_view name;
    std::string_view fragmentFunction;
};

// clang-format off
constexpr auto kBuilt = std::to_array<BuiltRow>({
    {"Invert",     "invertFragmentShader"    },
    {"Exposure",   "exposureFragmentShader"  },
    {"ColorShift", "colorShiftFragmentShader"},
    {"Glitch",     "glitchFragmentShader"    },
});

// clang-format on

PropertyValue quadDescription(std::string_view fragmentFunction) {
    const auto text = [](std::string_view value) {
        return PropertyValue::string(std::string(value));
    };
    // clang-format off
    const auto pass = PropertyValue::dictionary({
        {"draw",                text("DRAW_QUAD")                                           },
        {"metalVertexShader",   text("simpleVertexShader")                                  },
        {"metalFragmentShader", text(fragmentFunction)                                      },
        {"inputs",              PropertyValue::dictionary({{"colorSampler", text("COLOR")}})},
        {"outputs",             PropertyValue::dictionary({{"color", text("COLOR")}})       }
    });
    return PropertyValue::dictionary({
        {"symbols",  PropertyValue::dictionary({})              },
        {"passes",   PropertyValue::dictionary({{"pass", pass}})},
        {"sequence", PropertyValue::array({text("pass")})       }
    });
    // clang-format on
}

Result<SCNTechniquePtr> fromFile(const std::filesystem::path& file) {
    const auto description = scene::readPropertyListFile(file);
    if (!description)
        return tl::unexpected(description.error());
    auto technique = SCNTechnique::techniqueWithDictionary(*description);
    if (!technique)
        return tl::unexpected(technique.error().in(file.filename().string()));
    return technique;
}

} // namespace

Techniques::Techniques(ActionController& owner)
    : controller(owner) {
    loadTechniques();
}

void Techniques::loadTechniques() {
    const auto take = [this](std::string_view name, const Result<SCNTechniquePtr>& technique) {
        if (!technique)
            foundation::endWithoutResource(technique.error().message);
        allTechniques.emplace(name, *technique);
    };
    for (const std::string_view name : kFiles) {
        const auto resource = std::string(name) + ".plist";
        const auto file = foundation::mainBundle().path(resource);
        if (file.empty())
            foundation::endWithoutResource(resource + " is missing");
        take(name, fromFile(file));
    }
    for (const BuiltRow& row : kBuilt)
        take(
            row.name, SCNTechnique::techniqueWithDictionary(quadDescription(row.fragmentFunction)));
}

std::optional<Techniques::Hold>
Techniques::beginTechnique(std::string_view name, std::string_view title) {
    const auto found = allTechniques.find(name);
    if (found == allTechniques.end())
        return std::nullopt;
    Hold hold{found->second->copy(), controller.newIdentifier()};
    controller.addAction(
        [this, copy = hold.technique] {
            current.push_back(copy);
            applyTechniques();
        },
        hold.identifier,
        std::string(title),
        RegisterUndo::yes);
    return hold;
}

void Techniques::endTechnique(const Hold& hold) {
    controller.addAction(
        [this, copy = hold.technique] {
            std::erase(current, copy);
            applyTechniques();
        },
        hold.identifier,
        "",
        RegisterUndo::no);
}

void Techniques::endAll() {
    current.clear();
    applyTechniques();
}

void Techniques::applyTechniques() const {
    if (auto* const renderer = controller.model().currentRenderer(); renderer != nullptr)
        renderer->technique = SCNTechnique::techniqueBySequencingTechniques(current);
}

} // namespace zelvo::actions
