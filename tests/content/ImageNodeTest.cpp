// SPDX-License-Identifier: MIT
#include "content/ImageNode.h"

#include "content/StylePresets.h"
#include "support/TestWorld.h"

#include <gtest/gtest.h>

namespace zelvo::content {
namespace {

class ImageNodeTest : public testing::Test {
protected:
    static image::ImagePtr picture(int width, int height) {
        return std::make_shared<const image::Image>(width, height);
    }

    test::TestWorld world;
    ImageNodePtr node = ImageNode::make({0, 0, 0}, 1, world.surroundings());
};

TEST_F(ImageNodeTest, KeepsThePicturesProportions) {
    struct Row {
        image::ImagePtr picture;
        double width;
        double height;
    };

    for (const Row& row :
         {Row{picture(1000, 500), 355, 177.5},
          {picture(100, 100), 355, 355},
          {picture(1, 5), 71, 355},
          {nullptr, 355, 355}}) {
        node->setImage(row.picture);
        EXPECT_DOUBLE_EQ(node->plane->width(), row.width);
        EXPECT_DOUBLE_EQ(node->plane->height(), row.height);
    }
    EXPECT_TRUE(node->material->diffuse.isEmpty());
}

TEST_F(ImageNodeTest, MirrorsThePictureUnderAMaskThatStays) {
    const auto mask = std::make_shared<const ImageMask>("Half", picture(10, 10));
    for (const bool isVertical : {false, true}) {
        node->applyStyle({picture(40, 20), mask, isVertical});
        EXPECT_EQ(node->contentNode->isHidden, !isVertical);
        (isVertical ? node->vFlipped : node->hFlipped) = true;
        node->updateContent();
        EXPECT_EQ(node->material->diffuse.contentsTransform[0][0], isVertical ? 1 : -1);
        EXPECT_EQ(node->material->diffuse.contentsTransform[1][1], isVertical ? -1 : 1);
        EXPECT_EQ(node->material->transparent.contentsTransform, glm::mat4(1));
        EXPECT_EQ(node->material->transparent.image(), mask->image());
        node->resetLayout();
        EXPECT_EQ(node->material->diffuse.contentsTransform, glm::mat4(1));
    }
    node->setCurrentMask(imageMasks().front());
    EXPECT_EQ(node->material->transparent.colorOr(image::Color::white(1)), image::Color::white(0))
        << "no mask leaves the picture opaque";
}

TEST_F(ImageNodeTest, IsFoundByATouch) {
    node->updateContent();
    EXPECT_EQ(node->imageNode->wrapperNode.lock(), node);
    EXPECT_EQ(node->bgNode->wrapperNode.lock(), node);
}

} // namespace
} // namespace zelvo::content
