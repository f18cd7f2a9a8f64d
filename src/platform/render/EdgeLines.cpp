// SPDX-License-Identifier: MIT
#include "platform/render/EdgeLines.h"

#include "platform/foundation/Check.h"
#include "platform/render/ShaderBlocks.h"
#include "platform/render/ShaderProgram.h"

#include <epoxy/gl.h>
#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/matrix.hpp>

#include <algorithm>
#include <string>

namespace zelvo::render {
namespace {

constexpr std::uint64_t kKeptFrames = 120;
/// Larger meshes get no lines: their triangles are hardly larger than pixels.
constexpr std::size_t kMaxTriangles = 30000;
/// Pixels. A shorter line changes next to nothing.
constexpr float kShortest = 1.0F;
/// The most pixels that get lines, as a share of all: beyond that, only near things get them. Columns
/// with flutes would cost as much as the rest of the picture.
constexpr float kMostLength = 0.045F;
/// Things up to so many times as far away as the nearest one always get lines, as the letters of a
/// title are to look alike.
constexpr float kNear = 1.2F;

ProgramHandle build(std::vector<std::string> defines) {
    auto built = buildProgram({"edge_lines.vert", "edge_lines.frag", std::move(defines)});
    CHECK(built.has_value(), "{}", built.error().message);
    return std::move(*built);
}

std::size_t trianglesOf(const VisibleNode& node) {
    const geometry::Mesh& mesh = node.geometry->mesh();
    const auto& indices = node.level == 0 ? mesh.indices : mesh.coarser[node.level - 1].indices;
    return indices.size() / 3;
}

/// Depth is reversed: 1 at the near plane.
bool isBeyondNearPlane(const glm::vec4& clip) {
    return clip.w > 0 && clip.z <= clip.w;
}

bool isInPicture(const glm::vec2& from, const glm::vec2& to) {
    const glm::vec2 low = glm::min(from, to);
    const glm::vec2 high = glm::max(from, to);
    return high.x > -1 && high.y > -1 && low.x < 1 && low.y < 1;
}

} // namespace

EdgeLines::EdgeLines()
    : buffer(
          sizeof(Instance),
          {{InstanceAttribute::Kind::floats, 3, offsetof(Instance, from)},
           {InstanceAttribute::Kind::floats, 3, offsetof(Instance, to)}}) {}

void EdgeLines::draw(
    const Tools& tools,
    const Snapshot& snapshot,
    std::span<const std::uint32_t> nodes,
    const RenderTarget& scene) {
    const glm::vec2 size(scene.size().width, scene.size().height);
    instances.clear();
    addAll(snapshot, nodes, size);
    if (instances.empty())
        return;
    if (!findFirst) {
        findFirst = build({});
        findSecond = build({"SECOND"});
    }
    buffer.upload(std::as_bytes(std::span(instances)));
    PassBlock block;
    block.passFrame = {0, size, 0};
    tools.uniforms.bind(tools.state, kPassBinding, block);
    second.resize(scene.size(), tools.state); // and the first, whose depth it uses
    first.resize(scene.size(), tools.state);
    for (const RenderTarget* target : {&first, &second}) {
        target->bind(tools.state);
        tools.state.clear();
        tools.state.set({.culling = Culling::none});
        tools.state.bindTexture(kDepthUnit, scene.depth(), 0);
        if (target == &second)
            tools.state.bindTexture(kPictureUnit, first.color(), 0);
        tools.state.useProgram((target == &first ? findFirst : findSecond).name());
        buffer.drawAll(tools.state);
    }
}

void EdgeLines::addAll(
    const Snapshot& snapshot, std::span<const std::uint32_t> nodes, const glm::vec2& size) {
    const auto distanceOf = [&](std::uint32_t node) { return snapshot.nodes()[node].middle; };
    byDistance.assign(nodes.begin(), nodes.end());
    std::stable_sort(byDistance.begin(), byDistance.end(), [&](std::uint32_t a, std::uint32_t b) {
        return distanceOf(a) < distanceOf(b);
    });
    float left = kMostLength * size.x * size.y;
    for (const std::uint32_t node : byDistance) {
        const bool isNear = distanceOf(node) <= kNear * distanceOf(byDistance.front());
        const std::size_t before = instances.size();
        left -= add(snapshot.nodes()[node], snapshot.camera(), size / 2.0F);
        if (left >= 0 || isNear)
            continue;
        instances.resize(before);
        break;
    }
}

const std::vector<geometry::MeshEdge>& EdgeLines::edgesOf(const VisibleNode& node) {
    const auto [found, isNew] = known.try_emplace({node.geometry->revision(), node.level});
    Edges& edges = found->second;
    edges.lastFrame = frame;
    if (isNew && trianglesOf(node) <= kMaxTriangles)
        edges.all = geometry::meshEdges(node.geometry->mesh(), node.level);
    return edges.all;
}

float EdgeLines::add(const VisibleNode& node, const CameraView& camera, const glm::vec2& halfSize) {
    const glm::vec3 eye(glm::inverse(node.world) * glm::vec4(camera.position, 1));
    const glm::mat4 toClip = camera.viewProjection * node.world;
    float length = 0;
    for (const geometry::MeshEdge& edge : edgesOf(node)) {
        if (!geometry::isSeenFrom(edge, eye))
            continue;
        const glm::vec4 from = toClip * glm::vec4(edge.from, 1);
        const glm::vec4 to = toClip * glm::vec4(edge.to, 1);
        if (!isBeyondNearPlane(from) || !isBeyondNearPlane(to))
            continue;
        const Instance line{glm::vec3(from) / from.w, glm::vec3(to) / to.w};
        const glm::vec2 along = glm::vec2(line.to - line.from) * halfSize;
        const float pixels = glm::length(along);
        if (!isInPicture(line.from, line.to) || pixels <= kShortest)
            continue;
        instances.push_back(line);
        length += pixels;
    }
    return length;
}

void EdgeLines::prune() {
    ++frame;
    std::erase_if(
        known, [this](const auto& entry) { return entry.second.lastFrame + kKeptFrames < frame; });
}

} // namespace zelvo::render
