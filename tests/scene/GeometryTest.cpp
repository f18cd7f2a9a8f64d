// SPDX-License-Identifier: MIT
#include "SceneSupport.h"
#include "platform/scene/SCNShapes.h"
#include "platform/scene/SkeletonCache.h"

#include <set>

namespace zelvo::scene {
namespace {

TEST(Geometry, HasANewRevisionForEachMeshItBuilds) {
    SCNPlane plane(2, 3);
    const SCNPlane same(2, 3);
    const std::uint64_t first = plane.revision();
    EXPECT_NE(same.revision(), first);
    plane.setWidth(2);
    EXPECT_EQ(plane.revision(), first); // nothing changed
    plane.setWidth(8);
    EXPECT_NE(plane.revision(), first);
    expectNear(plane.boundingBox().max, {4, 1.5f, 0});
}

TEST(Geometry, RepeatsAShortListOfMaterials) {
    SCNPlane plane;
    EXPECT_EQ(plane.materialFor(3), nullptr);
    plane.materials = {std::make_shared<SCNMaterial>(), std::make_shared<SCNMaterial>()};
    EXPECT_EQ(plane.materialFor(1), plane.materials[1].get());
    EXPECT_EQ(plane.materialFor(4), plane.materials[0].get());
}

TEST(Geometry, KeepsTheLatestSkeletonsOnly) {
    const text::TextAttributes attributes;
    const std::weak_ptr<const geometry::OutlineSkeleton> first = skeletonOf("first", attributes, 1);
    EXPECT_EQ(skeletonOf("first", attributes, 1), first.lock());
    EXPECT_NE(skeletonOf("first", attributes, 2), first.lock());
    text::TextAttributes larger = attributes;
    larger.size = 200;
    const std::weak_ptr<const geometry::OutlineSkeleton> other = skeletonOf("first", larger, 1);
    EXPECT_NE(other.lock(), first.lock());
    for (std::size_t i = 0; i < kSkeletonsKept - 1; ++i) {
        ASSERT_NE(skeletonOf("first", attributes, 1), nullptr); // in use, so it stays
        ASSERT_NE(skeletonOf(std::to_string(i), attributes, 1), nullptr);
    }
    EXPECT_FALSE(first.expired());
    EXPECT_TRUE(other.expired());
}

TEST(Material, ListsEverySlotOnceAndScalesThemAll) {
    SCNMaterial material;
    material.setContentsScale(4);
    std::set<const SCNMaterialProperty*> slots;
    for (const SCNMaterialProperty* slot : material.allProperties()) {
        slots.insert(slot);
        expectNear(glm::vec3(slot->contentsTransform * glm::vec4(0.5f, 1, 0, 1)), {2, 4, 0});
    }
    EXPECT_EQ(slots.size(), SCNMaterial::kSlotCount);
}

} // namespace
} // namespace zelvo::scene
