// SPDX-License-Identifier: MIT
#include "platform/scene/ObjectLoader.h"

#include <utility>

namespace zelvo::scene {

struct ObjectLoader::Job {
    std::filesystem::path file;
    std::stop_source stop;
};

namespace {

/// Passes on a progress only when it has grown by a per cent, because readers tell it often.
class Percents {
public:
    explicit Percents(std::function<void(const LoadProgress&)> target)
        : tell(std::move(target)) {}

    void operator()(const LoadProgress& progress) {
        const int percent = static_cast<int>(progress.share * 100);
        if (percent <= last)
            return;
        last = percent;
        tell(progress);
    }

private:
    std::function<void(const LoadProgress&)> tell;
    int last = 0;
};

/// Tells it on the main thread.
std::function<void(const LoadProgress&)>
posting(foundation::RunLoop& loop, std::function<void(const LoadProgress&)> tell) {
    return [&loop, tell = std::move(tell)](const LoadProgress& progress) {
        loop.post([tell, progress] { tell(progress); });
    };
}

} // namespace

ObjectLoader::ObjectLoader(foundation::RunLoop& loop)
    : runLoop(loop)
    , queue(loop.makeSerialQueue("objects")) {}

ObjectLoader::~ObjectLoader() {
    giveUp();
}

void ObjectLoader::load(const std::filesystem::path& file, Callbacks callbacks) {
    giveUp();
    current = std::make_shared<Job>(Job{file, {}});
    currentCallbacks = std::move(callbacks);
    const auto advanced =
        lifetime.guard([this](const std::shared_ptr<Job>& job, const LoadProgress& progress) {
            advance(job, progress);
        });
    const auto done = lifetime.guard(
        [this](const std::shared_ptr<Job>& job, foundation::Result<ReadObject>& read) {
            finish(job, read);
        });
    queue->async([&loop = runLoop, job = current, advanced, done] {
        if (job->stop.stop_requested())
            return;
        const LoadWatch watch{
            job->stop.get_token(), Percents(posting(loop, [job, advanced](const LoadProgress& now) {
                advanced(job, now);
            }))};
        // A call in the queue must be copyable.
        const auto read =
            std::make_shared<foundation::Result<ReadObject>>(readObjectFile(job->file, watch));
        loop.post([job, done, read] { done(job, *read); });
    });
}

void ObjectLoader::giveUp() {
    if (current)
        current->stop.request_stop();
    current = nullptr;
    currentCallbacks = {};
}

void ObjectLoader::advance(const std::shared_ptr<Job>& job, const LoadProgress& progress) {
    if (job == current && currentCallbacks.isAdvanced)
        currentCallbacks.isAdvanced(progress);
}

void ObjectLoader::finish(const std::shared_ptr<Job>& job, foundation::Result<ReadObject>& read) {
    if (job != current)
        return;
    // The callback may ask for the next file.
    current = nullptr;
    const auto isDone = std::exchange(currentCallbacks, {}).isDone;
    if (!isDone)
        return;
    if (!read) {
        isDone(tl::unexpected(read.error()));
        return;
    }
    auto node = std::make_shared<SCNReferenceNode>(job->file);
    node->load(std::move(*read));
    isDone(std::move(node));
}

} // namespace zelvo::scene
