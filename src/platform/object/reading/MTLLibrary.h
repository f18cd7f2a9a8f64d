// SPDX-License-Identifier: MIT
#pragma once

#include "platform/object/ObjectScene.h"
#include "platform/object/reading/MTLPictures.h"
#include "platform/object/reading/NeighbourFiles.h"
#include "platform/object/reading/TextLines.h"

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zelvo::object {

/// What a material statement sets. The keywords are those of the file: d, Tr, Ns, Pr, Pm, illum;
/// Kd, Ks, Ke; map_Kd and so on.
enum MTLNumber {
    dissolve,
    transparency,
    exponent,
    physicalRough,
    physicalMetal,
    illumination,
    kMTLNumbers
};

enum MTLColor { diffuse, specular, emissive, kMTLColors };

enum MTLMap {
    diffuseMap,
    emissiveMap,
    roughMap,
    metalMap,
    dissolveMap,
    transparencyMap,
    bumpMap,
    normalMap,
    kMTLMaps
};

/// A material as it is written.
struct MTLStatements {
    std::array<std::optional<float>, kMTLNumbers> numbers;
    std::array<std::optional<glm::vec3>, kMTLColors> colors;
    std::array<std::optional<MTLPicture>, kMTLMaps> maps;
};

/// The materials of Wavefront libraries (MTL). Lines that it does not understand are skipped.
///
/// The format has no rules that all programs follow. Colours are taken as sRGB; the specular exponent
/// becomes roughness = sqrt(2 / (Ns + 2)) (B. Walter et al., Microfacet models for refraction, 2007);
/// the physically based keys (Pr, Pm) count more.
class MTLLibrary {
public:
    /// Adds the materials of a file. If a name is there already, the later definition counts.
    void read(ByteSource source);

    /// Nothing if no material has this name. Its pictures are found through `files` and added to the
    /// scene's textures, with a warning if they are missing.
    [[nodiscard]] std::optional<Material>
    material(std::string_view name, NeighbourFiles& files, ObjectScene& scene) const;

private:
    std::map<std::string, MTLStatements, std::less<>> materials;
};

} // namespace zelvo::object
