// SPDX-License-Identifier: MIT
#include "platform/usd/TextLayer.h"

#include "platform/usd/TextValues.h"

#include <gtest/gtest.h>

namespace zelvo::usd {
namespace {

std::shared_ptr<Budget> plenty() {
    return std::make_shared<Budget>(1 << 20);
}

/// What the layer's first prim says of an attribute.
Value valueOf(const std::string& statement, const std::string& attribute) {
    const auto layer = readTextLayer("#usda 1.0\ndef \"A\" {\n" + statement + "\n}", plenty());
    EXPECT_TRUE(layer) << layer.error().message;
    const PropertySpec* property =
        layer ? (*layer)->root.children.find("A")->properties.find(attribute) : nullptr;
    EXPECT_NE(property, nullptr);
    if (property == nullptr)
        return {};
    return *(property->value.isAuthored() ? property->value : property->firstSample).value();
}

TEST(TextLayer, values_of_all_kinds) {
    EXPECT_EQ(std::get<Numbers>(valueOf("float a = -.5e1", "a")), Numbers{-5});
    EXPECT_EQ(std::get<Numbers>(valueOf("bool a = true", "a")), Numbers{1});
    EXPECT_EQ(
        std::get<Numbers>(valueOf("double a = -inf", "a")).front(),
        -std::numeric_limits<double>::infinity());
    EXPECT_EQ(std::get<std::string>(valueOf(R"(string a = 'say \"hi\"\n')", "a")), "say \"hi\"\n");
    EXPECT_EQ(
        std::get<std::string>(valueOf("string a = \"\"\"two\n\"lines\" \"\"\"", "a")),
        "two\n\"lines\" ");
    EXPECT_EQ(
        std::get<std::string>(valueOf(R"(asset a = @@@odd@name\@@@.png@@@)", "a")),
        "odd@name@@@.png");
    EXPECT_EQ(
        std::get<IntArray>(valueOf("uniform int[] a = [1, -2, # remark\n 3,]", "a")),
        (IntArray{1, -2, 3}));
    EXPECT_EQ(
        std::get<StringList>(valueOf("token[] a = [\"x\", \"y\"]", "a")), (StringList{"x", "y"}));
    EXPECT_EQ(
        std::get<FloatArray>(valueOf("half2[] a = [(1, 2), (3, 4)]", "a")).values,
        (std::vector<float>{1, 2, 3, 4}));
    EXPECT_EQ(
        std::get<Numbers>(valueOf("matrix2d a = ((1, 2), (3, 4))", "a")), (Numbers{1, 2, 3, 4}));
    // The real part of a quaternion stands first in text, last in a value.
    EXPECT_EQ(std::get<Numbers>(valueOf("quatf a = (1, 2, 3, 4)", "a")), (Numbers{2, 3, 4, 1}));
    EXPECT_EQ(
        std::get<Numbers>(valueOf("float a.timeSamples = { 0: None, 1: 7, 2: 8, }", "a")),
        Numbers{7});
    EXPECT_TRUE(std::holds_alternative<Blocked>(valueOf("float a = None", "a")));
}

TEST(TextLayer, what_is_unknown_is_skipped) {
    const auto layer = readTextLayer(
        R"(#usda 1.0
        (
            "a remark"
            customLayerData = { string who = "me"; dictionary more = { int[] "odd key" = [1, (2, 3)] } }
            novelty = @file@</path> (offset = 1; scale = 2)
            info = nanometres
            upAxis = "Z"
        )
        reorder rootPrims = ["B", "A"]
        def Xform "A" ( ) {
            reorder properties = ["x"]
            custom uniform double x ( doc = """text
            over lines""" )
            float x = 2;
            rel someone
            prepend token y.connect = </A.x>
        }
        over "B" ( delete apiSchemas = ["C"] ) {})",
        plenty());
    ASSERT_TRUE(layer) << layer.error().message;
    EXPECT_EQ((*layer)->upAxis, "Z");
    const PrimSpec* a = (*layer)->root.children.find("A");
    ASSERT_NE(a, nullptr);
    EXPECT_TRUE(a->properties.find("x")->value.isAuthored());
    EXPECT_EQ(a->properties.find("y")->targets.prepended, StringList{"/A.x"});
    EXPECT_NE((*layer)->root.children.find("B"), nullptr);
}

TEST(TextLayer, relative_paths_count_from_their_prim) {
    EXPECT_EQ(absolutePath("../Looks/m.out", "/A/B"), "/A/Looks/m.out");
    EXPECT_EQ(absolutePath("../../x", "/A"), "/x");
    EXPECT_EQ(absolutePath("C{set=a}D", "/A"), "/A/C{set=a}D");
    EXPECT_EQ(absolutePath(".inputs:x", "/A"), "/A.inputs:x");
}

TEST(TextLayer, a_fault_is_told_with_its_line) {
    struct Row {
        std::string text;
        std::string message;
    };

    const std::string deep(500, '[');
    const Row rows[] = {
        {"def \"A\" {\nfloat a = ?\n}", "line 3: a number is missing"},
        {"def \"A\" {", "line 2: '}' is missing"},
        {"def Mesh {}", "line 2: a text is missing"},
        {R"(def "A" { string s = "open })", "line 2: a text has no end"},
        {"def \"A\" { float2[] a = [(1, 2), (3)] }",
         "line 2: a tuple has another length than the first one"},
        {"(x = " + deep + ")", "line 2: values are nested too deeply"},
        {"42", "line 2: an object is missing"},
    };
    for (const Row& row : rows) {
        const auto layer = readTextLayer("#usda 1.0\n" + row.text, plenty());
        ASSERT_FALSE(layer) << row.text;
        EXPECT_EQ(layer.error().message, row.message);
    }
}

} // namespace
} // namespace zelvo::usd
