// SPDX-License-Identifier: MIT
// The time line in the real window, with real events.
#include "document/ActEdits.h"
#include "document/Performer.h"
#include "ui/window/WindowFixture.h"

#include <QAccessible>

namespace zelvo::app {
namespace {

using document::Act;
using test::soon;

class TimelineWindowTest : public test::WindowFixture {
protected:
    TimelineWindowTest() {
        document::Press left;
        left.tab = "IN1";
        left.title = "Left In";
        document::Press right = left;
        right.title = "Right In";
        document::perform({{}, {}, {{1, left}, {4, right}}}, model);
        application.main.showAnim();
    }

    /// In the window's points.
    [[nodiscard]] QPoint placeOf(double seconds, double down) {
        const QQuickItem* const bar = view(&line);
        const double x = line.layout().xOf(seconds);
        const QQuickItem* strip = nullptr;
        for (const QQuickItem* const child : bar->childItems()) {
            if (child->width() == line.layout().width)
                strip = child;
        }
        return strip->mapToScene({x, strip->height() * down}).toPoint();
    }

    [[nodiscard]] QPoint middleOf(const std::string& button) {
        const QRectF place = line.placeOf(act(button).identifier);
        const double strip = view(&line)->height() - 1;
        return placeOf(line.layout().timeAt(place.center().x()), place.center().y() / strip);
    }

    void drag(QPoint from, QPoint by) {
        QTest::mousePress(&window, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 5; ++step)
            QTest::mouseMove(&window, from + by * step / 5);
        QTest::mouseRelease(&window, Qt::LeftButton, {}, from + by);
    }

    [[nodiscard]] Act act(const std::string& button) {
        for (const Act& each : document::actsOf(model)) {
            if (each.button == button)
                return each;
        }
        return {};
    }

    [[nodiscard]] bool menuHasKeys() const {
        const QQuickItem* item = window.activeFocusItem();
        while (item != nullptr && !item->inherits("QQuickListView"))
            item = item->parentItem();
        return line.menu.isOpen() && item != nullptr;
    }

    [[nodiscard]] std::size_t count() const { return document::actsOf(model).size(); }

    ui::TimelineController& line = *application.main.timelineObject();
};

TEST_F(TimelineWindowTest, IsUsedByMouseAndKeys) {
    ASSERT_TRUE(isReady());
    ASSERT_TRUE(soon([&] { return view(&line) != nullptr && line.marksNow().size() == 2; }));
    QTest::mouseClick(&window, Qt::LeftButton, {}, placeOf(3, 0.1));
    EXPECT_TRUE(model.isParked());
    EXPECT_NEAR(line.playhead(), 3, 0.02);
    QTest::keyClick(&window, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_TRUE(soon([&] { return std::abs(line.playhead() - 4) < 0.02; }))
        << "the strip has the focus";

    const int second = static_cast<int>(line.pointsPerSecond());
    drag(middleOf("Left In"), {second / 2, 0});
    EXPECT_NEAR(act("Left In").begins, 1.5, 0.05);
    EXPECT_NEAR(act("Right In").begins, 4, 0.02);
    QTest::keyClick(&window, Qt::Key_Delete);
    EXPECT_EQ(count(), 1U);
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(soon([&] { return count() == 2; }));
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(soon([&] { return std::abs(act("Left In").begins - 1) < 0.02; }));

    QTest::mouseClick(&window, Qt::LeftButton, {}, middleOf("Right In"));
    QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier);
    QTest::mouseClick(&window, Qt::LeftButton, {}, placeOf(6, 0.1));
    QTest::keyClick(&window, Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(soon([&] { return count() == 3; })) << "and nothing else takes the key";
    QTest::keyClick(&window, Qt::Key_P);
    EXPECT_TRUE(soon([&] { return model.isPlaying() && !model.recordsActs(); }));
    QTest::keyClick(&window, Qt::Key_P);
    EXPECT_TRUE(soon([&] { return model.isParked(); }));
    QTest::keyClick(&window, Qt::Key_F2);
    EXPECT_TRUE(soon([&] { return view(&line) == nullptr; })) << "not over the style panel";
}

TEST_F(TimelineWindowTest, HasAMenuForMouseAndFinger) {
    ASSERT_TRUE(isReady());
    ASSERT_TRUE(soon([&] { return view(&line) != nullptr && line.marksNow().size() == 2; }));
    QTest::mouseClick(&window, Qt::RightButton, {}, middleOf("Left In"));
    ASSERT_TRUE(soon([&] { return menuHasKeys(); }));
    QTest::keyClick(&window, Qt::Key_Down);
    QTest::keyClick(&window, Qt::Key_Return); // Duplicate
    EXPECT_TRUE(soon([&] { return count() == 3 && !line.menu.isOpen(); }));
    const std::unique_ptr<QPointingDevice> finger(QTest::createTouchDevice());
    const QPoint place = middleOf("Right In") + QPoint(0, 3);
    QTest::touchEvent(&window, finger.get()).press(0, place, &window);
    EXPECT_TRUE(soon([&] { return menuHasKeys(); })) << "the finger rests";
    QTest::touchEvent(&window, finger.get()).release(0, place, &window);
    EXPECT_EQ(line.picked(), std::set{act("Right In").identifier});
    EXPECT_TRUE(line.menu.isOpen());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(soon([&] { return !line.menu.isOpen(); }));
    EXPECT_EQ(line.picked().size(), 1U) << "the key closed the menu only";
}

TEST_F(TimelineWindowTest, IsAListForScreenReaders) {
    ASSERT_TRUE(isReady());
    ASSERT_TRUE(soon([&] { return view(&line) != nullptr && line.marksNow().size() == 2; }));
    line.pick({act("Right In").identifier});
    QAccessible::setActive(true);
    std::vector<std::string> said;
    const std::function<void(QAccessibleInterface*)> read = [&](QAccessibleInterface* item) {
        if (item->role() == QAccessible::List && item->text(QAccessible::Name) == "Time line") {
            for (int i = 0; i < item->childCount(); ++i) {
                QAccessibleInterface* const child = item->child(i);
                if (child->role() == QAccessible::ListItem)
                    said.push_back(
                        child->text(QAccessible::Name).toStdString() +
                        (child->state().selected ? " *" : ""));
            }
        }
        for (int i = 0; i < item->childCount(); ++i)
            read(item->child(i));
    };
    read(QAccessible::queryAccessibleInterface(&window));
    EXPECT_EQ(
        said,
        (std::vector<std::string>{
            "Left In, TX1, TX2, IMG, OBJ, at 1.00 seconds",
            "Right In, TX1, TX2, IMG, OBJ, at 4.00 seconds *"}));
}

} // namespace
} // namespace zelvo::app
