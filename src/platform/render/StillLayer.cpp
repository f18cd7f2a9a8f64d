// SPDX-License-Identifier: MIT
#include "platform/render/StillLayer.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <iterator>

namespace zelvo::render {
namespace {

constexpr int kFirstPatience = 1;   ///< frames of standing still before a layer is drawn
constexpr int kBetterPatience = 12; ///< and before one is drawn that holds more

} // namespace

StillLayer::Step StillLayer::plan(
    std::span<const std::uint64_t> keys, std::uint64_t surroundings, Size pictureSize) {
    if (surroundings != lastSurroundings || pictureSize != size)
        forget();
    lastSurroundings = surroundings;
    size = pictureSize;

    current.clear();
    std::ranges::copy_if(
        keys, std::back_inserter(current), [](std::uint64_t key) { return key != kMoving; });
    std::ranges::sort(current);
    still.clear();
    std::ranges::set_intersection(current, previous, std::back_inserter(still));
    age = still == candidate ? age + 1 : 0;
    candidate.swap(still);
    previous.swap(current);

    if (!std::ranges::includes(previous, held))
        held.clear();
    const int patience = held.empty() ? kFirstPatience : kBetterPatience;
    if (!candidate.empty() && candidate != held && age >= patience) {
        held = candidate;
        return Step::build;
    }
    return held.empty() ? Step::without : Step::use;
}

bool StillLayer::holds(std::uint64_t key) const {
    return key != kMoving && std::ranges::binary_search(held, key);
}

void StillLayer::bind(GraphicsState& state) {
    ensureSize(size, state);
    state.bindFramebuffer(target.name(), size);
}

void StillLayer::copyTo(std::uint32_t framebuffer, GraphicsState& state) const {
    glBlitNamedFramebuffer(
        target.name(),
        framebuffer,
        0,
        0,
        size.width,
        size.height,
        0,
        0,
        size.width,
        size.height,
        GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT,
        GL_NEAREST);
    state.bindFramebuffer(framebuffer, size);
}

void StillLayer::forget() {
    previous.clear();
    candidate.clear();
    held.clear();
    age = 0;
}

void StillLayer::ensureSize(Size wanted, GraphicsState& state) {
    if (targetSize == wanted)
        return;
    state.forgetBindings();
    GLuint name = 0;
    glCreateTextures(GL_TEXTURE_2D, 1, &name);
    color = TextureHandle(name);
    glTextureStorage2D(name, 1, GL_RGBA8, wanted.width, wanted.height);
    glCreateTextures(GL_TEXTURE_2D, 1, &name);
    depth = TextureHandle(name);
    glTextureStorage2D(name, 1, GL_DEPTH_COMPONENT32F, wanted.width, wanted.height);
    glCreateFramebuffers(1, &name);
    target = FramebufferHandle(name);
    glNamedFramebufferTexture(name, GL_COLOR_ATTACHMENT0, color.name(), 0);
    glNamedFramebufferTexture(name, GL_DEPTH_ATTACHMENT, depth.name(), 0);
    targetSize = wanted;
}

} // namespace zelvo::render
