// SPDX-License-Identifier: MIT
#pragma once

#include "actions/ActionControllerOwner.h"
#include "actions/Gestures.h"
#include "actions/HandMove.h"
#include "actions/HomePose.h"
#include "actions/MyUndoManager.h"
#include "actions/Techniques.h"
#include "actions/XAC.h"
#include "platform/foundation/Lifetime.h"
#include "stage/Nodes.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace zelvo::actions {

enum class RegisterUndo {
    no, ///< a further record of a group
    yes ///< this record represents its group in undo and history
};

/// Whether an action may be recorded at the beat that is nearest to its press.
enum class Snapping {
    no,     ///< a movement of the fingers, which has its own time
    toBeats ///< a button
};

/// Records what the user does to the stage and replays it.
///
///     press ── addAction ──> serial queue: makes the record, reads the time
///                                 └──> run loop: keeps it if the timeline runs, calls its callback
///     tick ─── run(time) ──> records that are due and have not run: queued on the run loop
///
/// The performance is a list in the order of recording. It is not sorted: each tick looks at the
/// whole list, so that a record that redo puts at the end still runs at its time. Only the run
/// loop's thread may use the list (debug builds check this); the serial queue only makes records.
class ActionController final : public UndoneList {
public:
    ActionController(ActionControllerOwner& model, stage::Nodes& stage);

    stage::Nodes& nodes;
    MyUndoManager undoManager;
    Techniques techniques;
    Gestures gestures;
    int currentIdentifier = 0; ///< the last one used

    [[nodiscard]] ActionControllerOwner& model() const { return owner; }

    /// The performance. It stays after a run; only deleteAll, undo and the history remove records.
    [[nodiscard]] const std::vector<XACPtr>& recordedActions() const;

    [[nodiscard]] int newIdentifier() { return ++currentIdentifier; }

    /// Performs an action: its callback is called soon and, if the timeline runs, recorded with the
    /// current time. All actions come through here. Does not wait. Main thread.
    void addAction(
        std::function<void()> xacFunc,
        int identifier,
        std::string title,
        RegisterUndo registerUndo,
        Snapping snapping = Snapping::toBeats);

    /// Does what the hand did: all records that `deed` makes keep it. Random numbers that a button
    /// draws when it is pressed come from the press's seed.
    void perform(HandMove move, const std::function<void()>& deed);

    /// Records all actions of `deeds` as if a run had come to `time` (seconds of the clock), but
    /// performs none of them. So a saved performance becomes records at once.
    void recordAt(double time, const std::function<void()>& deeds);

    /// The records that all actions of `deeds` make within `recordAt`; they are not kept.
    [[nodiscard]] std::vector<XACPtr> recordsOf(const std::function<void()>& deeds);

    /// Moves the time of a press to a beat; both are seconds of the clock, including the count-in.
    /// Empty: presses are recorded when they come. A press is performed at once in any case, and in
    /// this run it is not performed again at the beat. The further records of its action, such as the
    /// release of a held button, are moved as far as the first one, so that a hold keeps its length.
    std::function<double(double)> snapTime;

    /// For example "Left In (TX1, TX2)".
    [[nodiscard]] static std::string
    describe(std::string_view title, const std::vector<node::NodePtr>& which);

    /// One tick of the clock. At time 0 the stage is reset to its home pose. Later, records that
    /// are due are called, once in each run.
    void run(double time);

    /// For a new run: every record is due again.
    void markAllNotRun();

    /// Ends a run: the stage returns to its home pose, all held buttons are released, and callbacks
    /// that are still queued are dropped.
    void endRun();

    void append(const XACPtr& xac) override;
    /// Removes all records of one user action.
    void removeActions(int identifier) override;
    void replaceActions(const std::vector<XACPtr>& records) override;

    /// Replaces the performance as one step that can be undone. `title` is for the messages of undo.
    void edit(std::string title, std::vector<XACPtr> records);

    /// Does a deletion that is no step of undo. The user can have back what was deleted, as long as
    /// nothing else changes the performance.
    void deleteForGood(const std::function<void()>& deletion);
    [[nodiscard]] bool canPutBack() const;
    /// Check canPutBack first. The last deletion comes back first.
    void putBack();

    void resetAll(CameraHandles handles, const Homecoming& how = {}) const;
    /// Resets without animation. Writes to the console if the list is empty.
    static void resetNodes(const std::vector<node::NodePtr>& which);

    /// Deletes the whole performance and plays the opening fly-in.
    void deleteAll();

    /// Undoes or redoes a step and shows a message with its title. Does nothing if there is no
    /// step. If presses are still queued, it waits for them.
    void undo();
    void redo();

private:
    /// Runs `onQueue` on the serial queue, then `onLoop` on the run loop, in the order of the
    /// calls.
    void send(std::function<void()> onQueue, std::function<void()> onLoop);
    void behindPresses(const std::function<void()>& step);
    [[nodiscard]] XACPtr newRecord(std::function<void()> xacFunc) const;
    void keep(const XACPtr& xac);
    void call(const XAC& xac) const;
    void snap(XAC& xac) const;
    void checkOwnerThread() const;

    /// The performance before and after something was deleted for good.
    struct Deletion {
        std::vector<XACPtr> before;
        std::vector<XACPtr> after;
        int lastIdentifier = 0;    ///< before
        int performanceNumber = 0; ///< after
    };

    ActionControllerOwner& owner;
    std::vector<XACPtr> recordedActions_;
    HandMovePtr moveUnderWay;                 ///< null: not within `perform`
    std::optional<double> recordingTime;      ///< empty: not within `recordAt`
    std::vector<XACPtr>* collected = nullptr; ///< null: not within `recordsOf`
    std::vector<Deletion> deletions;          ///< the last one is put back first
    int underWay = 0;                         ///< number of calls of `send` that have not come back
    /// Incremented by deleteAll: records made for an earlier performance are not kept.
    int performanceNumber = 0;
    int runNumber = 0; ///< incremented at the end of each run
    std::thread::id ownerThread = std::this_thread::get_id();
    foundation::Lifetime lifetime;
};

} // namespace zelvo::actions
