// SPDX-License-Identifier: MIT
#include "ui/UiFixture.h"
#include "ui/imports/ObjectController.h"
#include "ui/imports/ObjectImporter.h"
#include "ui/qml/Views.h"

#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include <filesystem>
#include <fstream>

namespace zelvo::test {

namespace {

/// The screen of imported objects, with the alerts above it.
class ObjectImportViewTest : public UiTest {
protected:
    ObjectImportViewTest() {
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.resize(960, 540);
        view.setInitialProperties({{"controller", QVariant::fromValue(&screen)}});
        view.setSource(ui::viewUrl("ObjectImport"));
        view.show();
        layOut();
    }

    ~ObjectImportViewTest() override { view.setSource({}); }

    void layOut() {
        loop().drain();
        QCoreApplication::processEvents();
        static_cast<void>(view.grabWindow());
    }

    [[nodiscard]] QString names() {
        layOut();
        QString text;
        for (const ui::ObjectRowData& row : screen.rows())
            text += row.name + " ";
        return text;
    }

    [[nodiscard]] static QPoint inRow(int row, int x) { return {x, 24 + 50 + row * 48 + 24}; }

    /// With files in its folder, which the screen lists when it is made.
    [[nodiscard]] ui::ObjectImporter& filled() {
        for (const char* const name : {"a.obj", "b.png", "c.obj"})
            std::ofstream(objects.folder() / name) << "v 0 0 0\nv 9 0 0\nv 0 9 0\nf 1 2 3\n";
        return objects;
    }

    ui::ObjectImporter objects{services};
    ui::ObjectController screen{services, filled()}; // before the view, so that it outlives it
    QQuickView view;
};

TEST_F(ObjectImportViewTest, IsWorkedByKeysSwipesAndTheButtonOfARow) {
    ASSERT_EQ(view.status(), QQuickView::Ready);
    std::string picked;
    screen.load = [&picked](const std::filesystem::path& file) { picked = file.filename(); };
    int closings = 0;
    QObject::connect(&screen, &ui::ObjectController::dismissed, [&closings] { ++closings; });

    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(picked, "b.png");
    QTest::keyClick(&view, Qt::Key_F2);
    EXPECT_EQ(alerts.title(), "Rename");
    ASSERT_NE(alerts.content(), nullptr);
    qobject_cast<ui::RenameField*>(alerts.content())->text = "d.png";
    answer("OK");
    EXPECT_EQ(names(), "a.obj c.obj d.png ");
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(names(), "a.obj c.obj ") << "the renamed file is still the current one";

    QTest::mouseClick(&view, Qt::LeftButton, {}, inRow(0, 720));
    layOut();
    ASSERT_NE(screen.info(), nullptr);
    EXPECT_EQ(screen.info()->title(), "a");
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(names(), "a.obj c.obj ") << "the list is below the page";
    QTest::keyClick(&view, Qt::Key_Escape);
    layOut();
    EXPECT_EQ(screen.info(), nullptr);
    EXPECT_EQ(closings, 0);

    QTest::mousePress(&view, Qt::LeftButton, {}, inRow(1, 500));
    for (int x = 480; x >= 300; x -= 20)
        QTest::mouseMove(&view, inRow(1, x), 1);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, inRow(1, 300), 1);
    QTest::qWait(200); // the buttons slide
    QTest::mouseClick(&view, Qt::LeftButton, {}, inRow(1, 650));
    EXPECT_EQ(alerts.title(), "Rename");
    answer("Cancel");
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_EQ(closings, 1);
}

} // namespace

} // namespace zelvo::test
