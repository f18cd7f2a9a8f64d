// SPDX-License-Identifier: MIT
#include "platform/object/reading/GLTFReader.h"

#include "platform/image/Color.h"
#include "platform/object/Polygons.h"
#include "platform/object/reading/GLTFAccessor.h"
#include "platform/object/reading/GLTFMaterials.h"
#include "platform/object/reading/Words.h"

#include <glm/ext/matrix_transform.hpp>
#include <glm/gtc/quaternion.hpp>
#include <tiny_gltf.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <fstream>
#include <iterator>
#include <set>
#include <string_view>
#include <utility>

namespace zelvo::object {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

namespace fs = std::filesystem;

// --- What the library asks of us: files beside this one, and pictures as they are.

/// Pictures are looked for when a material uses them.
[[nodiscard]] bool isPictureName(const std::string& name) {
    constexpr auto kPictures = std::to_array<std::string_view>(
        {".png", ".jpg", ".jpeg", ".webp", ".ktx2", ".dds", ".basis", ".tga", ".bmp", ".gif"});
    return std::ranges::find(kPictures, lowered(fs::path(name).extension().string())) !=
           kPictures.end();
}

bool fileExists(const std::string& name, void* neighbours) {
    return !isPictureName(name) && static_cast<NeighbourFiles*>(neighbours)->find(name);
}

std::string samePath(const std::string& name, void* /*neighbours*/) {
    return name;
}

bool readWholeFile(
    std::vector<unsigned char>* bytes,
    std::string* /*error*/,
    const std::string& name,
    void* neighbours) {
    const auto file = static_cast<NeighbourFiles*>(neighbours)->find(name);
    std::error_code error;
    if (!file || fs::file_size(*file, error) > Limits::kMaxFileBytes || error)
        return false;
    std::ifstream in(*file, std::ios::binary);
    bytes->assign(std::istreambuf_iterator<char>(in), {});
    return true;
}

bool writeNothing(std::string*, const std::string&, const std::vector<unsigned char>&, void*) {
    return false;
}

/// Keeps a picture that stands in the text. Those in buffers are copied later, with checks.
bool keepPicture( // NOLINT(readability-function-size): the library's interface
    tinygltf::Image* image,
    int /*number*/,
    std::string* /*error*/,
    std::string* /*warning*/,
    int /*width*/,
    int /*height*/,
    const unsigned char* bytes,
    int size,
    void* /*data*/) {
    if (image->bufferView < 0 && size > 0)
        image->image.assign(bytes, bytes + size);
    return true;
}

[[nodiscard]] Result<tinygltf::Model>
parsed(std::span<const std::uint8_t> bytes, NeighbourFiles& neighbours) {
    tinygltf::TinyGLTF loader;
    loader.SetImageLoader(&keepPicture, nullptr);
    loader.SetFsCallbacks({&fileExists, &samePath, &readWholeFile, &writeNothing, &neighbours});
    tinygltf::Model model;
    std::string error;
    std::string warning;
    const auto size = static_cast<unsigned>(bytes.size());
    constexpr std::string_view kMagic = "glTF";
    const bool isBinary =
        bytes.size() >= kMagic.size() && std::equal(kMagic.begin(), kMagic.end(), bytes.begin());
    bool isRead = false;
    try {
        isRead = isBinary
                     ? loader.LoadBinaryFromMemory(&model, &error, &warning, bytes.data(), size)
                     : loader.LoadASCIIFromString(
                           &model,
                           &error,
                           &warning,
                           reinterpret_cast<const char*>(bytes.data()), // NOLINT: its interface
                           size,
                           "");
    } catch (const std::exception& thrown) {
        error = thrown.what();
    }
    if (isRead)
        return model;
    const std::string reason = error.substr(0, error.find('\n'));
    return fail(
        Cause::malformed,
        "the glTF is damaged" + (reason.empty() ? std::string() : " (" + reason + ")"));
}

/// What only a decoder of its own could read.
[[nodiscard]] Result<void> checkRequired(const tinygltf::Model& model) {
    constexpr auto kCompressed =
        std::to_array<std::string_view>({"KHR_draco_mesh_compression", "EXT_meshopt_compression"});
    for (const std::string& name : model.extensionsRequired) {
        if (std::ranges::find(kCompressed, name) != kCompressed.end()) {
            return fail(
                Cause::unsupported,
                "its geometry is compressed (" + name + "); export it without compression");
        }
    }
    return {};
}

[[nodiscard]] glm::dmat4 transformOf(const tinygltf::Node& node) {
    const auto isNumber = [](double value) { return std::abs(value) <= 1e30; };
    for (const auto* list : {&node.matrix, &node.translation, &node.rotation, &node.scale}) {
        if (!std::ranges::all_of(*list, isNumber))
            return glm::dmat4(1);
    }
    glm::dmat4 matrix(1);
    if (node.matrix.size() == 16) {
        for (int i = 0; i < 16; ++i)
            matrix[i / 4][i % 4] = node.matrix[static_cast<std::size_t>(i)];
        return matrix;
    }
    if (node.translation.size() == 3)
        matrix = glm::translate(
            matrix, glm::dvec3(node.translation[0], node.translation[1], node.translation[2]));
    if (node.rotation.size() == 4) {
        const auto& q = node.rotation; // x, y, z, w
        const glm::dquat turn(q[3], q[0], q[1], q[2]);
        if (glm::length(turn) > 0)
            matrix *= glm::mat4_cast(glm::normalize(turn));
    }
    if (node.scale.size() == 3)
        matrix = glm::scale(matrix, glm::dvec3(node.scale[0], node.scale[1], node.scale[2]));
    return matrix;
}

/// Three corners for each triangle of a list, strip or fan.
[[nodiscard]] std::vector<std::uint32_t>
triangleCorners(const std::vector<std::uint32_t>& list, int mode) {
    if (mode != TINYGLTF_MODE_TRIANGLE_STRIP && mode != TINYGLTF_MODE_TRIANGLE_FAN)
        return {list.begin(), list.end() - static_cast<std::ptrdiff_t>(list.size() % 3)};
    std::vector<std::uint32_t> corners;
    for (std::size_t i = 2; i < list.size(); ++i) {
        const bool isTurned = mode == TINYGLTF_MODE_TRIANGLE_STRIP && i % 2 == 1;
        const std::uint32_t first = mode == TINYGLTF_MODE_TRIANGLE_FAN ? list[0] : list[i - 2];
        corners.insert(
            corners.end(),
            {isTurned ? list[i - 1] : first, isTurned ? first : list[i - 1], list[i]});
    }
    return corners;
}

/// Builds the scene from the library's model.
class Builder {
public:
    Builder(const tinygltf::Model& source, NeighbourFiles& neighbours, const Watch& observer)
        : model(source)
        , watch(observer)
        , materials(source, neighbours, scene)
        , meshes(source.meshes.size())
        , worlds(source.nodes.size()) {}

