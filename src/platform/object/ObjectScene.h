// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/geometry/Mesh.h"

#include <glm/gtc/type_precision.hpp>
#include <glm/mat3x3.hpp>
#include <glm/mat4x4.hpp>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace zelvo::object {

/// What every reader of 3D files returns. Lengths are in the file's own units, and its up axis is
/// kept. Colours are linear if nothing else is said. Texture coordinates follow the renderer: (0, 0)
/// is the upper left corner of the picture, v grows downwards. Formats with v upwards are converted
/// by the reader: v' = 1 - v.

/// A picture that a material names. If both `file` and `bytes` are empty, it is missing.
struct Texture {
    std::string name;                ///< as the file writes it; for messages
    std::filesystem::path file;      ///< where the picture was found
    std::vector<std::uint8_t> bytes; ///< the picture's file, if it is inside the object's file

    [[nodiscard]] bool isMissing() const { return file.empty() && bytes.empty(); }
};

/// What is taken from a texel: all three colours, or one number.
enum class Channel {
    color,
    red,
    green,
    blue,
    alpha,
    brightness,
    alphaOrBrightness, ///< alpha if the picture has an alpha channel, otherwise its brightness
    alphaIfVaried,     ///< alpha, but 1 if it is 0 everywhere: an exporter's leftover
};

enum class Wrap { repeat, clamp, mirror, border };

/// How a material uses a texture: value = texel * scale + bias, then times the slot's factor.
/// Pictures of base colour and emission are sRGB, all others data, if `isData` does not say more.
struct PictureUse {
    std::size_t texture = 0; ///< index into ObjectScene::textures
    Channel channel = Channel::color;
    Wrap wrapS = Wrap::repeat;
    Wrap wrapT = Wrap::repeat;
    glm::mat3 transform{1}; ///< applied to (u, v, 1), with v downwards
    glm::vec4 scale{1};
    glm::vec4 bias{0};
    bool isData = false; ///< the numbers are not sRGB, also in a slot of colour
};

/// The same transform of texture coordinates, for v downwards instead of upwards.
[[nodiscard]] glm::mat3 withVDownwards(const glm::mat3& upwards);

/// A number or colour of a material. A picture is multiplied with the factor.
template <class Value> struct Slot {
    Value factor;
    std::optional<PictureUse> picture;
};

enum class NormalPicture {
    tangentSpace, ///< red along growing u, green upwards in the picture
    height,       ///< bright is high
    unknown,      ///< a normal map if it looks like one, otherwise a height
};

/// The values are those of the usual metal and roughness model, see SCNMaterial.
struct Material {
    std::string name;
    Slot<glm::vec3> baseColor{glm::vec3(1), {}};
    Slot<float> metalness{0, {}};
    Slot<float> roughness{0.5F, {}};
    Slot<float> opacity{1, {}};
    Slot<float> occlusion{1, {}}; ///< the factor is the picture's strength
    Slot<glm::vec3> emission{glm::vec3(0), {}};
    Slot<float> normal{1, {}}; ///< the factor is the strength: 0 is flat
    NormalPicture normalPicture = NormalPicture::tangentSpace;
    /// 0: the surface is blended by its opacity. Above: it is not drawn where the opacity is below
    /// this, and opaque elsewhere.
    float cutOutBelow = 0;
    bool isUnlit = false; ///< shows its base colour without light
    bool isDoubleSided = false;
};

/// Triangles of one material: a mesh with one element. Positions are relative to a place near the
/// piece, which is a part of the placement, so that large coordinates lose nothing as float.
struct Piece {
    std::string name;
    geometry::Mesh mesh;
    std::vector<glm::u8vec4> colors; ///< sRGB; one for each vertex, or none: white
    std::optional<std::size_t> material;
    bool isDoubleSided = false; ///< also if the material is not
};

/// A piece is drawn once for each of its placements. A transform may mirror: then the triangles are
/// clockwise in the scene, and the renderer must turn them.
struct Placement {
    std::size_t piece = 0;
    glm::dmat4 transform{1}; ///< from the piece's space to the scene's
};

enum class UpAxis { x, y, z };

/// What the file contains, as `zelvo inspect` prints it. All counts are of what is drawn; an
/// instance that is drawn twice counts twice.
struct Figures {
    std::size_t meshes = 0;    ///< as the file divides them, not the pieces
    std::size_t points = 0;    ///< positions in the file
    std::size_t faces = 0;     ///< polygons
    std::size_t triangles = 0; ///< after triangulation
    std::size_t materials = 0;
    std::size_t textures = 0; ///< different picture files of these materials
    glm::dvec3 boxMin{0};     ///< in the file's own units and axes
    glm::dvec3 boxMax{0};
};

struct ObjectScene {
    std::vector<Piece> pieces;
    std::vector<Placement> placements;
    std::vector<Material> materials; ///< also those that nothing uses
    std::vector<Texture> textures;
    std::optional<double> metersPerUnit; ///< nothing if neither the file nor its format says it
    UpAxis upAxis = UpAxis::y;
    std::vector<std::string> warnings; ///< one line each: what is missing or was skipped
    Figures figures;

    /// Adds a warning, unless there are already kMaxWarnings or it is a repetition of the last.
    void warn(std::string line);

    static constexpr std::size_t kMaxWarnings = 100;
};

/// Counts triangles, materials and textures of what is placed, and finds the box. A reader calls it
/// at its end; meshes, points and faces it counts by itself.
void completeFigures(ObjectScene& scene);

/// Limits of every reader. More than that is refused as `tooLarge`.
struct Limits {
    static constexpr std::uint64_t kMaxFileBytes = 2ULL << 30U;
    static constexpr std::size_t kMaxPoints = 40'000'000;
    static constexpr std::size_t kMaxCorners = 120'000'000; ///< of all polygons
    static constexpr std::size_t kMaxMaterials = 10'000;
    static constexpr std::size_t kMaxTextureBytes = 512U << 20U; ///< of one picture
};

/// How a long reading is watched from another thread, and ended.
struct Watch {
    std::stop_token stop;                         ///< then the reader returns `cancelled`
    std::function<void(double share)> isAdvanced; ///< 0 to 1, on the reader's thread; may be empty
};

/// The error of a reader that was stopped.
[[nodiscard]] foundation::Error cancelledError();

} // namespace zelvo::object
