// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"
#include "platform/usd/Stage.h"
#include "platform/usd/TextureReader.h"

#include <map>
#include <optional>
#include <string>

namespace zelvo::usd {

/// A material of the scene, and what it needs of the meshes.
struct Surface {
    std::size_t material = 0; ///< index into ObjectScene::materials
    std::string uvName;       ///< of the texture coordinates' primvar; empty: whatever there is
    std::string colorName;    ///< of a primvar that gives the base colour; empty: none
};

/// Makes materials of the preview surfaces of a scene, each once.
class SurfaceReader {
public:
    SurfaceReader(Stage& source, object::ObjectScene& target)
        : stage(source)
        , scene(target)
        , textures(source, target) {}

    /// Null if there is no such material.
    [[nodiscard]] const Surface* read(const std::string& materialPath);

private:
    [[nodiscard]] Surface make(const Prim& prim);
    void fill(const Prim& shader, object::Material& material, Surface& surface);
    void fillColors(const Prim& shader, object::Material& material, Surface& surface);

    [[nodiscard]] object::Slot<float>
    numberSlot(const Prim& shader, const std::string& input, float fallback, Surface& surface);
    [[nodiscard]] object::Slot<glm::vec3>
    colorSlot(const Prim& shader, const std::string& input, glm::vec3 fallback, Surface& surface);

    Stage& stage;
    object::ObjectScene& scene;
    TextureReader textures;
    std::map<std::string, std::optional<Surface>> surfaces;
};

} // namespace zelvo::usd
