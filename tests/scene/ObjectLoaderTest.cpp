// SPDX-License-Identifier: MIT
#include "platform/scene/ObjectLoader.h"

#include "platform/foundation/RunLoop.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace zelvo::scene {

namespace {

using foundation::Cause;

class ObjectLoading : public testing::Test {
protected:
    /// A square on the ground, in red, with that name.
    std::filesystem::path square(const std::string& name) {
        std::ofstream(folder.path() / "paint.mtl") << "newmtl red\nKd 1 0 0\n";
        auto file = folder.path() / (name + ".obj");
        std::ofstream(file) << "mtllib paint.mtl\nusemtl red\nv 0 0 0\nv 0 0 3\nv 3 0 3\nv 3 0 0\n"
                               "f 1 2 3 4\n";
        return file;
    }

    void load(const std::filesystem::path& file) {
        loader.load(
            file,
            {.isAdvanced =
                 [this](const LoadProgress& progress) { shares.push_back(progress.share); },
             .isDone = [this](const ObjectLoader::Loaded& node) { done.push_back(node); }});
    }

    test::TemporaryFolder folder;
    foundation::VirtualRunLoop loop;
    ObjectLoader loader{loop};
    std::vector<double> shares;
    std::vector<ObjectLoader::Loaded> done;
};

TEST_F(ObjectLoading, GivesTheNodeWithItsMaterialsLater) {
    const auto file = square("rug");
    load(file);
    EXPECT_TRUE(loader.isLoading());
    EXPECT_TRUE(done.empty()) << "never inside load()";
    loop.drain();
    ASSERT_EQ(done.size(), 1U);
    ASSERT_TRUE(done[0]) << done[0].error().message;
    const SCNReferenceNode& node = **done[0];
    EXPECT_EQ(node.file(), file);
    EXPECT_EQ(node.boundingBox().max, glm::vec3(3, 0, 3));
    const SCNNodePtr part = node.childNodes().at(0);
    EXPECT_NEAR(part->geometry->materialFor(0)->diffuse.colorOr({}).red, 1, 1e-5);
    EXPECT_EQ(part->categoryBitMask, 1U);
    ASSERT_FALSE(shares.empty());
    EXPECT_TRUE(std::ranges::is_sorted(shares));
    EXPECT_EQ(shares.back(), 1);
    EXPECT_FALSE(loader.isLoading());

    // The file is read again in place of what was there.
    std::filesystem::remove(folder.path() / "paint.mtl");
    ASSERT_TRUE((*done[0])->load());
    EXPECT_EQ(node.childNodes().size(), 1U);
    EXPECT_FALSE(node.warnings().empty());
}

TEST_F(ObjectLoading, TellsOnlyOfTheLastFileAskedFor) {
    load(square("first"));
    load(square("second"));
    loop.drain();
    ASSERT_EQ(done.size(), 1U);
    EXPECT_EQ((*done[0])->file().filename(), "second.obj");

    load(square("third"));
    loader.giveUp();
    EXPECT_FALSE(loader.isLoading());
    loop.drain();
    EXPECT_EQ(done.size(), 1U);

    load(folder.path() / "ship.obj");
    loop.drain();
    ASSERT_EQ(done.size(), 2U);
    ASSERT_FALSE(done[1]);
    EXPECT_EQ(done[1].error().cause, Cause::notFound);
    EXPECT_EQ(done[1].error().message, "ship.obj: there is no such file");
}

/// With the wall clock's thread the reading can be under way when it is given up.
TEST_F(ObjectLoading, EndsTheReadingThatIsUnderWay) {
    LoadWatch watch;
    std::stop_source stop;
    watch.stop = stop.get_token();
    watch.isAdvanced = [&stop](const LoadProgress& progress) {
        if (progress.step == LoadStep::pictures)
            stop.request_stop();
    };
    const auto read = readObjectFile(square("rug"), watch);
    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().cause, Cause::cancelled);
}

} // namespace

} // namespace zelvo::scene
