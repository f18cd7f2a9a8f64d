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
     "light": {"type": "spot", "color": "#FF0000", "intensity": 2.5e7, "castsShadow": true, "shadowRadius": 4, "lampRadius": 7,
               "shadowCasterMask": 4, "shadowMapSize": 512, "shadowColor": "#00000080", "spotInnerAngle": 10,
               "spotOuterAngle": 60, "zNear": 5, "zFar": 900, "categoryBitMask": 2}},
    {"name": "floor", "geometry": {"type": "box", "width": 20, "height": 2, "length": 10, "chamferRadius": 0},
     "material": {"lightingModel": "constant", "diffuse": "#00FF00", "roughness": 0.25, "doubleSided": true,
                  "floor": {"mirror": 0.5, "contact": 0.25, "height": -12}},
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
    EXPECT_EQ(key->light->shadowCasterMask, 4U);
    EXPECT_FLOAT_EQ(key->light->lampRadius, 7);

    const SCNNodePtr floor = root.childNodeWithName("floor", SCNNode::Search::childrenOnly);
    ASSERT_TRUE(floor && floor->geometry);
    const SCNMaterial* material = floor->geometry->materialFor(0);
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(material->diffuse.colorOr(image::Color::clear()), image::Color::hex(0x00FF00));
    EXPECT_FLOAT_EQ(material->roughness.colorOr(image::Color::clear()).red, 0.25f);
    EXPECT_TRUE(material->isDoubleSided && material->metalness.isEmpty());
    ASSERT_TRUE(material->floor.has_value());
    EXPECT_FLOAT_EQ(material->floor->mirror, 0.5f);
    EXPECT_FLOAT_EQ(material->floor->contact, 0.25f);
    EXPECT_FLOAT_EQ(material->floor->height, -12);
    EXPECT_NE(root.childNodeWithName("ball", SCNNode::Search::recursively), nullptr);
    EXPECT_FLOAT_EQ((*scene)->background.intensity, 0.5f);
    EXPECT_TRUE((*scene)->lightingEnvironment.isEmpty());
}

TEST(SceneFile, ExtrudesAPathWithYDown) {
    const auto scene = SCNScene::fromJSON(
        R"({"nodes": [{"name": "roof", "geometry": {"type": "shape", "path": "M0,0L40,0L20,-30Z", "depth": 6,
            "chamferRadius": 10, "chamferProfile": "rounded", "flatness": 0.5}}]})",
        "roof.scn");
    ASSERT_TRUE(scene) << scene.error().message;
    const geometry::Box box = (*scene)->rootNode()->childNodes().front()->boundingBox();
    expectNear(box.min, {0, 0, -3});
    EXPECT_FLOAT_EQ(box.max.y, 30);
}

struct BadFile {
    std::string text;
    std::string message;
};

void expectErrors(const std::vector<BadFile>& rows) {
    for (const BadFile& row : rows) {
        const auto scene = SCNScene::fromJSON(row.text, "bad.scn");
        EXPECT_EQ(scene ? "no error" : scene.error().message, "bad.scn: " + row.message)
            << row.text;
    }
}

std::string inNode(const std::string& keys) {
    return R"({"nodes":[{)" + keys + "}]}";
}

std::string inLight(const std::string& keys) {
    return inNode(R"("light":{"type":"omni",)" + keys + "}");
}

// One row for each case.
// clang-format off

TEST(SceneFile, NamesFileAndPlaceOfWhatIsWrong) {
    expectErrors({
        {"{\n\"nodes\": [\n}", "line 3: not JSON: a value is expected here"},
        {"[]", "line 1: the scene must be an object {…}, not a list"},
        {R"({"nodes":{}})", R"(line 1: "nodes" in the scene must be a list, not an object)"},
        {"{\"nodes\":[{},\n7]}", "line 2: nodes[1] of the scene must be an object {…}, not a number"},
        {inNode(R"("opacity":1,"opacity":1)"), R"(line 1: key "opacity" stands twice in nodes[0] of the scene)"},
        {inNode(R"("children":[{"nmae":""}])"), 
         R"(line 1: unknown key "nmae" in children[0] of nodes[0] of the scene; did you mean "name"?)"},
        {inNode(R"("light":{})"), R"(line 1: "type" in light of nodes[0] of the scene is missing)"},
        {inNode(R"("material":{})"), R"(line 1: "material" in nodes[0] of the scene needs a geometry beside it)"},
        {inNode(R"("geometry":{"type":"plane","radius":1})"),
         R"(line 1: unknown key "radius" in geometry of nodes[0] of the scene; there is type, width, height)"},
        {inLight(R"("zNear":9,"zFar":8)"), R"(line 1: "zFar" in light of nodes[0] of the scene must be beyond zNear)"},
        {R"({"background":{"intensity":1}})", R"(line 1: "background" in the scene needs "image" or "color")"},
    });
}

