// SPDX-License-Identifier: MIT
#include "platform/scene/SCNTechnique.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace zelvo::scene {
namespace {

const std::string kGood = // NOLINT(cert-err58-cpp)
    "<plist><dict>"
    "<key>symbols</key><dict><key>r</key><dict><key>value</key><real>0.5</real></dict></dict>"
    "<key>targets</key>"
    "<dict><key>small</key><dict><key>scaleFactor</key><real>0.25</real></dict></dict>"
    "<key>passes</key><dict><key>one</key><dict><key>draw</key><string>DRAW_QUAD</string>"
    "<key>metalVertexShader</key><string>simpleVertexShader</string>"
    "<key>metalFragmentShader</key><string>gaussFragmentShader</string>"
    "<key>inputs</key><dict><key>colorSampler</key><string>COLOR</string>"
    "<key>radius</key><string>r</string>"
    "<key>directionX</key><string>r</string><key>directionY</key><string>r</string></dict>"
    "<key>outputs</key><dict><key>color</key><string>small</string></dict></dict></dict>"
    "<key>sequence</key><array><string>one</string></array></dict></plist>";

std::string replaced(const std::string& from, const std::string& to) {
    std::string text = kGood;
    const auto found = text.find(from);
    EXPECT_NE(found, std::string::npos) << from;
    return found == std::string::npos ? text : text.replace(found, from.size(), to);
}

foundation::Result<SCNTechniquePtr> build(const std::string& xml) {
    const auto list = readPropertyList(xml);
    if (!list)
        return tl::unexpected(list.error());
    return SCNTechnique::techniqueWithDictionary(*list);
}

TEST(Technique, ReadsADescription) {
    const auto technique = build(kGood);
    ASSERT_TRUE(technique) << technique.error().message;
    ASSERT_EQ((*technique)->passes.size(), 1U);
    const auto& pass = (*technique)->passes[0];
    EXPECT_EQ(pass.input, SCNTechnique::kColor);
    EXPECT_EQ((*technique)->targets.at(static_cast<std::size_t>(pass.output)), 0.25);
    EXPECT_EQ(pass.uniforms.at(2).value, 0.5F);
}

TEST(Technique, SharesTargetsOfOneSizeWithWhatComesBeforeAndAfter) {
    const auto writing = [](std::vector<double> targets) {
        SCNTechnique technique{.targets = std::move(targets), .passes = {}};
        for (int i = 0; i < static_cast<int>(technique.targets.size()); ++i)
            technique.passes.push_back({"shrinkFragmentShader", SCNTechnique::kColor, i});
        return technique.copy();
    };
    const auto all = SCNTechnique::techniqueBySequencingTechniques(
        std::vector{writing({0.25, 0.5}), writing({0.5, 0.5, 0.25}), writing({0.25, 0.5})});
    std::string written;
    for (const auto& pass : all->passes)
        written += std::to_string(pass.output);
    EXPECT_EQ(written, "0112001");
    EXPECT_EQ(all->targets, (std::vector{0.25, 0.5, 0.5}));
}

TEST(Technique, NamesWhatIsWrong) {
    struct Row {
        std::string from, to, word;
    };

    // clang-format off
    const auto rows = std::to_array<Row>({
        {"DRAW_QUAD",            "DRAW_SCENE",               "draw"       },
        {"gaussFragment",        "noFragment",               "noFragment" },
        {"simpleVertex",         "otherVertex",              "Vertex"     },
        {"<string>r</string>",   "<string>q</string>",       "no symbol q"},
        {"<string>r</string>",   "<real>1</real>",           "radius"     },
        {"<string>small",        "<string>large",            "large"      },
        {"<string>COLOR",        "<string>small",            "reads"      },
        {"<real>0.25",           "<real>1.5",                "scaleFactor"},
        {"<real>0.5",            "<real>nan",                "nan"        },
        {"<string>one",          "<string>two",              "two"        },
        {"<string>one</string>", "",                         "sequence"   },
        {"<real>0.5</real>",     "<data>AAAA</data>",        "data"       },
        {"<key>passes</key>",    "<key>symbols</key>",       "symbols"    },
        {"<key>outputs</key>",   "<string>outputs</string>", "key"        },
        {"</plist>",             "",                         "line"       },
    });
    // clang-format on
    for (const Row& row : rows) {
        const auto technique = build(replaced(row.from, row.to));
        ASSERT_FALSE(technique) << row.to;
        EXPECT_NE(technique.error().message.find(row.word), std::string::npos)
            << technique.error().message;
    }
    std::string deep = "<plist><dict><key>a</key>";
    for (int i = 0; i < 5000; ++i)
        deep += "<array>";
    EXPECT_EQ(readPropertyList(deep).error().cause, foundation::Cause::tooLarge);
}

TEST(Technique, SurvivesDamage) {
    std::size_t survivors = 0;
    for (std::size_t i = 0; i < kGood.size(); ++i) {
        std::string text = kGood;
        text[i] = static_cast<char>(text[i] ^ 0x11);
        survivors += build(text) ? 1U : 0U;
        EXPECT_FALSE(build(kGood.substr(0, i)));
    }
    EXPECT_LT(survivors, kGood.size() / 4);
}

} // namespace
} // namespace zelvo::scene