    [[nodiscard]] Result<ObjectScene> build() {
        for (const int root : roots())
            findWorlds(root);
        for (const std::size_t node : order) {
            if (const auto placed = placeMesh(node); !placed)
                return tl::unexpected(placed.error());
        }
        scene.metersPerUnit = 1;
        completeFigures(scene);
        if (scene.figures.triangles == 0)
            return fail(Cause::malformed, "there are no triangles in it");
        return std::move(scene);
    }

private:
    struct Mesh {
        bool isBuilt = false;
        std::vector<AddedPieces> pieces;
        std::size_t points = 0;
        std::size_t faces = 0;
    };

    [[nodiscard]] std::vector<int> roots() const {
        if (!model.scenes.empty()) {
            const auto chosen = static_cast<std::size_t>(std::max(model.defaultScene, 0));
            return model.scenes[std::min(chosen, model.scenes.size() - 1)].nodes;
        }
        std::set<int> children;
        for (const tinygltf::Node& node : model.nodes)
            children.insert(node.children.begin(), node.children.end());
        std::vector<int> found;
        for (int i = 0; i < static_cast<int>(model.nodes.size()); ++i) {
            if (!children.contains(i))
                found.push_back(i);
        }
        return found;
    }

    /// A node is visited once, so a circle ends.
    void findWorlds(int root) {
        std::vector<std::pair<int, glm::dmat4>> open{{root, glm::dmat4(1)}};
        while (!open.empty()) {
            const auto [node, parent] = open.back();
            open.pop_back();
            if (node < 0 || static_cast<std::size_t>(node) >= worlds.size())
                continue;
            const auto index = static_cast<std::size_t>(node);
            if (worlds[index])
                continue;
            worlds[index] = parent * transformOf(model.nodes[index]);
            order.push_back(index);
            const std::vector<int>& children = model.nodes[index].children;
            const std::vector<int> lastFirst(children.rbegin(), children.rend());
            for (const int child : lastFirst)
                open.emplace_back(child, *worlds[index]);
        }
    }

    [[nodiscard]] Result<void> placeMesh(std::size_t nodeIndex) {
        const tinygltf::Node& node = model.nodes[nodeIndex];
        if (node.mesh < 0 || static_cast<std::size_t>(node.mesh) >= meshes.size())
            return {};
        Mesh& mesh = meshes[static_cast<std::size_t>(node.mesh)];
        if (!mesh.isBuilt) {
            auto built = buildMesh(mesh, model.meshes[static_cast<std::size_t>(node.mesh)]);
            if (!built)
                return built;
        }
        const glm::dmat4 world = skinTransform(node).value_or(worlds[nodeIndex].value());
        for (const AddedPieces& pieces : mesh.pieces)
            place(scene, pieces, world);
        if (mesh.faces == 0)
            return {};
        ++scene.figures.meshes;
        scene.figures.points += mesh.points;
        scene.figures.faces += mesh.faces;
        return {};
    }

