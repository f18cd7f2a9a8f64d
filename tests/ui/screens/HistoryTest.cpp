// SPDX-License-Identifier: MIT
#include "ui/UiFixture.h"
#include "ui/screens/HistoryController.h"

#include <gmock/gmock.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace zelvo::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using ui::HistoryController;

class HistoryTest : public UiTest {
protected:
    HistoryTest() {
        record("Left In (TX1)", 3.5, 1);
        record("Camera Move", 2.25, 2);
        record("Camera Move", 2.5, 2, false);
        record("Camera Move", 2.75, 2, false);
        record("Explode", 63.0, 3);
    }

    /// Each row as "title|detail".
    [[nodiscard]] static std::vector<std::string> rowsOf(HistoryController& history) {
        auto& rows = dynamic_cast<ui::HistoryRows&>(*history.rows());
        std::vector<std::string> shown;
        for (int i = 0; i < rows.count(); ++i) {
            const auto row = rows.index(i);
            const QString text = rows.data(row, ui::HistoryRows::titleRole).toString() + "|" +
                                 rows.data(row, ui::HistoryRows::detailRole).toString();
            shown.push_back(text.toStdString());
        }
        return shown;
    }

    [[nodiscard]] std::size_t recordCount() const {
        return model.actionController().recordedActions().size();
    }
};

TEST_F(HistoryTest, ShowsOneRowForEachActInEitherOrder) {
    HistoryController history(services);
    EXPECT_EQ(world.defaults.string("SortedDefaultsKey"), "LastAdded");
    EXPECT_EQ(history.sortTitle(), "Sort: Last Added");
    EXPECT_THAT(rowsOf(history), ElementsAre("Explode|3", "Camera Move|2", "Left In (TX1)|1"));

    history.sortFunction();
    EXPECT_EQ(history.sortTitle(), "Sort: Play Time");
    const auto byTime =
        ElementsAre("Explode|1:03.00", "Left In (TX1)|0:03.50", "Camera Move|0:02.25");
    EXPECT_THAT(rowsOf(history), byTime);

    HistoryController later(services); // the sort order is kept
    EXPECT_THAT(rowsOf(later), byTime);
    later.sortFunction();
    EXPECT_EQ(world.defaults.string("SortedDefaultsKey"), "LastAdded");
}

/// Keeps texts as a view does: it reads only those rows again that the model reports as changed.
class Shown {
public:
    explicit Shown(const QAbstractItemModel& listed)
        : rows(listed) {
        read(0, rows.rowCount() - 1);
        QObject::connect(
            &rows, &QAbstractItemModel::rowsRemoved, [this](auto, int first, int last) {
                texts.erase(texts.begin() + first, texts.begin() + last + 1);
                ++removals;
            });
        QObject::connect(
            &rows, &QAbstractItemModel::dataChanged, [this](const auto& from, const auto& to) {
                read(from.row(), to.row());
            });
    }

    std::vector<std::string> texts;
    int removals = 0;

private:
    void read(int first, int last) {
        texts.resize(static_cast<std::size_t>(rows.rowCount()));
        for (int i = first; i <= last; ++i)
            texts[static_cast<std::size_t>(i)] =
                rows.data(rows.index(i, 0), ui::HistoryRows::detailRole).toString().toStdString();
    }

    const QAbstractItemModel& rows;
};

TEST_F(HistoryTest, DeletingAGesturesRowTakesAllItsRecordsAndTheUndoStacks) {
    auto& performance = model.actionController();
    const auto& first = performance.recordedActions().front();
    performance.undoManager.add(actions::MyUndoManagerActionType::remove, first);
    HistoryController history(services);
    const Shown shown(dynamic_cast<QAbstractItemModel&>(*history.rows()));
    ASSERT_EQ(recordCount(), 5U);

    history.deleteRow(1);
    EXPECT_EQ(recordCount(), 2U);
    EXPECT_FALSE(performance.undoManager.canUndo());
    EXPECT_EQ(rowsOf(history).size(), 3U) << "the list changes in the next turn of the loop";
    loop().drain();
    EXPECT_THAT(rowsOf(history), ElementsAre("Explode|2", "Left In (TX1)|1"));
    EXPECT_EQ(shown.removals, 1) << "the other rows are not rebuilt";
    EXPECT_THAT(shown.texts, ElementsAre("2", "1")) << "their numbers have changed";

    for (const int beyond : {-1, 2}) {
        history.deleteRow(beyond);
        EXPECT_EQ(recordCount(), 2U);
    }
    for (int i = 0; i < 2; ++i) {
        history.deleteRow(0);
        loop().drain();
    }
    EXPECT_THAT(rowsOf(history), IsEmpty());
    EXPECT_EQ(recordCount(), 0U);

    for (int i = 0; i < 3; ++i)
        history.putBack();
    EXPECT_EQ(recordCount(), 5U) << "the last one comes back first, with all its records";
    EXPECT_THAT(rowsOf(history), SizeIs(3));
    EXPECT_FALSE(history.canPutBack());
    EXPECT_FALSE(performance.undoManager.canUndo());
}

TEST_F(HistoryTest, HintsAtSwipingOnTheFirstTwoOpenings) {
    for (int opening = 0; opening < 3; ++opening) {
        HistoryController history(services);
        std::vector<std::pair<double, std::string>> titles; // milliseconds, title
        const double begin = loop().now();
        QObject::connect(&history, &HistoryController::titleChanged, [&] {
            const double after = std::round(1000 * (loop().now() - begin));
            titles.emplace_back(after, history.title().toStdString());
            EXPECT_EQ(history.showsHint(), history.title() == "Swipe row to delete");
        });
        history.viewDidAppear();
        loop().runFor(6);
        if (opening < 2) {
            EXPECT_THAT(
                titles,
                ElementsAre(
                    std::pair(1300.0, std::string()),
                    std::pair(1380.0, std::string("Swipe row to delete")),
                    std::pair(4530.0, std::string("Actions"))));
        } else {
            EXPECT_THAT(titles, IsEmpty());
        }
    }
}

TEST_F(HistoryTest, WhatIsUnderWayWhenTheScreenGoesIsDropped) {
    {
        HistoryController history(services);
        history.viewDidAppear();
        history.deleteRow(0);
    }
    loop().runFor(6);
    EXPECT_EQ(recordCount(), 4U);
}

TEST_F(HistoryTest, AnUnknownOrderIsAProgrammingError) {
    world.defaults.set("SortedDefaultsKey", std::string("Alphabet"));
    EXPECT_DEATH(HistoryController{services}, "Alphabet");
}

} // namespace

} // namespace zelvo::test
