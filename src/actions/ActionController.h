// SPDX-License-Identifier: MIT
#pragma once

#include "actions/ActionControllerOwner.h"
#include "actions/Gestures.h"
#include "actions/HomePose.h"
#include "actions/MyUndoManager.h"
#include "actions/Techniques.h"
#include "actions/XAC.h"
#include "platform/foundation/Lifetime.h"
#include "stage/Nodes.h"

#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace zelvo::actions {

enum class RegisterUndo {
    no, ///< a further record of a group that another one stands for
    yes ///< this record stands for its group in undo and history
};

/// Records what the user does to the stage and replays it.
///
///     press ── addAction ──> serial queue: builds the record, reads the time
///                                 └──> run loop: keeps it if the timeline runs, executes it
///     tick ─── run(time) ──> every kept record that is due and has not run: queued on the run loop
///
/// The performance is a flat list in the order of making. It is not sorted: each tick looks at the
/// whole of it, so that a record that redo puts at the end still runs at its time. The list has one
/// owner, the run loop's thread, which debug builds check; the serial queue only builds records.
class ActionController final : public UndoneList {
public:
    ActionController(ActionControllerOwner& model, core::Nodes& stage);

    core::Nodes& nodes;
    MyUndoManager undoManager;
    Techniques techniques;
    Gestures gestures;
    int currentIdentifier = 0; ///< the last one given out

    [[nodiscard]] ActionControllerOwner& model() const { return owner; }

    /// The performance. Survives the end of a run; only deleteAll, undo and the history take
    /// records out.
    [[nodiscard]] const std::vector<XACPtr>& recordedActions() const;

    [[nodiscard]] int newIdentifier() { return ++currentIdentifier; }

    /// The one entry for making an action. It is executed at once and, if the timeline runs, kept
    /// with the present time. Returns without waiting. Main thread.
    void addAction(
        std::function<void()> xacFunc,
        int identifier,
        std::string title,
        RegisterUndo registerUndo);

    /// "Left In (TX1, TX2)".
    [[nodiscard]] static std::string
    describe(std::string_view title, const std::vector<core::NodePtr>& which);

    /// One tick of the clock. At time 0 the stage is brought home and emptied; later the records
    /// that are due are executed, once in each run.
    void run(double time);

    /// A new run begins: every record is to be executed again.
    void markAllNotRun();

    /// A run is over: the stage comes home, nothing is held any more, and what was released but has
    /// not been executed yet never is.
    void endRun();

    void append(const XACPtr& xac) override;
    /// All records of one user act.
    void removeActions(int identifier) override;

    void resetAll(CameraHandles handles, const Homecoming& how = {}) const;
    /// At once. Says so on the console if there are none.
    static void resetNodes(const std::vector<core::NodePtr>& which);

    /// Forgets the whole performance and plays the opening fly-in.
    void deleteAll();

    /// With a message that names what is undone or redone; nothing happens where there is nothing.
    /// At once, or behind the presses that are still on their way into the list.
    void undo();
    void redo();

private:
    /// Over the serial queue back to the run loop, in the order of sending.
    void send(std::function<void()> onQueue, std::function<void()> onLoop);
    void behindPresses(const std::function<void()>& step);
    void keep(const XACPtr& xac);
    void checkOwnerThread() const;

    ActionControllerOwner& owner;
    std::vector<XACPtr> recordedActions_;
    int underWay = 0; ///< what was sent and has not come back
    int performanceNumber =
        0;             ///< raised by deleteAll: what was under way then is not kept any more
    int runNumber = 0; ///< raised by the end of each run
    std::thread::id ownerThread = std::this_thread::get_id();
    foundation::Lifetime lifetime;
};

} // namespace zelvo::actions