    /// Skinned geometry follows its joints only. In the bind pose all of them move it alike.
    [[nodiscard]] std::optional<glm::dmat4> skinTransform(const tinygltf::Node& node) const {
        if (node.skin < 0 || static_cast<std::size_t>(node.skin) >= model.skins.size())
            return std::nullopt;
        const tinygltf::Skin& skin = model.skins[static_cast<std::size_t>(node.skin)];
        const int joint = skin.joints.empty() ? -1 : skin.joints.front();
        if (joint < 0 || static_cast<std::size_t>(joint) >= worlds.size())
            return std::nullopt;
        const glm::dmat4 world = worlds[static_cast<std::size_t>(joint)].value_or(glm::dmat4(1));
        const auto bind = firstMatrixOf(model, skin.inverseBindMatrices);
        return bind ? world * glm::dmat4(*bind) : world;
    }

    [[nodiscard]] Result<void> buildMesh(Mesh& mesh, const tinygltf::Mesh& source) {
        mesh.isBuilt = true;
        std::set<int> countedPoints; // primitives often share them
        for (const tinygltf::Primitive& primitive : source.primitives) {
            const bool isDrawn =
                primitive.mode < 0 || (primitive.mode >= TINYGLTF_MODE_TRIANGLES &&
                                       primitive.mode <= TINYGLTF_MODE_TRIANGLE_FAN);
            Polygons polygons = isDrawn ? polygonsOf(primitive) : Polygons();
            dropBrokenFaces(polygons);
            if (polygons.faces.empty())
                continue;
            if (countedPoints.insert(attribute(primitive, "POSITION")).second)
                mesh.points += polygons.points.size();
            mesh.faces += polygons.faces.size();
            totalCorners += polygons.corners.size();
            if (totalCorners > Limits::kMaxCorners)
                return fail(Cause::tooLarge, "the object has too many triangles");
            const auto pieces = addPieces(scene, std::move(polygons), {source.name, false}, watch);
            if (!pieces)
                return tl::unexpected(pieces.error());
            mesh.pieces.push_back(*pieces);
        }
        return {};
    }

    [[nodiscard]] static int
    attribute(const tinygltf::Primitive& primitive, const std::string& name) {
        const auto found = primitive.attributes.find(name);
        return found != primitive.attributes.end() ? found->second : -1;
    }

    [[nodiscard]] Polygons polygonsOf(const tinygltf::Primitive& primitive) {
        Polygons polygons;
        for (const glm::vec4& point : vectorsOf(model, attribute(primitive, "POSITION")))
            polygons.points.emplace_back(point);
        const std::size_t count = polygons.points.size();
        for (const glm::vec4& normal : vectorsOf(model, attribute(primitive, "NORMAL")))
            polygons.normals.emplace_back(normal);
        const std::string uvName =
            "TEXCOORD_" + std::to_string(materials.uvSetOf(primitive.material));
        for (const glm::vec4& uv : vectorsOf(model, attribute(primitive, uvName)))
            polygons.uvs.emplace_back(uv);
        for (const glm::vec4& color : vectorsOf(model, attribute(primitive, "COLOR_0")))
            polygons.pointColors.push_back(colorOf(color));
        if (polygons.pointColors.size() != count)
            polygons.pointColors.clear();

        std::vector<std::uint32_t> list;
        if (primitive.indices >= 0) {
            list = indicesOf(model, primitive.indices);
        } else {
            for (std::uint32_t i = 0; i < count; ++i)
                list.push_back(i);
        }
        const auto material = materials.numberOf(primitive.material);
        const std::uint32_t number =
            material ? static_cast<std::uint32_t>(*material) : Polygons::kNone;
        for (const std::uint32_t index : triangleCorners(list, primitive.mode))
            polygons.corners.push_back({index, index, index});
        polygons.faces.assign(polygons.corners.size() / 3, {3, number, Polygons::kFlat});
        return polygons;
    }

    [[nodiscard]] static glm::u8vec4 colorOf(const glm::vec4& linear) {
        glm::u8vec4 color;
        for (int i = 0; i < 4; ++i) {
            const float value = std::clamp(linear[i], 0.0F, 1.0F);
            color[i] = static_cast<std::uint8_t>(
                std::lround((i < 3 ? image::sRGBFromLinear(value) : value) * 255.0F));
        }
        return color;
    }

    const tinygltf::Model& model;
    const Watch& watch;
    ObjectScene scene;
    GLTFMaterials materials;
    std::vector<Mesh> meshes;
    std::vector<std::optional<glm::dmat4>> worlds; ///< of the nodes in the scene
    std::vector<std::size_t> order;                ///< of those nodes
    std::size_t totalCorners = 0;
};

} // namespace

Result<ObjectScene>
readGLTF(std::span<const std::uint8_t> bytes, NeighbourFiles neighbours, const Watch& watch) {
    const auto model = parsed(bytes, neighbours);
    if (!model)
        return tl::unexpected(model.error());
    if (const auto required = checkRequired(*model); !required)
        return tl::unexpected(required.error());
    if (watch.stop.stop_requested())
        return tl::unexpected(cancelledError());
    return Builder(*model, neighbours, watch).build();
}

} // namespace zelvo::object
