// SPDX-License-Identifier: MIT
#include "platform/usd/Stage.h"
#include "usd/Package.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <memory>

namespace zelvo::usd {
namespace {

/// Composes a package; every file gets the first line of a text layer.
class CompositionTest : public testing::Test {
protected:
    const Stage& compose(std::vector<test::PackedFile> files, const Limits& limits = {}) {
        for (test::PackedFile& file : files) {
            if (!file.name.ends_with(".usdz"))
                file.content.insert(0, "#usda 1.0\n");
        }
        bytes = test::packageOf(files);
        auto assets = Assets::open(test::bytesOf(bytes), limits);
        EXPECT_TRUE(assets);
        auto opened = Stage::open(*std::move(assets), limits);
        EXPECT_TRUE(opened);
        stage = *std::move(opened);
        return *stage;
    }

    /// The number in the attribute x; -1 if there is none.
    [[nodiscard]] double x(const std::string& path) const {
        const Prim* prim = stage->at(path);
        return prim == nullptr ? -1 : prim->number("x").value_or(-1);
    }

    std::string bytes;
    std::unique_ptr<Stage> stage;
};

TEST_F(CompositionTest, opinions_stand_in_the_order_of_their_arcs) {
    // Each prim lacks one more of the stronger opinions.
    const std::string arcs = R"(
        prepend inherits = </_class> prepend references = @ref.usda@ prepend payload = @pay.usda@
        prepend specializes = </_special> prepend variantSets = "v" variants = { string v = "one" })";
    compose(
        {{"root.usda",
          "( subLayers = [@sub.usda@] )\n"
          "class \"_class\" { double b = 3 double c = 3 double d = 3 double e = 3 double f = 3 "
          "double x = 3 }\n"
          "class \"_special\" { double f = 7 double g = 7 double x = 7 }\n"
          "def \"A\" (" +
              arcs +
              ") { double x = 1\n"
              "variantSet \"v\" = { \"one\" { double c = 4 double d = 4 double x = 4 double h = 4 "
              "} } }\n"},
         {"sub.usda", "over \"A\" { double a = 2 double b = 2 double x = 2 }"},
         {"ref.usda",
          R"(( defaultPrim = "R" ) def "R" { double h = 5 double i = 5 double d = 5 double g = 5 )"
          "}"},
         {"pay.usda", "def \"P\" { double i = 6 double j = 6 double g = 6 }"}});
    const Prim& a = *stage->at("/A");
    const std::pair<const char*, double> expected[] = {
        {"x", 1}, {"a", 2}, {"b", 2}, {"c", 3}, {"d", 3}, {"h", 4}, {"i", 5}, {"j", 6}, {"g", 5}};
    for (const auto& [name, value] : expected)
        EXPECT_EQ(a.number(name), value) << name;
    EXPECT_EQ(a.number("f"), 3);
    EXPECT_FALSE(stage->at("/_class")->isDefined);
}

TEST_F(CompositionTest, a_variant_outweighs_a_reference_of_a_prim_inside) {
    compose(
        {{"root.usda", R"(
            def "A" ( variants = { string look = "red" } prepend variantSets = "look" ) {
                def "B" ( references = @b.usda@ ) {}
                variantSet "look" = { "red" { over "B" { double x = 2 } } "blue" {} }
            })"},
         {"b.usda", "def \"B\" { double x = 1 double y = 1 }"}});
    EXPECT_EQ(x("/A/B"), 2);
    EXPECT_EQ(stage->at("/A/B")->number("y"), 1);
}

TEST_F(CompositionTest, a_variant_is_chosen_from_outside) {
    const std::string model = R"(
        def "Model" ( prepend variantSets = ["look", "size"] variants = { string look = "red" } ) {
            variantSet "look" = {
                "red" { double x = 1 }
                "blue" ( variants = { string size = "big" } ) { double x = 2 }
            }
            variantSet "size" = { "big" { def "Extra" ( references = @extra.usda@ ) {} } "small" {} }
        })";
    compose(
        {{"root.usda",
          R"(def "A" ( references = @model.usda@ variants = { string look = "blue" } ) {}
                          def "B" ( references = @model.usda@ ) {})"},
         {"model.usda", model},
         {"extra.usda", "def \"E\" { double x = 9 }"}});
    EXPECT_EQ(x("/A"), 2);
    EXPECT_EQ(x("/A/Extra"), 9); // one variant chooses another
    EXPECT_EQ(x("/B"), 1);
    EXPECT_EQ(stage->at("/B/Extra"), nullptr);
}

TEST_F(CompositionTest, paths_of_a_referenced_layer_mean_prims_of_the_scene) {
    compose(
        {{"root.usda", R"(def "World" { def "A" ( references = @m.usda@</Top/Model> ) {
                              over "Mesh" { rel own = </World/Paint> } }
                              def "Paint" {} })"},
         {"m.usda", R"(def "Top" { def "Model" { def "Mesh" {
                           rel paint = </Top/Model/Looks{v=x}Red>
                           rel far = </Elsewhere>
                           token in.connect = <../Looks.out> } } })"}});
    const Prim& mesh = *stage->at("/World/A/Mesh");
    EXPECT_EQ(mesh.targets("paint"), StringList{"/World/A/Looks/Red"});
    EXPECT_EQ(mesh.targets("in"), StringList{"/World/A/Looks.out"});
    EXPECT_EQ(mesh.targets("own"), StringList{"/World/Paint"});
    EXPECT_TRUE(mesh.targets("far").empty());
}