TEST(SceneFile, NamesKeyAndRangeOfAWrongValue) {
    const std::string color = R"(must be a colour like "#RRGGBB" or "#RRGGBBAA")";
    const std::string place = R"(line 1: "position" in nodes[0] of the scene must be three numbers [x, y, z] of -1000000 to 1000000)";
    expectErrors({
        {inNode(R"("opacity":1.5)"), R"(line 1: "opacity" in nodes[0] of the scene must be 0 to 1, not 1.5)"},
        {inNode(R"("categoryBitMask":2.5)"),
         R"(line 1: "categoryBitMask" in nodes[0] of the scene must be a whole number, 0 to 2147483647, not 2.5)"},
        {inNode(R"("position":[1,2])"), place},
        {inNode(R"("position":[1,2,1e30])"), place},
        {inNode(R"("light":{"type":"laser"})"),
         R"(line 1: unknown type "laser"; there is ambient, directional, omni, spot)"},
        {inLight(R"("intensity":-1)"), R"(line 1: "intensity" in light of nodes[0] of the scene must be 0 or more, not -1)"},
        {inLight(R"("color":"red")"), R"(line 1: "color" in light of nodes[0] of the scene )" + color},
        {inLight(R"("shadowColor":"#000000+8")"), R"(line 1: "shadowColor" in light of nodes[0] of the scene )" + color},
        {inNode(R"("geometry":{"type":"sphere","segments":2})"),
         R"(line 1: "segments" in geometry of nodes[0] of the scene must be 3 to 512, not 2)"},
        {inNode(R"("geometry":{"type":"plane"},"material":{"diffuse":{"image":"none.png"}})"),
         R"(line 1: "image" in diffuse of material of nodes[0] of the scene names no usable picture: "none.png" is missing)"},
        {inNode(R"("geometry":{"type":"shape","depth":2})"),
         R"(line 1: "path" in geometry of nodes[0] of the scene must be path data of up to 20000 bytes)"},
        {inNode(R"("geometry":{"type":"shape","path":"M1e9,0L1,1L2,9Z"})"),
         R"(line 1: "path" in geometry of nodes[0] of the scene encloses nothing)"},
        {inNode(R"("geometry":{"type":"shape","path":"M0,0L1,0L1,1Z","chamferProfile":"round"})"),
         R"(line 1: unknown chamferProfile "round"; there is linear, rounded)"},
        {R"({"background":[]})", R"(line 1: "background" in the scene must be a colour, a number or an object)"},
    });
}

// clang-format on

std::string repeated(const std::string& part, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += part;
    }
    return text;
}

TEST(SceneFile, RefusesWhatIsTooDeepOrTooMuch) {
    const std::string opened = "{\"nodes\":[" + repeated("{\"children\":[", 100000);
    EXPECT_FALSE(SCNScene::fromJSON(opened, "unclosed.scn"));
    EXPECT_FALSE(SCNScene::fromJSON(opened + repeated("]}", 100001), "deep.scn"));
    EXPECT_FALSE(SCNScene::fromJSON("{\"nodes\":[{}" + repeated(",{}", 5000) + "]}", "many.scn"));
    EXPECT_TRUE(SCNScene::fromJSON("{\"nodes\":[{}" + repeated(",{}", 500) + "]}", "some.scn"));
}

TEST(SceneFile, OfTheProgramThatIsMissingEndsItWithItsName) {
    EXPECT_EXIT(
        std::ignore = SCNScene::sceneNamed("none.scn"),
        testing::ExitedWithCode(1),
        "^zelvo: none.scn is missing");
}

TEST(SceneFile, SurvivesDamageAnywhere) {
    for (std::size_t i = 0; i < kGoodScene.size(); ++i) {
        EXPECT_FALSE(SCNScene::fromJSON(kGoodScene.substr(0, i), "cut")) << "cut at " << i;
        std::string flipped = kGoodScene;
        flipped[i] = static_cast<char>(flipped[i] ^ 0x15);
        const auto scene = SCNScene::fromJSON(flipped, "flipped"); // success or error, but no crash
        if (!scene) {
            EXPECT_NE(scene.error().message.find("flipped: "), std::string::npos);
        }
    }
}

} // namespace
} // namespace zelvo::scene
