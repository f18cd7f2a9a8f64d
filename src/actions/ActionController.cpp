// SPDX-License-Identifier: MIT
#include "actions/ActionController.h"

#include "platform/foundation/Check.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/Random.h"
#include "shared/FrameClock.h"
#include "shared/Signal.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace zelvo::actions {

namespace {

constexpr double kOpeningDelay = 0.01; ///< seconds

} // namespace

ActionController::ActionController(ActionControllerOwner& model, stage::Nodes& stage)
    : nodes(stage)
    , undoManager(this)
    , techniques(*this)
    , gestures(*this)
    , owner(model) {}

const std::vector<XACPtr>& ActionController::recordedActions() const {
    checkOwnerThread();
    return recordedActions_;
}

void ActionController::perform(HandMove move, const std::function<void()>& deed) {
    const auto* const press = std::get_if<ButtonPress>(&move);
    std::optional<foundation::RandomScope> draws;
    if (press != nullptr)
        draws.emplace(press->seed);
    moveUnderWay = std::make_shared<const HandMove>(std::move(move));
    deed();
    moveUnderWay.reset();
}

void ActionController::recordAt(double time, const std::function<void()>& deeds) {
    recordingTime = time;
    deeds();
    recordingTime.reset();
}

std::vector<XACPtr> ActionController::recordsOf(const std::function<void()>& deeds) {
    std::vector<XACPtr> records;
    collected = &records;
    deeds();
    collected = nullptr;
    return records;
}

XACPtr ActionController::newRecord(std::function<void()> xacFunc) const {
    auto xac = std::make_shared<XAC>();
    xac->xacFunc = std::move(xacFunc);
    xac->origin = moveUnderWay;
    xac->seed = foundation::arc4random();
    xac->hasRun = true;
    return xac;
}

void ActionController::addAction(
    std::function<void()> xacFunc,
    int identifier,
    std::string title,
    RegisterUndo registerUndo,
    Snapping snapping) {
    const XACPtr xac = newRecord(std::move(xacFunc));
    xac->identifier = identifier;
    xac->title = std::move(title);
    xac->registerUndo = registerUndo == RegisterUndo::yes;
    if (recordingTime) {
        xac->time = *recordingTime;
        keep(xac);
        return;
    }

    owner.willPerform();

    struct Moment {
        bool isInRun = false;
        bool isRecorded = false;
    };

    const auto pressed = std::make_shared<Moment>();
    send(
        [&owner = owner, xac, pressed] {
            xac->time = owner.time();
            *pressed = {owner.isPlaying(), owner.recordsActs()};
        },
        [this, xac, pressed, snapping, performance = performanceNumber] {
            if (pressed->isRecorded && performance == performanceNumber) {
                if (snapping == Snapping::toBeats)
                    snap(*xac);
                keep(xac);
            }
            if (!pressed->isInRun || owner.isPlaying())
                call(*xac);
        });
}

/// A live run draws new random numbers each time. A movie draws from the record's seed, so that a
/// performance has one movie.
void ActionController::call(const XAC& xac) const {
    std::optional<foundation::RandomScope> draws;
    if (owner.repeatsDraws())
        draws.emplace(xac.seed);
    xac.xacFunc();
}

void ActionController::send(std::function<void()> onQueue, std::function<void()> onLoop) {
    ++underWay;
    const auto back = lifetime.guard([this, onLoop = std::move(onLoop)] {
        --underWay;
        onLoop();
    });
    // The owner lives longer than its serial queue's jobs. But calls waiting on the run loop can
    // outlive this controller.
    owner.serialQueue().async([&loop = owner.runLoop(), onQueue = std::move(onQueue), back] {
        onQueue();
        loop.post(back);
    });
}

void ActionController::keep(const XACPtr& xac) {
    if (collected != nullptr) {
        collected->push_back(xac);
        return;
    }
    append(xac);
    if (xac->registerUndo)
        undoManager.add(MyUndoManagerActionType::remove, xac);
}

void ActionController::snap(XAC& xac) const {
    const auto first = std::ranges::find(
        recordedActions_, xac.identifier, [](const XACPtr& kept) { return kept->identifier; });
    if (first != recordedActions_.end())
        xac.snapped = (*first)->snapped;
    else if (snapTime)
        xac.snapped = snapTime(xac.time) - xac.time;
    xac.time += xac.snapped;
}

std::string
ActionController::describe(std::string_view title, const std::vector<node::NodePtr>& which) {
    std::vector<std::string_view> names;
    names.reserve(which.size());
    for (const node::NodePtr& node : which) {
        names.emplace_back(node->shortName);
    }
    std::string text = fmt::format("{} [{}]", title, fmt::join(names, ", "));
    std::erase(text, '"');
    std::replace(text.begin(), text.end(), '[', '(');
    std::replace(text.begin(), text.end(), ']', ')');
    return text;
}

