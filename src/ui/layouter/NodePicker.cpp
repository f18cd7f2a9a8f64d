// SPDX-License-Identifier: MIT
#include "ui/layouter/NodePicker.h"

#include "platform/render/CameraView.h"
#include "platform/scene/HitTest.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace zelvo::ui {

namespace {

constexpr float kReach = 5; ///< points beside a shape in which a press still takes it
constexpr int kDirections = 8;

/// The rays through places of the view.
class Eye {
public:
    Eye(const stage::Nodes& nodes, const glm::vec2& size)
        : viewSize(size)
        , camera(render::makeCameraView(
              nodes.cameraNode->worldTransform(), *nodes.cameraNode->camera, size.x / size.y)) {}

    [[nodiscard]] geometry::Ray rayAt(const glm::vec2& location) const {
        const glm::vec2 share = location / viewSize;
        return render::rayThrough(camera, {2 * share.x - 1, 1 - 2 * share.y});
    }

private:
    glm::vec2 viewSize;
    render::CameraView camera;
};

using Found = std::vector<node::NodePtr>;

/// The contents whose shape the ray meets, the nearest first.
Found shapesOn(const Found& content, const geometry::Ray& ray) {
    std::vector<std::pair<float, node::NodePtr>> met;
    for (const node::NodePtr& node : content) {
        const scene::SCNNode& parent = *node->contentNode->parent();
        const auto hit = scene::hitTest(*node->contentNode, ray, parent.worldTransform());
        if (hit)
            met.emplace_back(hit->distance, node);
    }
    std::ranges::sort(met, {}, &std::pair<float, node::NodePtr>::first);
    Found found;
    for (auto& [distance, node] : met)
        found.push_back(std::move(node));
    return found;
}

void append(Found& found, const Found& further) {
    found.insert(found.end(), further.begin(), further.end());
}

/// The contents whose frame the ray meets, the smallest frame first.
Found framesOn(const Found& content, const geometry::Ray& ray) {
    Found found;
    for (const node::NodePtr& node : content) {
        if (node->frameDistance(ray))
            found.push_back(node);
    }
    std::ranges::sort(found, {}, [](const node::NodePtr& node) { return node->frameArea(); });
    return found;
}

} // namespace

node::NodePtr
nodeAt(const stage::Nodes& nodes, const StagePlace& place, const node::NodePtr& inHand) {
    const Eye eye(nodes, place.viewSize);
    const Found content = nodes.content();
    Found found = shapesOn(content, eye.rayAt(place.location));
    for (int i = 0; i < kDirections && found.empty(); ++i) {
        const float angle = static_cast<float>(i) * 2 * std::numbers::pi_v<float> / kDirections;
        const glm::vec2 aside = kReach * glm::vec2(std::cos(angle), std::sin(angle));
        found = shapesOn(content, eye.rayAt(place.location + aside));
    }
    append(found, framesOn(content, eye.rayAt(place.location)));
    if (inHand && std::ranges::find(found, inHand) != found.end())
        return inHand;
    return found.empty() ? nullptr : found.front();
}

} // namespace zelvo::ui
