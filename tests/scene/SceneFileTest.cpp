// SPDX-License-Identifier: MIT
#include "SceneSupport.h"
#include "platform/image/Image.h"
#include "platform/scene/SCNShapes.h"

#include <glm/trigonometric.hpp>

namespace zelvo::scene {
namespace {

const std::string kGoodScene = R"({
  "background": {"color": "#102030", "intensity": 0.5},
  "nodes": [
    {"name": "key", "position": [1, 2, 3], "eulerAngles": [-90, 0, 45], "scale": [1, 2, 1], "opacity": 0.5,
     "hidden": true, "castsShadow": false, "categoryBitMask": 260,
     "light": {"type": "spot", "color": "#FF0000", "intensity": 2.5e7, "castsShadow": true, "shadowRadius": 4,
               "shadowSampleCount": 8, "shadowMapSize": 512, "shadowColor": "#00000080", "spotInnerAngle": 10,
               "spotOuterAngle": 60, "zNear": 5, "zFar": 900, "categoryBitMask": 2}},
    {"name": "floor", "geometry": {"type": "box", "width": 20, "height": 2, "length": 10, "chamferRadius": 0},
     "material": {"lightingModel": "constant", "diffuse": "#00FF00", "roughness": 0.25, "doubleSided": true},
     "children": [{"name": "ball", "geometry": {"type": "sphere", "radius": 3, "segments": 24}}]}
  ]
})";

TEST(SceneFile, BuildsTheTreeItDescribes) {
    const auto scene = SCNScene::fromJSON(kGoodScene, "good.scn");
    ASSERT_TRUE(scene) << scene.error().message;
    const SCNNode& root = *(*scene)->rootNode();
    const SCNNodePtr key = root.childNodeWithName("key", SCNNode::Search::childrenOnly);
    ASSERT_TRUE(key && key->light);
    expectNear(key->position, {1, 2, 3});
    expectNear(key->eulerAngles(), {glm::radians(-90.0f), 0, glm::radians(45.0f)});
    EXPECT_TRUE(key->isHidden && !key->castsShadow && key->light->castsShadow);
    EXPECT_EQ(key->categoryBitMask, 260U);
    EXPECT_EQ(key->light->type, SCNLightType::spot);
    EXPECT_DOUBLE_EQ(key->light->intensity, 2.5e7);
    EXPECT_NEAR(key->light->shadowColor.alpha, 0.502f, 1e-3f);
    EXPECT_DOUBLE_EQ(key->light->spotOuterAngle, 60);

    const SCNNodePtr floor = root.childNodeWithName("floor", SCNNode::Search::childrenOnly);
    ASSERT_TRUE(floor && floor->geometry);
    const SCNMaterial* material = floor->geometry->materialFor(0);
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(material->diffuse.colorOr(image::Color::clear()), image::Color::hex(0x00FF00));
    EXPECT_FLOAT_EQ(material->roughness.colorOr(image::Color::clear()).red, 0.25f);
    EXPECT_TRUE(material->isDoubleSided && material->metalness.isEmpty());
    EXPECT_NE(root.childNodeWithName("ball", SCNNode::Search::recursively), nullptr);
    EXPECT_FLOAT_EQ((*scene)->background.intensity, 0.5f);
    EXPECT_TRUE((*scene)->lightingEnvironment.isEmpty());
}

