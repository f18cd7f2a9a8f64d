// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"
#include "platform/usd/ShaderNetwork.h"
#include "platform/usd/Stage.h"

#include <glm/mat3x3.hpp>
#include <glm/vec4.hpp>

#include <map>
#include <optional>
#include <string>

namespace zelvo::usd {

/// What a texture node gives.
struct TextureValue {
    std::optional<object::PictureUse> picture; ///< nothing if the picture is missing
    std::optional<glm::vec4> fallback;         ///< what is authored for that case
    std::string uvName; ///< the primvar of its texture coordinates; empty if it does not say
};

/// Reads texture nodes with their coordinates, and loads each picture once.
class TextureReader {
public:
    TextureReader(Stage& source, object::ObjectScene& target)
        : stage(source)
        , scene(target) {}

    /// `output` is what is plugged in: r, g, b, a or rgb.
    [[nodiscard]] TextureValue read(const Prim& node, const std::string& output);

private:
    struct Coordinates {
        glm::dmat3 transform{1}; ///< with v upwards
        std::string name;
    };

    [[nodiscard]] std::optional<std::size_t> loadPicture(const Prim& node);
    [[nodiscard]] std::optional<AssetId> findPicture(const std::string& path, AssetId layer);
    [[nodiscard]] Coordinates coordinatesOf(const Prim& node) const;
    [[nodiscard]] std::string textInput(const Prim& node, const std::string& input) const;
    [[nodiscard]] object::Wrap wrapOf(const Prim& node, const std::string& input) const;

    Stage& stage;
    object::ObjectScene& scene;
    std::map<AssetId, std::optional<std::size_t>> loaded; ///< indices of textures; none if damaged
};

} // namespace zelvo::usd
