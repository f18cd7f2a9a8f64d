// SPDX-License-Identifier: MIT
#include "content/MediaShape.h"

#include "content/ImageMask.h"
#include "geometry/SolidChecks.h"
#include "platform/scene/SCNMaterial.h"

#include <glm/geometric.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::content {
namespace {

using Visit = std::function<void(const scene::SCNNode&)>;

void forEachSolid(const MediaShape& shape, const Visit& visit) {
    shape.node->enumerateHierarchy([&visit](scene::SCNNode& node) {
        if (node.geometry)
            visit(node);
    });
}

TEST(MediaShapeTest, EverySolidIsClosedAlsoWhereItsChamferIsDeeperThanItself) {
    ASSERT_EQ(mediaShapes().size(), 29U);
    for (const MediaShapePtr& shape : mediaShapes()) {
        int solids = 0;
        forEachSolid(*shape, [&](const scene::SCNNode& node) {
            ++solids;
            EXPECT_EQ(geometry::faultOf(node.geometry->mesh()), "") << shape->name;
        });
        EXPECT_EQ(solids > 0, shape->name != "None") << shape->name;
    }
}

TEST(MediaShapeTest, EveryOutlineIsScaledToItsSizeAndStandsInTheMiddle) {
    int outlines = 0;
    for (const MediaShapePtr& shape : mediaShapes()) {
        const auto outline = std::dynamic_pointer_cast<OutlineShape>(shape);
        if (!outline)
            continue;
        ++outlines;
        const geometry::Box box = outline->subNode->boundingBox();
        const glm::vec3 size = (box.max - box.min) * outline->subNode->scale.value();
        const glm::vec3 middle = (box.max + box.min) * 0.5f * outline->subNode->scale.value();
        EXPECT_NEAR(std::max(size.x, size.y), outline->minMax, 0.2) << shape->name;
        EXPECT_LT(glm::length(middle), outline->minMax * 0.01f) << shape->name;
    }
    EXPECT_EQ(outlines, 23);
}

TEST(MediaShapeTest, SceneFiguresFitAStageAndTakeOneMaterialThroughout) {
    for (const std::string_view name : {"Wings", "Gamer-Keys", "GamePad"}) {
        const auto shape = *std::ranges::find(mediaShapes(), name, &MediaShape::name);
        const geometry::Box box = shape->node->boundingBox();
        const glm::vec3 size = box.max - box.min;
        EXPECT_TRUE(size.x > 200 && size.x < 400) << name << " is " << size.x << " wide";
        EXPECT_LT(std::abs(box.max.x + box.min.x), 2) << name;

        const auto material = std::make_shared<scene::SCNMaterial>();
        material->setContentsScale(3);
        shape->applyMaterial(material);
        EXPECT_EQ(material->diffuse.contentsTransform, glm::mat4(1));
        forEachSolid(*shape, [&](const scene::SCNNode& node) {
            EXPECT_EQ(node.geometry->materials, std::vector{material}) << name;
            EXPECT_EQ(node.categoryBitMask, node::kContentMask) << name;
        });
    }
}

TEST(ImageMaskTest, EachOfTheMasksHidesAnotherPart) {
    ASSERT_EQ(imageMasks().size(), 23U);
    EXPECT_EQ(imageMasks().front()->image(), nullptr);
    std::set<std::string> seen;
    for (std::size_t i = 1; i < imageMasks().size(); ++i) {
        const ImageMask& mask = *imageMasks()[i];
        EXPECT_EQ(mask.name, "Mask " + std::to_string(i));
        const std::vector<std::uint8_t>& pixels = mask.image()->pixels;
        std::size_t shown = 0;
        for (std::size_t at = 0; at < pixels.size(); at += 4)
            shown += pixels[at] < 64 ? 1 : 0;
        const double share = 4 * static_cast<double>(shown) / static_cast<double>(pixels.size());
        EXPECT_TRUE(share > 0.3 && share < 0.95) << mask.name << " shows " << share;
        EXPECT_TRUE(seen.emplace(pixels.begin(), pixels.end()).second) << mask.name;
    }
}

} // namespace
} // namespace zelvo::content
