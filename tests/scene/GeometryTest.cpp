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

TEST(Geometry, TellsSkeletonsApartByAllThatShapesThem) {
    const text::TextAttributes attributes;
    text::TextAttributes larger = attributes;
    larger.size = 200;
    text::TextAttributes wider = attributes;
    wider.kern = 3;
    const auto first = skeletonOf("a", attributes, 1);
    EXPECT_EQ(skeletonOf("a", attributes, 1), first);
    EXPECT_NE(skeletonOf("a", attributes, 2), first);
    EXPECT_NE(skeletonOf("a", larger, 1), first);
    EXPECT_NE(skeletonOf("a", wider, 1), first);
    EXPECT_NE(skeletonOf("b", attributes, 1), first);
}

TEST(Geometry, KeepsTheLatestSkeletonsOnly) {
    const text::TextAttributes attributes;
    const std::weak_ptr<const geometry::OutlineSkeleton> used = skeletonOf("used", attributes, 1);
    const std::weak_ptr<const geometry::OutlineSkeleton> old = skeletonOf("old", attributes, 1);
    std::size_t hits = 0;
    for (std::size_t i = 0; i < kSkeletonsKept - 1; ++i) {
        hits += skeletonOf("used", attributes, 1) == used.lock() ? 1 : 0;
        (void)skeletonOf(std::to_string(i), attributes, 1);
    }
    EXPECT_EQ(hits, kSkeletonsKept - 1);
    EXPECT_TRUE(old.expired());
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
