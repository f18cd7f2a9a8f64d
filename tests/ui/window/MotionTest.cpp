// SPDX-License-Identifier: MIT
#include "ui/window/WindowFixture.h"

#include <set>
#include <string>

namespace zelvo::test {
namespace {

struct WantsNoMotion {
    WantsNoMotion() { qputenv("ZELVO_REDUCED_MOTION", "1"); }

    ~WantsNoMotion() { qunsetenv("ZELVO_REDUCED_MOTION"); }

    WantsNoMotion(const WantsNoMotion&) = delete;
    WantsNoMotion& operator=(const WantsNoMotion&) = delete;
};

class StillWindowTest : private WantsNoMotion, public WindowFixture {
protected:
    /// The animations below an object that take time, with the class of what they move.
    void collect(const QObject* object, std::set<std::string>& moving) {
        if (!seen.insert(object).second)
            return;
        const QVariant duration = object->property("duration");
        if (object->inherits("QQuickPropertyAnimation") && duration.toInt() > 0) {
            const QObject* owner = object->parent();
            while (owner != nullptr && qobject_cast<const QQuickItem*>(owner) == nullptr)
                owner = owner->parent();
            moving.insert(owner == nullptr ? "?" : owner->metaObject()->className());
        }
        for (const QObject* const child : object->children())
            collect(child, moving);
        if (const auto* const item = qobject_cast<const QQuickItem*>(object)) {
            for (const QQuickItem* const child : item->childItems())
                collect(child, moving);
        }
    }

    [[nodiscard]] std::set<std::string> moving() {
        seen.clear();
        std::set<std::string> found;
        collect(&window, found);
        std::erase_if(found, [](const std::string& name) {
            return name.starts_with("zelvo::ui::StageItem");
        });
        return found;
    }

private:
    std::set<const QObject*> seen;
};

TEST_F(StillWindowTest, MovesOnlyTheStageIfTheUserWantsNoMotion) {
    ASSERT_TRUE(isDrawn());
    auto& menu = *panel<ui::LayouterMenu>();
    for (const auto option :
         {ui::CurrentOption::frontColor, ui::CurrentOption::material, ui::CurrentOption::font}) {
        menu.setCurrentNodeFromButton(0);
        menu.setCurrentOption(option);
        QTest::qWait(300);
        EXPECT_EQ(moving(), std::set<std::string>{});
    }
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(soon([&] { return application.main.screen() != nullptr; }));
    QTest::qWait(300);
    EXPECT_EQ(moving(), std::set<std::string>{});
    QTest::keyClick(&window, Qt::Key_Escape);
    ASSERT_TRUE(soon([&] { return application.main.screen() == nullptr; }));
    application.main.showAnim();
    ASSERT_TRUE(soon([&] { return panel<ui::ActionsMenu>() != nullptr; }));
    QTest::qWait(300);
    EXPECT_EQ(moving(), std::set<std::string>{});
}

} // namespace
} // namespace zelvo::test
