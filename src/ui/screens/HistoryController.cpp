// SPDX-License-Identifier: MIT
#include "ui/screens/HistoryController.h"

#include "model/Model.h"
#include "platform/foundation/Check.h"
#include "ui/controls/Hints.h"

#include <algorithm>
#include <iterator>

namespace zelvo::ui {

namespace {

constexpr const char* kLastAdded = "LastAdded";
constexpr const char* kPlayTime = "PlayTime";
constexpr int kHintLimit = 2;

const QString kTitle = QStringLiteral("Actions");
const QString kHint = QStringLiteral("Swipe row to delete");

// The hint appears after the title has blinked; seconds after the view has appeared.
constexpr double kHintBlink = 1.3;
constexpr double kHintBegin = kHintBlink + 0.08;
constexpr double kHintEnd = kHintBegin + 3.15;

} // namespace

HistoryController::HistoryController(const Services& given)
    : services(given)
    , title_(kTitle) {
    fill();
}

SortMode HistoryController::sortMode() const {
    auto kept = services.defaults.string(kSortKey);
    if (!kept) {
        kept = kLastAdded;
        services.defaults.set(kSortKey, *kept);
    }
    CHECK(
        *kept == kLastAdded || *kept == kPlayTime,
        "the history is sorted by {}, which is no order",
        *kept);
    return *kept == kLastAdded ? SortMode::lastAdded : SortMode::playTime;
}

QString HistoryController::sortTitle() const {
    return sortMode() == SortMode::lastAdded ? QStringLiteral("Sort: Last Added")
                                             : QStringLiteral("Sort: Play Time");
}

void HistoryController::fill() {
    undoableRecordedActions.clear();
    std::ranges::copy_if(
        services.model.actionController().recordedActions(),
        std::back_inserter(undoableRecordedActions),
        &actions::XAC::registerUndo,
        [](const actions::XACPtr& record) -> const actions::XAC& { return *record; });
    const SortMode mode = sortMode();
    if (mode == SortMode::playTime) {
        std::ranges::stable_sort(
            undoableRecordedActions, std::ranges::greater{}, [](const actions::XACPtr& record) {
                return record->time;
            });
    } else {
        std::ranges::reverse(undoableRecordedActions);
    }
    tableView.show(undoableRecordedActions, mode);
    Q_EMIT rowsChanged();
}

void HistoryController::viewDidAppear() {
    if (!hintNeeded(services.defaults, kHintKey, kHintLimit))
        return;
    titleAfter(kHintBlink, QString(), false);
    titleAfter(kHintBegin, kHint, true);
    titleAfter(kHintEnd, kTitle, false);
}

void HistoryController::titleAfter(double delay, const QString& text, bool isHint) {
    services.runLoop.asyncAfter(
        delay, lifetime.guard([this, text, isHint] { setTitle(text, isHint); }));
}

void HistoryController::setTitle(const QString& text, bool isHint) {
    title_ = text;
    showsHint_ = isHint;
    Q_EMIT titleChanged();
}

void HistoryController::sortFunction() {
    services.defaults.set(
        kSortKey, std::string(sortMode() == SortMode::lastAdded ? kPlayTime : kLastAdded));
    Q_EMIT sortChanged();
    fill();
}

void HistoryController::deleteRow(int row) {
    if (row < 0 || static_cast<std::size_t>(row) >= undoableRecordedActions.size())
        return;
    auto& performance = services.model.actionController();
    performance.deleteForGood([&] {
        performance.removeActions(
            undoableRecordedActions[static_cast<std::size_t>(row)]->identifier);
        performance.undoManager.clear();
    });
    services.runLoop.post(lifetime.guard([this] { fill(); }));
}

bool HistoryController::canPutBack() const {
    return services.model.actionController().canPutBack();
}

void HistoryController::putBack() {
    if (!canPutBack())
        return;
    services.model.actionController().putBack();
    fill();
}

void HistoryController::dismissViewController() {
    Q_EMIT dismissed();
}

} // namespace zelvo::ui
