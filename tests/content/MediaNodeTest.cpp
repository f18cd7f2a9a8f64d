// SPDX-License-Identifier: MIT
#include "content/MediaNode.h"

#include "content/StylePresets.h"
#include "platform/scene/SCNShapes.h"
#include "support/TestWorld.h"

#include <gtest/gtest.h>

namespace zelvo::content {
namespace {

using image::Color;
using look::XMATClasses;

class MediaNodeTest : public testing::Test {
protected:
    /// An imported object: a box with a smaller one below it.
    static scene::SCNNodePtr importedObject() {
        auto object = std::make_shared<scene::SCNNode>();
        object->geometry = std::make_shared<scene::SCNBox>(17, 5, 3, 0);
        const auto part = std::make_shared<scene::SCNNode>();
        part->geometry = std::make_shared<scene::SCNBox>(1, 1, 1, 0);
        object->addChildNode(part);
        return object;
    }

    static constexpr glm::vec3 kHome{0, 22, -30};
    test::TestWorld world;
    MediaNodePtr media = MediaNode::make(kHome, 1, world.surroundings());
};

TEST_F(MediaNodeTest, AnUnknownShapeIsANewNone) {
    const auto shape = MediaNode::shapeNamed("Nothing");
    EXPECT_EQ(shape->name, "None");
    EXPECT_NE(shape, MediaNode::shapeNamed("None"));
    EXPECT_EQ(media->currentShape(), MediaNode::shapeNamed("None"));
}

TEST_F(MediaNodeTest, FitsAnImportedObjectAndKeepsItsMaterials) {
    const auto object = importedObject();
    const auto own = std::make_shared<scene::SCNMaterial>();
    object->geometry->materials = {own};
    media->setLayoutPosition({9, 9, 9});
    media->setCustomNode(object);
    EXPECT_EQ(media->layoutPosition(), kHome);
    EXPECT_FLOAT_EQ(object->scale.value().y, 20) << "340 over its largest side";
    EXPECT_EQ(object->geometry->materials.front(), own);
    EXPECT_EQ(media->currentMaterialName(), std::nullopt);

    MediaStylePreset style;
    style.shape = std::make_shared<NoShape>();
    media->applyStyle(style);
    EXPECT_EQ(media->currentShape(), style.shape);
    EXPECT_EQ(object->parent(), media->contentNode.get()) << "the object stays on show";
    EXPECT_EQ(object->geometry->materials.front(), own);

    const std::uint32_t mask = object->categoryBitMask;
    media->setFrontColor({1, 0, 0, 1});
    EXPECT_EQ(object->categoryBitMask, mask) << "the lights of the content reach its parts alone";
    EXPECT_EQ(media->currentMaterialName(), XMATClasses::plain);
    EXPECT_EQ(object->geometry->materials.front()->diffuse.colorOr({}), (Color{1, 0, 0, 1}));
    const auto part = object->childNodes().front();
    EXPECT_EQ(part->geometry->materials, object->geometry->materials);
    EXPECT_EQ(part->categoryBitMask, node::kContentMask);

    media->setLayoutPosition({9, 9, 9});
    media->setShape(MediaNode::shapeNamed("None"));
    EXPECT_EQ(media->layoutPosition(), kHome);
    EXPECT_EQ(media->customNode(), nullptr);
    EXPECT_EQ(object->parent(), nullptr);
    media->setCustomNode(object);
    media->setShape(style.shape);
    EXPECT_EQ(media->currentMaterialName(), XMATClasses::plain) << "a shape has none of its own";
}

TEST_F(MediaNodeTest, ShowsOneShapeAtATimeInItsMaterial) {
    const MediaShapePtr heart = MediaNode::shapeNamed("Heart");
    media->setShape(MediaNode::shapeNamed("Star 1"));
    media->setShape(heart);
    ASSERT_EQ(media->contentNode->childNodes(), (std::vector<scene::SCNNodePtr>{heart->node}));
    media->applyStyle({heart, {1, 0, 0, 1}, XMATClasses::iron});
    const auto& materials = heart->node->childNodes().front()->geometry->materials;
    EXPECT_EQ(materials.front(), media->materialNamed(XMATClasses::iron)->front);
    EXPECT_EQ(materials.front()->diffuse.colorOr({}), (Color{1, 0, 0, 1}));
    EXPECT_EQ(heart->node->wrapperNode.lock(), media) << "a touch finds the node";
}

} // namespace
} // namespace zelvo::content
