// SPDX-License-Identifier: MIT
#include "object/ObjectSupport.h"
#include "platform/object/reading/MTLPictures.h"
#include "support/TemporaryFolder.h"

#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace zelvo::object {

namespace {

namespace fs = std::filesystem;

const std::string kTriangle = "v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1 2 3\n";

class MTL : public testing::Test {
protected:
    void write(const fs::path& name, const std::string& text) const {
        fs::create_directories((folder.path() / name).parent_path());
        std::ofstream(folder.path() / name) << text;
    }

    /// A triangle with the material "m" of this library.
    [[nodiscard]] ObjectScene with(const std::string& library) const {
        write("a b.mtl", "newmtl m\n" + library);
        return objectOf("mtllib a b.mtl\nusemtl m\n" + kTriangle, folder.path());
    }

    test::TemporaryFolder folder;
};

TEST_F(MTL, takes_what_many_programs_mean) {
    for (const char* name : {"c.png", "d.png"})
        write(name, "");

    struct Row {
        const char* lines;
        std::function<bool(const Material&)> isRight;
    };

    const auto near = [](float value, float wanted) { return std::abs(value - wanted) < 1e-3F; };
    // clang-format off
    const std::vector<Row> rows{
        {"",                          [&](auto& m) { return near(m.baseColor.factor.r, 0.604F); }},
        {"Kd 0.5",                    [&](auto& m) { return near(m.baseColor.factor.b, 0.214F); }},
        {"KD 255 0 0",                [&](auto& m) { return m.baseColor.factor == glm::vec3(1, 0, 0); }},
        {"Kd 1.5 -1 0",               [&](auto& m) { return m.baseColor.factor == glm::vec3(1, 0, 0); }},
        {"Kd spectral a.rfl",         [&](auto& m) { return near(m.baseColor.factor.r, 0.604F); }},
        {"Kd 0 0 0\nmap_Kd c.png",    [&](auto& m) { return m.baseColor.factor == glm::vec3(1); }},
        {"Kd 1 0 0\nmap_Kd c.png",    [&](auto& m) { return m.baseColor.factor == glm::vec3(1, 0, 0); }},
        {"Ns 98",                     [&](auto& m) { return near(m.roughness.factor, 0.1414F); }},
        {"Ns 1e9",                    [&](auto& m) { return near(m.roughness.factor, 0.0447F); }},
        {"Ns 98\nillum 1",            [&](auto& m) { return m.roughness.factor == 1; }},
        {"Ns 98\nKs 0 0 0",           [&](auto& m) { return m.roughness.factor == 1; }},
        {"Ns 98\nPr 0.3\nPm 1\naniso 0", [&](auto& m) { return near(m.roughness.factor, 0.3F) && m.metalness.factor == 1; }},
        {"map_Pr c.png",              [&](auto& m) { return m.roughness.factor == 1 && m.roughness.picture; }},
        {"d 0.25\nTr 0.1",            [&](auto& m) { return near(m.opacity.factor, 0.25F); }},
        {"Tr 0.75",                   [&](auto& m) { return near(m.opacity.factor, 0.25F); }},
        {"d -halo 0.25",              [&](auto& m) { return near(m.opacity.factor, 0.25F); }},
        {"d 1\nTr 1",                 [&](auto& m) { return m.opacity.factor == 1; }},
        {"d 0",                       [&](auto& m) { return m.opacity.factor == 1; }},
        {"Ke 1 1 1",                  [&](auto& m) { return m.emission.factor == glm::vec3(1); }},
        {"map_Kd c.png",              [&](auto& m) { return m.opacity.picture->channel == Channel::alphaIfVaried; }},
        {"map_Kd c.png\nmap_d c.png", [&](auto& m) { return m.opacity.picture->channel == Channel::alpha; }},
        {"map_Kd c.png\nmap_d d.png", [&](auto& m) { return m.opacity.picture->channel == Channel::alphaOrBrightness; }},
        {"bump -bm 0.4 c.png",        [&](auto& m) { return m.normalPicture == NormalPicture::unknown && near(m.normal.factor, 0.4F); }},
        {"norm c.png\nbump d.png",    [&](auto& m) { return m.normalPicture == NormalPicture::tangentSpace && m.normal.picture->texture == 0; }},
        {"map_Kd -clamp on c.png",    [&](auto& m) { return m.baseColor.picture->wrapT == Wrap::clamp; }},
        // The lower left quarter of the picture: with v downwards, v' = 0.5 v + 0.5.
        {"map_Kd -s .5 .5 c.png",     [&](auto& m) { return m.baseColor.picture->transform * glm::vec3(1, 1, 1) == glm::vec3(.5, 1, 1); }},
        {"map_Ks c.png\nkd 1 1 1\nnewmtl other\nKd 0 0 0", [&](auto& m) { return m.baseColor.factor == glm::vec3(1); }},
        {"Kd 1 0 0\nnewmtl m\nKd 0 1 0", [&](auto& m) { return m.baseColor.factor == glm::vec3(0, 1, 0); }},
    };
    // clang-format on
    for (const Row& row : rows) {
        const ObjectScene scene = with(row.lines);
        ASSERT_EQ(scene.materials.size(), 1U);
        EXPECT_TRUE(row.isRight(scene.materials[0])) << row.lines;
        EXPECT_TRUE(scene.warnings.empty()) << row.lines;
    }
}

TEST(MTLPicture, is_a_name_with_options_before_or_behind) {
    struct Row {
        const char* text;
        const char* name;
        glm::vec2 scale{1}, offset{0};
        float strength = 1;
    };

    const Row rows[] = {
        {"a b.png", "a b.png"},
        {"  C:\\maps\\a  b.png # old", "C:\\maps\\a  b.png"},
        {"red#2.png", "red#2.png"},
        {"-s 2 3 1 -o 0.5 a.png", "a.png", {2, 3}, {0.5F, 0}},
        {"-o 1 2", "2", {1, 1}, {1, 0}},
        {"-s 4 5 6 7.png", "7.png", {4, 5}},
        {"-s 4 5 6 7", "7", {4, 5}},
        {"-mm 0 1 -bm 1.5 -type sphere -imfchan r a.png", "a.png", {1, 1}, {0, 0}, 1.5F},
        {"a.png -bm 0.5", "a.png", {1, 1}, {0, 0}, 0.5F},
        {"a b.png -s 2 2 2", "a b.png", {2, 2}},
        {"-odd.png", "-odd.png"},
        {"-clamp on", "on"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        const MTLPicture picture = readMTLPicture(row.text);
        EXPECT_EQ(picture.name, row.name);
        EXPECT_EQ(picture.scale, row.scale);
        EXPECT_EQ(picture.offset, row.offset);
        EXPECT_EQ(picture.strength, row.strength);
    }
}

TEST_F(MTL, finds_files_however_they_are_named_but_not_outside) {
    write("in/My Lib.MTL", "newmtl m\nKd 1 0 0\n");
    write("in/Maps/Wood.JPG", "");
    write("in/leaf.png", "");
    write("secret.png", "");
    write("secret.mtl", "newmtl m\nKd 0 0 1\n");
    NeighbourFiles files(folder.path() / "in");

    struct Row {
        const char* named;
        const char* found; ///< empty: nothing
    };

    const Row rows[] = {
        {"leaf.png", "leaf.png"},
        {"LEAF.PNG", "leaf.png"},
        {R"(C:\Users\me\leaf.png)", "leaf.png"},
        {R"("textures\\leaf.png")", "leaf.png"},
        {"/tmp/leaf.tga", "leaf.png"},
        {"maps\\wood.png", "Maps/Wood.JPG"},
        {"Maps/../leaf.png", "leaf.png"},
        {"../../leaf.png", "leaf.png"},
        {"../secret.png", ""},
        {"Maps/../../secret.png", ""},
        {"Maps", ""},
        {"..", ""},
        {"", ""},
    };
    for (const Row& row : rows) {
        const auto found = files.findPicture(row.named);
        const fs::path wanted = *row.found == '\0' ? fs::path() : folder.path() / "in" / row.found;
        EXPECT_EQ(found.value_or(fs::path()), wanted) << row.named;
    }
    for (const char* library :
         {"my lib.mtl", "none.mtl my\\ lib.mtl", "none.mtl\nmtllib My Lib.MTL"}) {
        const ObjectScene scene = objectOf(
            std::string("mtllib ") + library + "\nusemtl m\n" + kTriangle, folder.path() / "in");
        EXPECT_EQ(scene.materials.at(0).baseColor.factor, glm::vec3(1, 0, 0)) << library;
    }
}

TEST_F(MTL, names_what_is_missing_and_goes_on) {
    const ObjectScene scene =
        objectOf("mtllib no.mtl\nusemtl a\nusemtl b c\n" + kTriangle, folder.path());
    EXPECT_EQ(
        scene.warnings,
        (std::vector<std::string>{
            "the library no.mtl is missing", "the material b c is not defined"}));
    EXPECT_EQ(scene.figures.materials, 1U); // "a" has no faces

    write("thing.mtl", "newmtl b c\nmap_Kd no.png\nmap_bump no.png\n");
    const ObjectScene named = objectOf("usemtl b c\n" + kTriangle, folder.path());
    EXPECT_EQ(named.warnings, std::vector<std::string>{"the picture no.png is missing"});
    EXPECT_EQ(named.textures.size(), 1U);
}

} // namespace

} // namespace zelvo::object