TEST(SceneFile, NamesFileAndKeyOfWhatIsWrong) {
    struct Row {
        std::string text;
        std::string message;
    };

    const auto node = [](const std::string& content) { return R"({"nodes":[{)" + content + "}]}"; };
    const auto light = [&](const std::string& content) {
        return node(R"("light":{"type":"omni",)" + content + "}");
    };
    const std::vector<Row> rows{
        {"{\n\"nodes\": [\n}",                                                                  "bad.scn: line 3: Invalid value."                             },
        {"",                                                                                    "bad.scn: line 1: The document is empty."                     },
        {"[]",                                                                                  "bad.scn: must be an object"                                  },
        {R"({"nods":[]})",                                                                      "bad.scn: nods: unknown key"                                  },
        {R"({"nodes":{}})",                                                                     "bad.scn: nodes: must be a list"                              },
        {R"({"nodes":[{},7]})",                                                                 "bad.scn: nodes[1]: must be an object"                        },
        {node(R"("opacity":1,"opacity":1)"),                                                    "bad.scn: nodes[0].opacity: stands twice"                     },
        {node(R"("opacity":1.5)"),                                                              "bad.scn: nodes[0].opacity: must be a number, 0 to 1"         },
        {node(R"("hidden":1)"),                                                                 "bad.scn: nodes[0].hidden: must be true or false"             },
        {node(R"("name":true)"),                                                                "bad.scn: nodes[0].name: must be a text"                      },
        {node(R"("categoryBitMask":2.5)"),
         "bad.scn: nodes[0].categoryBitMask: must be a whole number, 0 to 2147483647"                                                                         },
        {node(R"("position":[1,2])"),
         "bad.scn: nodes[0].position: must be 3 numbers, none beyond 1000000"                                                                                 },
        {node(R"("position":[1,2,1e30])"),
         "bad.scn: nodes[0].position: must be 3 numbers, none beyond 1000000"                                                                                 },
        {node(R"("children":[{"nmae":""}])"),                                                   "bad.scn: nodes[0].children[0].nmae: unknown key"             },
        {node(R"("light":{})"),                                                                 "bad.scn: nodes[0].light.type: is missing"                    },
        {node(R"("light":{"type":"laser"})"),
         "bad.scn: nodes[0].light.type: must be one of ambient, directional, omni, spot"                                                                      },
        {light(R"("intensity":-1)"),
         "bad.scn: nodes[0].light.intensity: must be a number, 0 or more"                                                                                     },
        {light(R"("color":"red")"),
         "bad.scn: nodes[0].light.color: must be a colour like \"#RRGGBB\" or \"#RRGGBBAA\""                                                                  },
        {light(R"("shadowColor":"#000000+8")"),
         "bad.scn: nodes[0].light.shadowColor: must be a colour like \"#RRGGBB\" or \"#RRGGBBAA\""                                                            },
        {light(R"("zNear":9,"zFar":8)"),                                                        "bad.scn: nodes[0].light.zFar: must be beyond zNear"          },
        {node(R"("geometry":{"type":"plane","radius":1})"),
         "bad.scn: nodes[0].geometry.radius: unknown key"                                                                                                     },
        {node(R"("geometry":{"type":"sphere","segments":2})"),
         "bad.scn: nodes[0].geometry.segments: must be a whole number, 3 to 512"                                                                              },
        {node(R"("material":{})"),                                                              "bad.scn: nodes[0].material: needs a geometry beside it"      },
        {node(R"("geometry":{"type":"plane"},"material":{"diffuse":{"image":"no such.png"}})"),
         "bad.scn: nodes[0].material.diffuse.image: no picture is named \"no such.png\""                                                                      },
        {R"({"background":[]})",                                                                "bad.scn: background: must be a colour, a number or an object"},
        {R"({"background":{"intensity":1}})",                                                   "bad.scn: background: needs \"image\" or \"color\""           },
    };
    for (const Row& row : rows) {
        const auto scene = SCNScene::fromJSON(row.text, "bad.scn");
        ASSERT_FALSE(scene) << row.text;
        EXPECT_EQ(scene.error().message, row.message);
    }
}

TEST(SceneFile, RefusesWhatIsTooDeepOrTooMuch) {
    std::string deep = "{\"nodes\":[";
    for (int i = 0; i < 100000; ++i) {
        deep += "{\"children\":[";
    }
    EXPECT_FALSE(SCNScene::fromJSON(deep, "deep.scn"));
    for (int i = 0; i < 100000; ++i) {
        deep += "]}";
    }
    EXPECT_FALSE(SCNScene::fromJSON(deep + "]}", "deep.scn"));

    std::string many = "{\"nodes\":[{}";
    for (int i = 0; i < 5000; ++i) {
        many += ",{}";
    }
    EXPECT_FALSE(SCNScene::fromJSON(many + "]}", "many.scn"));
    const auto large = SCNScene::fromJSON(std::string(5U << 20U, ' '), "large.scn");
    ASSERT_FALSE(large);
    EXPECT_EQ(large.error().cause, foundation::Cause::tooLarge);
}

TEST(SceneFile, SurvivesDamageAnywhere) {
    for (std::size_t i = 0; i < kGoodScene.size(); ++i) {
        EXPECT_FALSE(SCNScene::fromJSON(kGoodScene.substr(0, i), "cut")) << "cut at " << i;
        std::string flipped = kGoodScene;
        flipped[i] = static_cast<char>(flipped[i] ^ 0x15);
        const auto scene = SCNScene::fromJSON(flipped, "flipped"); // may read, must not crash
        if (!scene) {
            EXPECT_NE(scene.error().message.find("flipped: "), std::string::npos);
        }
    }
}

} // namespace
} // namespace zelvo::scene
