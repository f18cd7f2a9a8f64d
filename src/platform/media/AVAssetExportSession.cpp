// SPDX-License-Identifier: MIT
#include "platform/media/AVAssetExportSession.h"

#include "platform/foundation/Check.h"
#include "platform/media/Container.h"
#include "platform/media/MediaFile.h"
#include "platform/media/MovieFile.h"
#include "platform/media/SoundTrack.h"
#include "platform/media/VideoSettings.h"

#include <algorithm>
#include <utility>

namespace zelvo::media {
namespace {

using foundation::Cause;
using foundation::Error;
using foundation::fail;
using foundation::Result;

SoundCodec codecOf(const std::filesystem::path& movie) {
    return containerOf(movie) == Container::webm ? SoundCodec::opus : SoundCodec::aac;
}

tl::unexpected<Error> cancelled() {
    return fail(Cause::cancelled, "The export was cancelled.");
}

} // namespace

/// Reads the packets of a composition's video, up to its end.
class AVAssetExportSession::VideoSource {
public:
    static Result<VideoSource>
    open(const AVMutableCompositionTrack::Segment& segment, CMTime length) {
        if (segment.range.start != CMTime{} || segment.at != CMTime{}) {
            return fail(Cause::unsupported, "The movie's video must begin at 0.");
        }
        auto opened = openMediaFile(segment.source.file);
        if (!opened)
            return tl::unexpected(opened.error());
        VideoSource source;
        source.format = std::move(*opened);
        source.packet.reset(av_packet_alloc());
        source.stream = segment.source.trackID - 1;
        source.end = std::min(segment.range.duration, length);
        if (source.stream >= static_cast<int>(source.format->nb_streams)) {
            return fail(Cause::malformed, "The movie's video has changed meanwhile.");
        }
        readOnlyStream(*source.format, source.stream);
        AVStream& stream = *source.format->streams[source.stream];
        if (hasAlphaBeside(stream))
            stream.codecpar->format = AV_PIX_FMT_YUVA420P; // so that the copy has it, too
        return source;
    }

    [[nodiscard]] const AVStream& parameters() const { return *format->streams[stream]; }

    [[nodiscard]] CMTime length() const { return end; }

    /// The next packet before the end; null if there is none. Valid until the next call.
    Result<AVPacket*> next() {
        av_packet_unref(packet.get());
        while (readPacket(*format, *packet)) {
            const bool isWanted = packet->stream_index == stream && packet->pts != AV_NOPTS_VALUE;
            if (isWanted && packet->pts != packet->dts) {
                return fail(Cause::unsupported, "A video with reordered frames cannot be cut.");
            }
            if (isWanted && timeOfPacket() < end)
                return packet.get();
            av_packet_unref(packet.get());
        }
        return nullptr;
    }