void ActionController::run(double time) {
    checkOwnerThread();
    if (std::abs(time) < shared::FrameClock::kNearZero) {
        resetAll(CameraHandles::include);
        parkNodes(nodes);
        techniques.endAll();
        return;
    }
    for (const XACPtr& xac : recordedActions_) {
        if (xac->hasRun || xac->time > time)
            continue;
        xac->hasRun = true; // before the callback, so that no later tick runs it again
        owner.runLoop().post(lifetime.guard([this, xac, run = runNumber] {
            if (run == runNumber)
                call(*xac);
        }));
    }
}

void ActionController::endRun() {
    checkOwnerThread();
    ++runNumber;
    resetAll(CameraHandles::include);
    techniques.endAll();
}

void ActionController::markAllNotRun() {
    checkOwnerThread();
    for (const XACPtr& xac : recordedActions_) {
        xac->hasRun = false;
    }
}

void ActionController::append(const XACPtr& xac) {
    checkOwnerThread();
    recordedActions_.push_back(xac);
}

void ActionController::removeActions(int identifier) {
    checkOwnerThread();
    std::erase_if(
        recordedActions_, [&](const XACPtr& xac) { return xac->identifier == identifier; });
}

void ActionController::replaceActions(const std::vector<XACPtr>& records) {
    checkOwnerThread();
    recordedActions_ = records;
}

void ActionController::edit(std::string title, std::vector<XACPtr> records) {
    checkOwnerThread();
    ListEdit edit{std::move(title), recordedActions_, std::move(records)};
    recordedActions_ = edit.after;
    undoManager.add(std::move(edit));
}

void ActionController::deleteForGood(const std::function<void()>& deletion) {
    Deletion made;
    made.before = recordedActions();
    made.lastIdentifier = currentIdentifier;
    if (!canPutBack())
        deletions.clear(); // something else has changed the performance since
    deletion();
    made.after = recordedActions_;
    made.performanceNumber = performanceNumber;
    if (made.after != made.before)
        deletions.push_back(std::move(made));
    ui::signals().undoStateSignal.fire();
}

bool ActionController::canPutBack() const {
    return !deletions.empty() && deletions.back().performanceNumber == performanceNumber &&
           deletions.back().after == recordedActions_;
}

void ActionController::putBack() {
    CHECK(canPutBack(), "there is nothing to put back");
    recordedActions_ = deletions.back().before;
    currentIdentifier = std::max(currentIdentifier, deletions.back().lastIdentifier);
    deletions.pop_back();
    if (!deletions.empty())
        deletions.back().performanceNumber = performanceNumber;
    ui::signals().undoStateSignal.fire();
}

void ActionController::resetAll(CameraHandles handles, const Homecoming& how) const {
    resetStage(nodes, handles, how);
}

void ActionController::resetNodes(const std::vector<node::NodePtr>& which) {
    if (which.empty())
        foundation::logLine("no nodes to reset");
    for (const node::NodePtr& node : which) {
        resetRig(*node, {});
    }
}

void ActionController::deleteAll() {
    checkOwnerThread();
    owner.stopAndReset();
    undoManager.clear();
    currentIdentifier = 0;
    recordedActions_.clear();
    techniques.endAll();
    ++performanceNumber;
    ui::signals().undoStateSignal.fire();

    owner.runLoop().asyncAfter(kOpeningDelay, lifetime.guard([this] { playOpeningFlyIn(nodes); }));
}

void ActionController::undo() {
    behindPresses([this] {
        if (!undoManager.canUndo())
            return;
        const std::string title = undoManager.undoTitle();
        ui::signals().messageSignal.fire(title.empty() ? "Undo Action" : "Undo " + title);
        undoManager.undo();
    });
}

void ActionController::redo() {
    behindPresses([this] {
        if (!undoManager.canRedo())
            return;
        const std::string title = undoManager.redoTitle();
        ui::signals().messageSignal.fire(title.empty() ? "Redo Action" : "Redo " + title);
        undoManager.redo();
    });
}

void ActionController::behindPresses(const std::function<void()>& step) {
    if (underWay == 0) {
        step();
        return;
    }
    send(
        [] {},
        [this, step, performance = performanceNumber] {
            if (performance == performanceNumber)
                step();
        });
}

void ActionController::checkOwnerThread() const {
#ifndef NDEBUG
    CHECK(
        std::this_thread::get_id() == ownerThread,
        "the recorded actions belong to the run loop's thread");
#endif
}

} // namespace zelvo::actions
