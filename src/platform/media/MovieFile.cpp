// SPDX-License-Identifier: MIT
#include "platform/media/MovieFile.h"

#include "platform/foundation/Check.h"
#include "platform/media/Container.h"
#include "platform/media/VideoSettings.h"

#include <utility>

namespace zelvo::media {

using foundation::Result;

namespace {

unsigned tagOf(const AVCodecParameters& parameters) {
    // The tags that players expect. For HEVC, FFmpeg would choose another one, which they refuse.
    switch (parameters.codec_id) {
    case AV_CODEC_ID_H264:
        return MKTAG('a', 'v', 'c', '1');
    case AV_CODEC_ID_HEVC:
        return MKTAG('h', 'v', 'c', '1');
    case AV_CODEC_ID_PRORES:
        return parameters.codec_tag; // tells the profile
    default:
        return 0;
    }
}

} // namespace

void MovieFile::CloseOutput::operator()(AVFormatContext* context) const {
    if (context->pb != nullptr)
        avio_closep(&context->pb);
    avformat_free_context(context);
}

Result<MovieFile>
MovieFile::create(const std::filesystem::path& path, Layout layout, foundation::NewFile::Use use) {
    silenceFFmpeg();
    auto made = foundation::NewFile::create(path, use);
    if (!made)
        return tl::unexpected(made.error());
    MovieFile file(path, std::move(*made));
    file.layout = layout;
    AVFormatContext* context = nullptr;
    const std::string container(infoOf(containerOf(path)).name);
    const std::string url = "file:" + file.file.path().string();
    avformat_alloc_output_context2(&context, nullptr, container.c_str(), url.c_str());
    CHECK(context != nullptr, "FFmpeg has no writer for {}", container);
    file.format.reset(context);
    if (const int code = avio_open(&context->pb, url.c_str(), AVIO_FLAG_WRITE); code < 0)
        return tl::unexpected(writingError(code, path));
    // no version strings and dates, so the same frames give the same bytes
    context->flags |= AVFMT_FLAG_BITEXACT;
    return file;
}

int MovieFile::addTrack(const AVCodecParameters& parameters, AVRational timeBase) {
    AVStream* stream = avformat_new_stream(format.get(), nullptr);
    CHECK(stream != nullptr && !hasBegun, "no track can be added to {}", path_.string());
    avcodec_parameters_copy(stream->codecpar, &parameters);
    stream->codecpar->codec_tag = tagOf(parameters);
    stream->time_base = timeBase;
    if (parameters.codec_type == AVMEDIA_TYPE_VIDEO)
        stream->avg_frame_rate = {VideoSettings::kFramesPerSecond, 1};
    if (parameters.format == AV_PIX_FMT_YUVA420P) // WebM has the alpha beside the pictures
        av_dict_set(&stream->metadata, "alpha_mode", "1", 0);
    timeBases.push_back(timeBase);
    return stream->index;
}

Result<void> MovieFile::begin() {
    // The same timescale for movie and video, so that lengths in frames are exact in both.
    Options options{{"movie_timescale", "600"}, {"video_track_timescale", "600"}};
    if (layout == Layout::indexFirst) {
        av_dict_set(options.get(), "movflags", "+faststart", 0);
        av_dict_set(options.get(), "cues_to_front", "1", 0); // of WebM
    }
    // Opus begins below 0, by a delay that WebM itself makes up for: the pictures must not move.
    if (containerOf(path_) == Container::webm)
        format->avoid_negative_ts = AVFMT_AVOID_NEG_TS_DISABLED;
    hasBegun = true;
    const int code = avformat_write_header(format.get(), options.get());
    if (code < 0)
        return tl::unexpected(writingError(code, path_));
    return {};
}

Result<void> MovieFile::write(AVPacket& packet, int track) {
    packet.stream_index = track;
    const auto index = static_cast<std::size_t>(track);
    av_packet_rescale_ts(&packet, timeBases.at(index), format->streams[index]->time_base);
    const int code = av_interleaved_write_frame(format.get(), &packet);
    if (code < 0)
        return tl::unexpected(writingError(code, path_));
    return {};
}

Result<void> MovieFile::finish() {
    int code = av_write_trailer(format.get());
    const int closed = avio_closep(&format->pb);
    if (code >= 0)
        code = closed;
    if (code < 0)
        return tl::unexpected(writingError(code, path_));
    return {};
}

Result<void> MovieFile::commit() {
    return file.commit();
}

} // namespace zelvo::media
