// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zelvo::sound {

/// Estimates where the beats of a stretch of a song are, for marks that presses can be laid on. It
/// listens on another thread. A sound without a steady tempo has no beats. Main thread only.
class BeatEstimate {
public:
    /// No more than this is listened to, from the start of the stretch, in seconds. It bounds the
    /// memory to some 10 MB.
    static constexpr double kMaxStretch = 30.0 * 60;

    /// `changed` is called by the run loop when an estimate is done; never inside estimate() or
    /// clear(). It may be empty.
    BeatEstimate(foundation::RunLoop& runLoop, std::function<void()> changed);
    /// Gives up; waits for the thread, which ends soon.
    ~BeatEstimate();
    BeatEstimate(const BeatEstimate&) = delete;
    BeatEstimate& operator=(const BeatEstimate&) = delete;

    /// Begins anew with this stretch, in seconds of the song. The beats before stay until it is done,
    /// unless the song is another. Gives up at once what was under way. A song that cannot be read has
    /// no beats.
    void estimate(const std::filesystem::path& song, double from, double to);
    /// Gives up at once, and drops the beats.
    void clear();

    /// Seconds of the song, ascending.
    [[nodiscard]] const std::vector<double>& beats() const { return found.beats; }

    /// Beats a minute; 0 if there are none.
    [[nodiscard]] double tempo() const { return found.tempo; }

    [[nodiscard]] bool isEstimating() const { return job != nullptr; }

private:
    struct Found {
        std::vector<double> beats;
        double tempo = 0.0;
    };

    class Job;
    void listenOn();
    void take(const std::shared_ptr<Job>& from, const std::optional<Found>& beats);

    foundation::RunLoop& loop;
    std::function<void()> tellChange;
    std::filesystem::path songOfBeats;
    Found found;
    std::shared_ptr<Job> job; ///< null if nothing is under way
    std::unique_ptr<foundation::SerialQueue> queue;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::sound
