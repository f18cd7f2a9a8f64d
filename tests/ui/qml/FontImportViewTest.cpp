// SPDX-License-Identifier: MIT
#include "text/FontForms.h"
#include "ui/UiFixture.h"
#include "ui/imports/FontImportViewController.h"
#include "ui/qml/Views.h"

#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include <fstream>

namespace zelvo::test {

namespace {

/// The screen of imported fonts in the window's least size: a sheet of 560 points in its middle.
class FontImportViewTest : public UiTest {
protected:
    FontImportViewTest() {
        for (const char* file :
             {"Abel-Regular.ttf", "Geo-Regular.ttf", "Orbitron-Bold.ttf", "TitanOne.ttf"})
            EXPECT_TRUE(
                fontManager.install(foundation::mainBundle().path("fonts/" + std::string(file))));
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.resize(960, 540);
        view.setInitialProperties({{"controller", QVariant::fromValue(&screen)}});
        view.setSource(ui::viewUrl("FontImport"));
        view.show();
        layOut();
    }

    ~FontImportViewTest() override { view.setSource({}); }

    void layOut() {
        QCoreApplication::processEvents();
        static_cast<void>(view.grabWindow());
    }

    [[nodiscard]] static QPoint inRow(int row, int x) {
        constexpr int kFirst = 24 + 49; // above the sheet, and its bar
        return {x, kFirst + row * 48 + 24};
    }

    void drag(const QPoint& from, const QPoint& to) {
        QTest::mousePress(&view, Qt::LeftButton, {}, from);
        constexpr int kSteps = 8;
        for (int i = 1; i <= kSteps; ++i)
            QTest::mouseMove(&view, from + (to - from) * i / kSteps, 1);
        QTest::mouseRelease(&view, Qt::LeftButton, {}, to, 1);
        layOut();
    }

    ui::FontImportViewController screen{
        services}; // declared before the view, so that it outlives it
    QQuickView view;
};

TEST_F(FontImportViewTest, DeletesBySwipeAndKeyAndPicksByTapAndReturn) {
    ASSERT_EQ(view.status(), QQuickView::Ready);
    int closings = 0;
    QObject::connect(
        &screen, &ui::FontImportViewController::dismissed, [&closings] { ++closings; });

    drag(inRow(1, 600), inRow(1, 500));
    EXPECT_EQ(screen.rows().size(), 4) << "a swipe alone deletes nothing";
    QTest::mouseClick(&view, Qt::LeftButton, {}, inRow(1, 300));
    EXPECT_EQ(closings, 0) << "a tap on an open row only closes the row";
    drag(inRow(1, 600), inRow(1, 500));
    QTest::qWait(200); // the button slides
    QTest::mouseClick(&view, Qt::LeftButton, {}, inRow(1, 730));
    layOut();
    EXPECT_EQ(
        screen.rows(), (QStringList{"Abel-Regular.ttf", "Orbitron-Bold.ttf", "TitanOne.ttf"}));

    QTest::mouseClick(&view, Qt::LeftButton, {}, inRow(0, 300));
    EXPECT_EQ(closings, 1);
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(closings, 2);
    QTest::keyClick(&view, Qt::Key_Delete);
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(screen.rows(), QStringList{"Abel-Regular.ttf"}) << "the next row follows";
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_EQ(closings, 3);
    QTest::mouseClick(&view, Qt::LeftButton, {}, {20, 20});
    EXPECT_EQ(closings, 4) << "beside the sheet";
}

} // namespace

} // namespace zelvo::test