TEST_F(CompositionTest, a_reference_sees_what_ancestors_of_its_target_refer_to) {
    compose(
        {{"root.usda", R"(def "Copy" ( references = </Library/Chair> ) {}
                          def "Library" ( references = @library.usda@ ) {})"},
         {"library.usda", R"(def "L" { def "Chair" { double x = 4 } })"}});
    EXPECT_EQ(x("/Copy"), 4);
}

TEST_F(CompositionTest, lists_are_edited_by_stronger_layers) {
    compose(
        {{"root.usda", R"(( subLayers = [@sub.usda@] )
                          over "A" ( delete references = @one.usda@ append references = @three.usda@ ) {})"},
         {"sub.usda", "def \"A\" ( references = [@one.usda@, @two.usda@] ) {}"},
         {"one.usda", "def \"P\" { double x = 1 }"},
         {"two.usda", "def \"P\" { double y = 2 }"},
         {"three.usda", "def \"P\" { double y = 3 double z = 3 }"}});
    const Prim& a = *stage->at("/A");
    EXPECT_FALSE(a.number("x"));
    EXPECT_EQ(a.number("y"), 2);
    EXPECT_EQ(a.number("z"), 3);
}

TEST_F(CompositionTest, circles_and_missing_layers_are_told_and_left_out) {
    compose(
        {{"root.usda", R"(( subLayers = [@root.usda@, @gone.usda@] )
                          def "A" ( references = @other.usda@ ) { double x = 1 }
                          def "B" { def "C" ( references = </B> ) { double x = 2 } }
                          class "K" ( inherits = </K/L> ) { class "L" {} })"},
         {"other.usda", "def \"O\" ( references = @root.usda@</A> ) { double y = 3 }"}});
    EXPECT_EQ(x("/A"), 1);
    EXPECT_EQ(stage->at("/A")->number("y"), 3);
    EXPECT_EQ(x("/B/C"), 2);
    EXPECT_EQ(
        stage->warnings().lines(),
        (std::vector<std::string>{
            "the layer gone.usda is missing",
            "/A refers to itself",
            "/B refers to itself",
            "/K/L refers to itself"}));
}

TEST_F(CompositionTest, a_package_inside_has_its_own_folder) {
    const std::string inner = test::packageOf(
        {{"main.usda", "#usda 1.0\ndef \"M\" ( references = @sub/part.usda@ ) {}"},
         {"sub/part.usda", "#usda 1.0\ndef \"P\" { double x = 6 }"}});
    compose(
        {{"scenes/root.usda", R"(def "A" ( references = @../models/m.usdz@ ) {}
                                 def "B" ( references = @../models/m.usdz[sub/part.usda]@ ) {}
                                 def "C" ( references = @C:\lost\MODELS\M.USDZ@ ) {}
                                 def "D" ( references = @../../out.usda@ ) {})"},
         {"models/m.usdz", inner}});
    EXPECT_EQ(x("/A"), 6);
    EXPECT_EQ(x("/B"), 6);
    EXPECT_EQ(x("/C"), 6); // found by its bare name
    EXPECT_EQ(x("/D"), -1);
}

TEST_F(CompositionTest, inactive_prims_are_gone_with_all_below) {
    compose(
        {{"root.usda", R"(def "A" ( active = false ) { def "B" {} } over "C" { def "D" {} })"}});
    EXPECT_EQ(stage->at("/A"), nullptr);
    EXPECT_EQ(stage->at("/A/B"), nullptr);
    EXPECT_FALSE(stage->at("/C")->isDefined);
}

TEST_F(CompositionTest, a_value_that_is_taken_away_hides_weaker_ones) {
    compose(
        {{"root.usda",
          R"(( subLayers = [@sub.usda@] ) over "A" { double x = None double y.timeSamples = { 1: 5 } })"},
         {"sub.usda", "def \"A\" { double x = 1 double y = 2 }"}});
    EXPECT_EQ(x("/A"), -1);
    EXPECT_EQ(stage->at("/A")->number("y"), 2); // a default rests, samples move
}

/// Every layer refers to the next one twice: the prims double with each layer.
TEST_F(CompositionTest, references_that_multiply_are_refused) {
    constexpr int kLayers = 30;
    std::vector<test::PackedFile> files;
    files.reserve(kLayers);
    for (int i = 0; i < kLayers; ++i) {
        files.push_back(
            {fmt::format("{}.usda", i),
             fmt::format(
                 "#usda 1.0\ndef \"A\" {{ def \"B\" ( references = @{0}.usda@ ) {{}} "
                 "def \"C\" ( references = @{0}.usda@ ) {{}} }}",
                 i + 1)});
    }
    Limits limits;
    limits.prims = 1000;
    const auto scene = test::readPackage(files, limits);
    ASSERT_FALSE(scene);
    EXPECT_EQ(scene.error().message, "it has too many objects");
}

} // namespace
} // namespace zelvo::usd
