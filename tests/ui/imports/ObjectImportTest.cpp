// SPDX-License-Identifier: MIT
#include "support/ZipFile.h"
#include "ui/UiFixture.h"
#include "ui/imports/ObjInfo.h"
#include "ui/imports/ObjectController.h"
#include "ui/imports/ObjectImporter.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <QUrl>

#include <filesystem>
#include <fstream>

namespace zelvo::ui {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

constexpr const char* kTriangle = "mtllib a.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl red\nf 1 2 3\n";

class ObjectImportTest : public test::UiTest {
protected:
    ObjectImportTest() {
        objects.objectsChanged.subscribe(
            listening, [this](bool isDone) { changes.push_back(isDone); });
    }

    fs::path write(const fs::path& name, const std::string& text) const {
        fs::path file = folder.path() / "given" / name;
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
        return file;
    }

    [[nodiscard]] std::string contentOf(const std::string& name) const {
        std::ifstream stream(objects.folder() / name);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// The title of the alert on show, which is closed; empty: there is none.
    std::string told() {
        std::string title = alerts.title().toStdString();
        alerts.accept();
        return title;
    }

    ObjectImporter objects{services};
    std::vector<bool> changes;
};

TEST_F(ObjectImportTest, TheReportTellsWhatAWavefrontFileRefersTo) {
    const fs::path ship =
        write("ship.obj", "# made by hand\r\n MTLLIB my ship.mtl\r\nv 0 0 0\nmtllib ../none.mtl");
    write(
        "ship.mtl",
        "newmtl a\nmap_Kd -s 1 1 1 hull plate.png\nbump b.png\nmap_ks\nMap_Ka c.png\nmap_Ke d.png");
    write("plate.png", "");
    write("one.obj", "mtllib one.mtl");
    write("one.mtl", "map_d plate.png");
    fs::create_directories(folder.path() / "given/folder.obj");
    const auto report = [&ship](const std::string& name) {
        return ObjInfo::report(ship.parent_path() / name).toStdString();
    };
    EXPECT_EQ(
        report("ship.obj"),
        "Wavefront .obj File: ship.obj\n\n"
        "Material template library: ship.mtl\n✅ File ship.mtl is at its place.\n"
        "\n3 images are referenced in the .mtl library:\n\n"
        "Diffuse texture: plate.png\n✅ The image plate.png is at its place.\n\n"
        "Alpha texture: b.png\n⚠️ The image b.png is missing.\n\n"
        "Ambient texture: c.png\n⚠️ The image c.png is missing.\n\n"
        "Material template library: ../none.mtl\n🚫 File ../none.mtl not found.\n\n");
    EXPECT_EQ(
        report("one.obj"),
        "Wavefront .obj File: one.obj\n\n"
        "Material template library: one.mtl\n✅ File one.mtl is at its place.\n"
        "\n1 image is referenced in the .mtl library:\n\n"
        "Alpha texture: plate.png\n✅ The image plate.png is at its place.\n\n");
    EXPECT_EQ(report("no.obj"), "Wavefront .obj File: no.obj\n\n🚫 File not found.\n");
    EXPECT_EQ(report("folder.obj"), "Wavefront .obj File: folder.obj\n\n🚫 Unknown error.\n");
    EXPECT_EQ(report("a.usdz"), "Universal Scene Description (Usdz) File:\na.usdz\n\n");
    EXPECT_EQ(report("a.png"), "File: a.png\n\n");

    const auto shown = [](const char* text) {
        return ObjInfo::withoutEscapes(QString::fromUtf8(text)).toStdString();
    };
    EXPECT_EQ(shown("✅ caf\\u00e9 \\ud83d\\ude00 \\351 a\\\\b"), "✅ café 😀 é a\\b");
    EXPECT_EQ(shown("caf\\u00e9 C:\\tex"), "caf\\u00e9 C:\\tex");
}

TEST_F(ObjectImportTest, AnArchiveIsFlattenedAndOneWithoutObjectsIsRefused) {
    const fs::path archive = folder.path() / "models.zip";
    test::ZipFile(archive)
        .add("models/a.obj", kTriangle)
        .add("models/tex/a.png", "new")
        .add("__MACOSX/models/._a.obj", "fork")
        .close();
    write("a.png", "old");
    (void)objects.importFiles({folder.path() / "given/a.png"});
    changes.clear();
    EXPECT_THAT(objects.importFiles({archive}), ElementsAre(objects.folder() / "a.obj"));
    EXPECT_THAT(objects.list(), UnorderedElementsAre("a.obj", "a.png"));
    EXPECT_EQ(contentOf("a.png"), "new");
    EXPECT_THAT(changes, ElementsAre(true));
    EXPECT_TRUE(fs::is_empty(folders.temporary));
    EXPECT_FALSE(alerts.isShowing());

    test::ZipFile(archive).add("b.png").add("b.mtl").close();
    EXPECT_TRUE(objects.importFiles({archive}).empty());
    EXPECT_EQ(told(), "No 3D files found in ZIP");
    EXPECT_THAT(changes, ElementsAre(true, false));
    EXPECT_EQ(objects.list().size(), 2U);
    EXPECT_TRUE(fs::is_empty(folders.temporary));

    test::ZipFile(archive).add("b.obj", kTriangle).add("../c.obj", kTriangle).close();
    EXPECT_TRUE(objects.importFiles({archive}).empty());
    EXPECT_THAT(alerts.message().toStdString(), testing::HasSubstr("outside of its folder"));
}

TEST_F(ObjectImportTest, FilesAndFoldersBringTheirParts) {
    const fs::path file = write("a.obj", kTriangle);
    write("a.mtl", "newmtl red\nmap_Kd -s 2 2 2 textures\\my hull.png\n");
    write("textures/my hull.png", "hull");
    write("textures/other.png", "other");
    const fs::path notes = write("notes.txt", "text");
    const fs::path gltf =
        write("b.gltf", R"({"buffers": [{"uri": "b%20c.bin"}, {"uri": "../x"}]})");
    write("b c.bin", "bin");
    EXPECT_THAT(
        objects.importFiles({notes, file, gltf}),
        ElementsAre(objects.folder() / "a.obj", objects.folder() / "b.gltf"));
    EXPECT_EQ(alerts.message(), "notes.txt");
    EXPECT_EQ(told(), "Unsupported file type.");
    EXPECT_THAT(
        objects.list(), UnorderedElementsAre("a.obj", "a.mtl", "my hull.png", "b.gltf", "b c.bin"));

    (void)objects.importFiles({folder.path() / "given"});
    EXPECT_THAT(objects.list(), testing::Contains("other.png"));
    EXPECT_THAT(objects.list(), testing::Not(testing::Contains("notes.txt")));
    (void)objects.importFiles({folder.path() / "given/textures"});
    EXPECT_EQ(told(), "No 3D files found in the folder");

    fs::remove_all(objects.folder());
    fs::create_directories(objects.folder() / "a.obj");
    changes.clear();
    EXPECT_TRUE(objects.importFiles({file}).empty());
    EXPECT_THAT(told(), testing::HasSubstr("a.obj"));
    EXPECT_THAT(changes, ElementsAre(false));
    (void)objects.importFiles({gltf});
    (void)objects.importFiles({objects.folder() / "b.gltf"});
    EXPECT_EQ(contentOf("b.gltf").front(), '{') << "a file can be imported onto itself";
}

TEST_F(ObjectImportTest, AFileIsRenamedWithinTheFolderAndOntoNoOther) {
    (void)objects.importFiles({write("a.obj", kTriangle), write("A.obj", kTriangle)});
    (void)objects.importFiles({write("b.png", "b")});
    EXPECT_THAT(objects.list(), UnorderedElementsAre("a.obj", "A.obj", "b.png"));
    changes.clear();
    for (const char* const name : {"../a.obj", "b.png", "A.obj", ".a.obj", "x/a.obj", ""})
        EXPECT_FALSE(objects.rename("a.obj", name)) << name;
    EXPECT_FALSE(objects.rename("none.obj", "c.obj"));
    EXPECT_TRUE(objects.rename("a.obj", "c"));
    EXPECT_FALSE(objects.deleteObject("a.obj"));
    EXPECT_TRUE(objects.deleteObject("A.obj"));
    EXPECT_THAT(objects.list(), UnorderedElementsAre("b.png", "c"));
    EXPECT_THAT(
        changes, ElementsAre(false, false, false, false, false, false, false, true, false, true));
}

TEST_F(ObjectImportTest, TheScreenListsRenamesAndHandsOverWhatWasLoaded) {
    struct Delegate : ObjectImportVCDelegate {
        void objectChosen(const scene::SCNNodePtr& node) override { chosen = node; }

        scene::SCNNodePtr chosen;
        foundation::Lifetime lifetime;
    };

    ObjectController screen(services, objects);
    Delegate delegate;
    screen.setDelegate(delegate, delegate.lifetime);
    fs::path loaded;
    screen.load = [&loaded](const fs::path& file) { loaded = file; };
    const auto rows = [this, &screen] {
        loop().drain();
        std::string text;
        for (const ObjectRowData& row : screen.rows())
            text += fmt::format("{}{} ", row.isObject ? "*" : "", row.name.toStdString());
        return text;
    };
    QList<QUrl> given;
    for (const char* const name : {"b.obj", "a.png", "B.obj", "C.USDZ"})
        given.append(QUrl::fromLocalFile(write(name, kTriangle).c_str()));
    screen.importFrom(given);
    EXPECT_EQ(rows(), "a.png *B.obj *b.obj *C.USDZ ");

    screen.pickRow(0);
    EXPECT_EQ(loaded, objects.folder() / "a.png") << "whatever it is";
    screen.infoAboutObjectFile(0);
    EXPECT_EQ(screen.info(), nullptr);

    const auto rename = [&](const char* to) {
        screen.renameRow(1);
        auto* const field = qobject_cast<RenameField*>(alerts.content());
        EXPECT_EQ(field->text, "B.obj");
        field->text = to;
        answer("OK");
        return rows();
    };
    EXPECT_EQ(rename(""), "a.png *B.obj *b.obj *C.USDZ ");
    EXPECT_EQ(rename("b.obj"), "a.png *B.obj *b.obj *C.USDZ ");
    EXPECT_EQ(told(), "There is a file of this name already.");
    EXPECT_EQ(rename("B.txt"), "a.png *b.obj B.txt *C.USDZ ");

    int closed = 0;
    QObject::connect(&screen, &ObjectController::dismissed, [&closed] { ++closed; });
    const auto node = std::make_shared<scene::SCNNode>();
    screen.didLoad(node);
    EXPECT_EQ(delegate.chosen, node);
    EXPECT_EQ(closed, 1);
}

TEST_F(ObjectImportTest, ThePageTurnsTheObjectAndLightsUpWhatIsTapped) {
    const fs::path file = write("a.obj", "v -2 -1 0\nv 2 -1 0\nv 0 3 0\nf 1 2 3\n");
    ObjectInfoController page(services, file);
    EXPECT_EQ(page.title(), "a");
    EXPECT_FALSE(page.word().isEmpty());
    loop().runFor(0.05);
    EXPECT_TRUE(page.word().isEmpty());
    ASSERT_EQ(page.report().size(), 1);
    EXPECT_EQ(page.report()[0].text, "Wavefront .obj File: a.obj");

    const scene::SCNNodePtr object = page.sceneView.view.scene()->rootNode()->childNodes().back();
    EXPECT_FLOAT_EQ(object->scale.value().x, 250.0F / 10) << "smaller than 10 counts as 10";
    const auto emission = [&object] {
        scene::SCNMaterialPtr material;
        object->enumerateHierarchy([&material](scene::SCNNode& node) {
            material = node.geometry ? node.geometry->materials.front() : material;
        });
        return material->emission.colorOr(image::Color::white(0)).red;
    };
    page.sceneView.tap({480, 250}, {960, 540});
    loop().runFor(0.5);
    EXPECT_NEAR(emission(), 1, 0.21);
    loop().runFor(0.3);
    EXPECT_NEAR(emission(), 0.4, 0.21);
    loop().runFor(0.5);
    EXPECT_EQ(emission(), 0);
    EXPECT_NEAR(object->eulerAngles().y, 2 * 1.35 / 5, 0.05);
    page.sceneView.tap({5, 5}, {960, 540});
    loop().runFor(0.3);
    EXPECT_EQ(emission(), 0);
}

} // namespace

} // namespace zelvo::ui
