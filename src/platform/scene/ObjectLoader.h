// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "platform/scene/SCNReferenceNode.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <stop_token>

namespace zelvo::scene {

/// Loads 3D files on another thread, so that the stage stays live, and gives out the nodes on the
/// main thread. The last file that was asked for wins: what was begun before is given up.
///
///     loader.load(
///         file,
///         {.isAdvanced = [this](const LoadProgress& progress) { bar.set(progress.share); },
///          .isDone = [this](const ObjectLoader::Loaded& node) { show(node); }});
///     ...
///     loader.giveUp(); // Escape
///
/// Main thread only. The callbacks are called there, too, by the run loop, never inside load().
class ObjectLoader {
public:
    /// The node, or why there is none.
    using Loaded = foundation::Result<SCNReferenceNodePtr>;

    /// Each may be empty. After giveUp(), or when another file is asked for, none is called any
    /// more for this one.
    struct Callbacks {
        std::function<void(const LoadProgress&)> isAdvanced; ///< at most once for each per cent
        std::function<void(const Loaded&)> isDone;           ///< once
    };

    explicit ObjectLoader(foundation::RunLoop& loop);
    /// Gives up; waits for the thread, which ends soon.
    ~ObjectLoader();
    ObjectLoader(const ObjectLoader&) = delete;
    ObjectLoader& operator=(const ObjectLoader&) = delete;

    void load(const std::filesystem::path& file, Callbacks callbacks);
    /// Does nothing if nothing is being loaded.
    void giveUp();

    [[nodiscard]] bool isLoading() const { return current != nullptr; }

private:
    struct Job;
    void advance(const std::shared_ptr<Job>& job, const LoadProgress& progress);
    void finish(const std::shared_ptr<Job>& job, foundation::Result<ReadObject>& read);

    foundation::RunLoop& runLoop;
    std::shared_ptr<Job> current; ///< null if nothing is being loaded
    Callbacks currentCallbacks;
    std::unique_ptr<foundation::SerialQueue> queue;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::scene