    [[nodiscard]] CMTime timeOfPacket() const {
        const AVRational unit = parameters().time_base;
        const CMTime exact{packet->pts * unit.num, unit.den};
        // WebM rounds times to milliseconds. A frame begins at the nearest sixtieth.
        return exact.converted(VideoSettings::kFramesPerSecond);
    }

private:
    FFmpegPtr<AVFormatContext> format;
    FFmpegPtr<AVPacket> packet;
    int stream = 0;
    CMTime end;
};

AVAssetExportSession::AVAssetExportSession(AVMutableComposition tracks)
    : composition(std::move(tracks)) {}

AVAssetExportSession::~AVAssetExportSession() {
    cancelExport();
}

void AVAssetExportSession::exportAsynchronously(std::function<void()> completion) {
    CHECK(status_ == Status::unknown, "a session exports once");
    status_ = Status::exporting;
    thread = std::thread([this, completion = std::move(completion)] { run(completion); });
}

void AVAssetExportSession::cancelExport() {
    auto running = Stage::making;
    stage.compare_exchange_strong(running, Stage::cancelled);
    if (thread.joinable())
        thread.join();
}

Error AVAssetExportSession::error() const {
    const std::lock_guard lock(mutex);
    return error_;
}

void AVAssetExportSession::run(const std::function<void()>& completion) {
    const auto result = writeMovie();
    if (result) {
        progress_ = 1.0;
        status_ = Status::completed;
    } else {
        {
            const std::lock_guard lock(mutex);
            error_ = result.error();
        }
        const bool wasStopped = result.error().cause == Cause::cancelled;
        status_ = wasStopped ? Status::cancelled : Status::failed;
    }
    if (completion)
        completion();
}

Result<void> AVAssetExportSession::writeMovie() {
    const auto* track = composition.firstTrack(MediaType::video);
    if (track == nullptr || !track->segment() || timeRange.start != CMTime{}) {
        return fail(Cause::unsupported, "A movie needs a video that begins at 0.");
    }
    auto video = VideoSource::open(*track->segment(), timeRange.duration);
    if (!video)
        return tl::unexpected(video.error());
    auto sound = openSound(video->length().seconds());
    if (!sound)
        return tl::unexpected(sound.error());

    using Layout = MovieFile::Layout;
    const auto layout = shouldOptimizeForNetworkUse ? Layout::indexFirst : Layout::indexLast;
    auto movie = MovieFile::create(outputURL, layout, foundation::NewFile::Use::lasting);
    if (!movie)
        return tl::unexpected(movie.error());
    const AVStream& parameters = video->parameters();
    const int videoTrack = movie->addTrack(*parameters.codecpar, parameters.time_base);
    if (*sound)
        (*sound)->addTo(*movie);
    return movie->begin()
        .and_then([&] { return copyPackets(*video, sound->get(), *movie, videoTrack); })
        .and_then([&] { return *sound ? (*sound)->finish(*movie) : Result<void>{}; })
        .map([&] { soundHasGaps_ = *sound && (*sound)->hasGaps(); })
        .and_then([&] { return movie->finish(); })
        .and_then([&] { return place(*movie); });
}

/// After this point the movie is put in place, even if somebody cancels. If it was cancelled
/// before, nothing is changed.
Result<void> AVAssetExportSession::place(MovieFile& movie) {
    auto running = Stage::making;
    if (!stage.compare_exchange_strong(running, Stage::placing))
        return cancelled();
    return movie.commit();
}

/// Null if there is no music.
Result<std::unique_ptr<SoundTrack>> AVAssetExportSession::openSound(double length) const {
    const auto* track = composition.firstTrack(MediaType::audio);
    if (track == nullptr || !track->segment())
        return nullptr;
    auto opened =
        SoundTrack::open(*track->segment(), volumeOf(track->trackID()), length, codecOf(outputURL));
    if (!opened)
        return tl::unexpected(opened.error());
    return std::make_unique<SoundTrack>(std::move(*opened));
}

/// Copies the video unchanged, interleaved with the sound.
Result<void> AVAssetExportSession::copyPackets(
    VideoSource& video, SoundTrack* sound, MovieFile& movie, int videoTrack) {
    const double length = video.length().seconds();
    while (stage == Stage::making) {
        const auto packet = video.next();
        if (!packet)
            return tl::unexpected(packet.error());
        if (*packet == nullptr)
            return {};
        const double seconds = video.timeOfPacket().seconds();
        progress_ = std::min(seconds / length, 1.0);
        auto written = sound != nullptr ? sound->writeUntil(seconds, movie) : Result<void>{};
        if (written)
            written = movie.write(**packet, videoTrack);
        if (!written)
            return written;
    }
    return cancelled();
}

AVMutableAudioMixInputParameters AVAssetExportSession::volumeOf(int trackID) const {
    if (audioMix) {
        for (const auto& parameters : audioMix->inputParameters) {
            if (parameters.trackID() == trackID)
                return parameters;
        }
    }
    return {};
}

} // namespace zelvo::media
