// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"
#include "platform/object/reading/NeighbourFiles.h"

#include <map>
#include <optional>

namespace tinygltf {
class Model;
struct Image;
struct Material;
class Value;
} // namespace tinygltf

namespace zelvo::object {

/// Adds the materials that are used, with their textures, to the scene.
class GLTFMaterials {
public:
    GLTFMaterials(const tinygltf::Model& source, NeighbourFiles& neighbours, ObjectScene& target)
        : model(source)
        , files(neighbours)
        , scene(target) {}

    /// The number of a material of the file in the scene; nothing if it has no such material.
    [[nodiscard]] std::optional<std::size_t> numberOf(int material);

    /// Which set of texture coordinates (TEXCOORD_n) the material uses. There can be only one: that
    /// of the base colour, or of the first picture that it has. Pictures with another one are left
    /// out.
    [[nodiscard]] int uvSetOf(int material) const;

private:
    [[nodiscard]] static int uvSetOf(const tinygltf::Material& source);
    [[nodiscard]] Material converted(const tinygltf::Material& source);
    /// `info` is one of the library's three kinds of texture reference.
    template <class Info>
    [[nodiscard]] std::optional<PictureUse> use(const Info& info, Channel channel);
    [[nodiscard]] std::optional<std::size_t> textureOf(int image);
    [[nodiscard]] Texture converted(const tinygltf::Image& image);

    const tinygltf::Model& model;
    NeighbourFiles& files;
    ObjectScene& scene;
    int uvSet = 0; ///< of the material that is being converted
    std::map<int, std::size_t> materials;
    std::map<int, std::size_t> textures; ///< by image
};

/// "%20" becomes a blank, and so on.
[[nodiscard]] std::string percentDecoded(std::string_view uri);

} // namespace zelvo::object
