// SPDX-License-Identifier: MIT
#include "platform/media/MediaFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace zelvo::media {
namespace {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

constexpr std::uintmax_t kMaxBytes = 8ULL << 30U;

// Container formats. Play lists and scripts are left out, because they name other files to read.
constexpr const char* kFormats =
    "aac,ac3,aiff,amr,ape,asf,au,avi,caf,eac3,flac,flv,matroska,webm,mov,mp4,m4a,mp3,mpc,mpc8,mpeg,"
    "mpegts,ogg,tak,tta,voc,w64,wav,wv,"
    // only for pictures
    "dv,h264,hevc,ivf,m4v,mpegvideo,mxf,nut,obu,rm,yuv4mpegpipe";

/// The demuxer may read this much for one packet, or for finding the streams.
constexpr std::int64_t kMaxBytesAtOnce = 64LL << 20U;

/// A file open for reading, with a limit on how much is read at once.
class Input {
public:
    explicit Input(const std::filesystem::path& path)
        : file(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}

    ~Input() {
        if (isOpen())
            ::close(file);
    }

    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    [[nodiscard]] bool isOpen() const { return file >= 0; }

    std::int64_t left = kMaxBytesAtOnce;

    static int read(void* opaque, std::uint8_t* target, int count) {
        auto& input = *static_cast<Input*>(opaque);
        if (input.left <= 0)
            return AVERROR_EOF;
        const ssize_t done = ::read(input.file, target, static_cast<std::size_t>(count));
        if (done < 0)
            return AVERROR(errno);
        input.left -= done;
        return done == 0 ? AVERROR_EOF : static_cast<int>(done);
    }

    static std::int64_t seek(void* opaque, std::int64_t offset, int from) {
        const auto& input = *static_cast<Input*>(opaque);
        const bool asksSize = (from & AVSEEK_SIZE) != 0;
        const off_t before = lseek(input.file, 0, SEEK_CUR);
        const off_t place = asksSize ? lseek(input.file, 0, SEEK_END)
                                     : lseek(input.file, offset, from & ~AVSEEK_FORCE);
        if (asksSize)
            lseek(input.file, before, SEEK_SET);
        return place < 0 ? AVERROR(errno) : place;
    }

private:
    int file;
};

/// A context that reads through our functions and owns the input.
AVFormatContext* formatReading(std::unique_ptr<Input> input) {
    constexpr int kBufferBytes = 32 * 1024;
    AVFormatContext* const format = avformat_alloc_context();
    auto* const buffer = static_cast<unsigned char*>(av_malloc(kBufferBytes));
    format->pb = avio_alloc_context(
        buffer, kBufferBytes, 0, input.release(), &Input::read, nullptr, &Input::seek);
    format->flags |= AVFMT_FLAG_CUSTOM_IO;
    return format;
}

void closeInput(AVIOContext* io) {
    delete static_cast<Input*>(io->opaque); // NOLINT: the C interface keeps no owners
    av_freep(static_cast<void*>(&io->buffer));
    avio_context_free(&io);
}

Result<void> checkFile(const std::filesystem::path& path) {
    std::error_code code;
    const auto name = path.string();
    const auto status = std::filesystem::status(path, code);
    if (!std::filesystem::exists(status))
        return fail(Cause::notFound, name + " does not exist.");
    if (!std::filesystem::is_regular_file(status)) {
        return fail(Cause::unreadable, name + " is not a file.");
    }
    const auto bytes = std::filesystem::file_size(path, code);
    if (code)
        return fail(Cause::unreadable, name + " cannot be read: " + code.message() + ".");
    if (bytes == 0)
        return fail(Cause::malformed, name + " is empty.");
    if (bytes > kMaxBytes)
        return fail(Cause::tooLarge, name + " is larger than 8 GiB.");
    return {};
}

tl::unexpected<foundation::Error> openingError(int code, const std::filesystem::path& path) {
    if (code == AVERROR(EACCES) || code == AVERROR(EIO)) {
        return fail(
            Cause::unreadable, path.string() + " cannot be read: " + describeAVError(code) + ".");
    }
    return fail(
        Cause::malformed, path.string() + " is not a sound or movie file that can be read.");
}

} // namespace

Result<FFmpegPtr<AVFormatContext>> openMediaFile(const std::filesystem::path& path) {
    silenceFFmpeg();
    if (auto checked = checkFile(path); !checked)
        return tl::unexpected(checked.error());
    Options options{
        {"format_whitelist", kFormats},
        {"protocol_whitelist", "file"},
        {"max_streams", "32"},
        {"probesize", "5000000"},
        {"analyzeduration", "10000000"}};
    auto input = std::make_unique<Input>(path);
    if (!input->isOpen())
        return openingError(AVERROR(errno), path);
    AVFormatContext* opened = formatReading(std::move(input));
    AVIOContext* const io = opened->pb;
    // a name with a colon must not look like a protocol
    const std::string url = "file:" + path.string();
    if (const int code = avformat_open_input(&opened, url.c_str(), nullptr, options.get());
        code < 0) {
        closeInput(io);
        return openingError(code, path);
    }
    FFmpegPtr<AVFormatContext> format(opened);
    if (const int code = avformat_find_stream_info(opened, nullptr); code < 0) {
        return openingError(code, path);
    }
    return format;
}

bool readPacket(AVFormatContext& format, AVPacket& packet) {
    static_cast<Input*>(format.pb->opaque)->left = kMaxBytesAtOnce;
    return av_read_frame(&format, &packet) >= 0;
}

void closeMediaFile(AVFormatContext* context) {
    // Only files opened by openMediaFile have our input.
    AVIOContext* const io = (context->flags & AVFMT_FLAG_CUSTOM_IO) != 0 ? context->pb : nullptr;
    avformat_close_input(&context);
    if (io != nullptr)
        closeInput(io);
}

bool hasAlphaBeside(const AVStream& stream) {
    const AVDictionaryEntry* const mode = av_dict_get(stream.metadata, "alpha_mode", nullptr, 0);
    return mode != nullptr && std::string_view(mode->value) == "1";
}

void readOnlyStream(AVFormatContext& format, int stream) {
    for (unsigned i = 0; i < format.nb_streams; ++i) {
        const bool isWanted = static_cast<int>(i) == stream;
        format.streams[i]->discard = isWanted ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
}

} // namespace zelvo::media
