// SPDX-License-Identifier: MIT
#include "platform/media/VideoPictures.h"

extern "C" {
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <mutex>
#include <span>
#include <utility>
#include <vector>

namespace zelvo::media {
namespace {

using image::Image;

constexpr int kMaxRowsOfBT601 = 576;
constexpr double kMaxPixelAspect = 8; ///< more is an error in the file
constexpr int kBlock = 16;            ///< pixels that the scaler writes at once, at most
constexpr int kChannels = 4;

int matrixOf(const AVFrame& frame) {
    switch (frame.colorspace) {
    case AVCOL_SPC_BT709:
        return SWS_CS_ITU709;
    case AVCOL_SPC_FCC:
        return SWS_CS_FCC;
    case AVCOL_SPC_BT470BG:
    case AVCOL_SPC_SMPTE170M:
        return SWS_CS_ITU601;
    case AVCOL_SPC_SMPTE240M:
        return SWS_CS_SMPTE240M;
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL:
        return SWS_CS_BT2020;
    default:
        return frame.height <= kMaxRowsOfBT601 ? SWS_CS_ITU601 : SWS_CS_ITU709;
    }
}

/// Formats of JPEG have the full range by definition, and the scaler warns of their names.
AVPixelFormat withoutJPEGName(AVPixelFormat format) {
    switch (format) {
    case AV_PIX_FMT_YUVJ420P:
        return AV_PIX_FMT_YUV420P;
    case AV_PIX_FMT_YUVJ422P:
        return AV_PIX_FMT_YUV422P;
    case AV_PIX_FMT_YUVJ444P:
        return AV_PIX_FMT_YUV444P;
    case AV_PIX_FMT_YUVJ440P:
        return AV_PIX_FMT_YUV440P;
    default:
        return format;
    }
}

bool hasFullRange(const AVFrame& frame) {
    const auto format = static_cast<AVPixelFormat>(frame.format);
    return frame.color_range == AVCOL_RANGE_JPEG || withoutJPEGName(format) != format;
}

std::optional<HDRConversion::Transfer> transferOf(const AVFrame& frame) {
    switch (frame.color_trc) {
    case AVCOL_TRC_SMPTE2084:
        return HDRConversion::Transfer::pq;
    case AVCOL_TRC_ARIB_STD_B67:
        return HDRConversion::Transfer::hlg;
    default:
        return std::nullopt;
    }
}

/// libswscale writes blocks of pixels, also over the end of a row and of the last one.
int wholeBlocks(int width) {
    return (width + kBlock - 1) / kBlock * kBlock;
}

template <class Number>
std::span<Number> rowOf(std::vector<Number>& pixels, int width, std::size_t y) {
    const auto size = static_cast<std::size_t>(width) * kChannels;
    return std::span(pixels).subspan(y * size, size);
}

/// Keeps the rows of the first field and puts the mean of two of them between them: the second field
/// shows another moment.
void deinterlace(Image& picture, bool isTopFirst) {
    const auto height = static_cast<std::size_t>(picture.height);
    for (std::size_t y = isTopFirst ? 1 : 0; y < height; y += 2) {
        const std::size_t below = y + 1 < height ? y + 1 : y - 1;
        const auto upper = rowOf(picture.pixels, picture.width, y > 0 ? y - 1 : below);
        const auto lower = rowOf(picture.pixels, picture.width, below);
        std::ranges::transform(
            upper, lower, rowOf(picture.pixels, picture.width, y).begin(), [](int a, int b) {
                return static_cast<std::uint8_t>((a + b + 1) / 2);
            });
    }
}

int scaled(int side, double factor) {
    return std::max(1, static_cast<int>(std::lround(side * factor)));
}

/// Copies a picture, turned.
void turn(const Image& from, const VideoOrientation& turns, Image& to) {
    const auto width = static_cast<std::size_t>(from.width);
    const auto pixelAt = [&](int x, int y) {
        return (static_cast<std::size_t>(y) * width + static_cast<std::size_t>(x)) * 4;
    };
    std::size_t place = 0;
    for (int row = 0; row < to.height; ++row) {
        const int y = turns.mirrorsY ? to.height - 1 - row : row;
        for (int column = 0; column < to.width; ++column) {
            const int x = turns.mirrorsX ? to.width - 1 - column : column;
            const std::size_t source = turns.swapsAxes ? pixelAt(y, x) : pixelAt(x, y);
            std::copy_n(&from.pixels[source], 4, &to.pixels[place]);
            place += 4;
        }
    }
}

} // namespace

VideoOrientation VideoOrientation::of(const std::int32_t* matrix) {
    if (matrix == nullptr)
        return {};
    const auto [a, b, c, d] = std::array{matrix[0], matrix[1], matrix[3], matrix[4]};
    const auto size = [](std::int32_t value) { return std::abs(static_cast<std::int64_t>(value)); };
    if (size(b) + size(c) > size(a) + size(d))
        return {.swapsAxes = true, .mirrorsX = c < 0, .mirrorsY = b < 0};
    return {.swapsAxes = false, .mirrorsX = a < 0, .mirrorsY = d < 0};
}

/// Memory for pictures. They may be destroyed on any thread and may outlive the stock.
class VideoPictures::Stock : public std::enable_shared_from_this<Stock> {
public:
    [[nodiscard]] std::shared_ptr<Image> take(int width, int height) {
        std::unique_ptr<Image> made = spareOne();
        if (!made)
            made = std::make_unique<Image>(width, height);
        return {made.release(), [home = weak_from_this()](Image* picture) {
                    std::unique_ptr<Image> left(picture);
                    if (const auto kept = home.lock())
                        kept->giveBack(std::move(left));
                }};
    }

private:
    static constexpr std::size_t kMaxSpare = 3;

    std::unique_ptr<Image> spareOne() {
        const std::lock_guard lock(mutex);
        if (spare.empty())
            return nullptr;
        std::unique_ptr<Image> one = std::move(spare.back());
        spare.pop_back();
        return one;
    }

    void giveBack(std::unique_ptr<Image> picture) {
        const std::lock_guard lock(mutex);
        if (spare.size() < kMaxSpare)
            spare.push_back(std::move(picture));
    }

    std::mutex mutex; // guards spare
    std::vector<std::unique_ptr<Image>> spare;
};

void VideoPictures::ScalerDelete::operator()(SwsContext* context) const {
    sws_freeContext(context);
}

VideoPictures::VideoPictures(const Source& source, int maxSide)
    : turns(source.orientation)
    , stock(std::make_shared<Stock>()) {
    const bool isUsable =
        source.pixelAspect >= 1 / kMaxPixelAspect && source.pixelAspect <= kMaxPixelAspect;
    const double aspect = isUsable ? source.pixelAspect : 1;
    // The side that is too short grows, so that no pixel is lost.
    const double width = source.width * std::max(aspect, 1.0);
    const double height = source.height / std::min(aspect, 1.0);
    const double fit = std::min(1.0, maxSide / std::max(width, height));
    storedWidth = scaled(source.width, std::max(aspect, 1.0) * fit);
    storedHeight = scaled(source.height, fit / std::min(aspect, 1.0));
    if (turns.swapsAxes || turns.mirrorsX || turns.mirrorsY)
        unturned = Image(storedWidth, storedHeight);
}

VideoPictures::~VideoPictures() = default;
VideoPictures::VideoPictures(VideoPictures&& other) noexcept = default;

image::ImagePtr VideoPictures::picture(const AVFrame& frame) {
    if (!prepareScaler(frame))
        return nullptr;
    std::shared_ptr<Image> result = stock->take(width(), height());
    if (unturned.pixels.empty())
        return convert(frame, *result) ? result : nullptr;
    if (!convert(frame, unturned))
        return nullptr;
    turn(unturned, turns, *result);
    return result;
}

bool VideoPictures::prepareScaler(const AVFrame& frame) {
    const auto format = static_cast<AVPixelFormat>(frame.format);
    if (frame.width <= 0 || frame.height <= 0 || sws_isSupportedInput(format) == 0)
        return false;
    const Colors colors{
        format, frame.width, frame.height, matrixOf(frame), hasFullRange(frame), transferOf(frame)};
    // Not sws_getCachedContext: of 4:4:4 it makes a new scaler each time, with another matrix.
    if (scaler && colors == lastColors)
        return true;
    if (colors.transfer != lastColors.transfer)
        hdr = colors.transfer ? std::make_unique<HDRConversion>(*colors.transfer) : nullptr;
    scaler.reset(sws_getContext(
        frame.width,
        frame.height,
        withoutJPEGName(format),
        storedWidth,
        storedHeight,
        hdr ? AV_PIX_FMT_RGBA64 : AV_PIX_FMT_RGBA,
        SWS_BILINEAR,
        nullptr,
        nullptr,
        nullptr));
    if (!scaler)
        return false;
    lastColors = colors;
    constexpr int kNeutral = 1 << 16; // contrast and saturation
    sws_setColorspaceDetails(
        scaler.get(),
        sws_getCoefficients(colors.matrix),
        colors.hasFullRange ? 1 : 0,
        sws_getCoefficients(SWS_CS_DEFAULT),
        1,
        0,
        kNeutral,
        kNeutral);
    return true;
}

bool VideoPictures::convert(const AVFrame& frame, Image& target) {
    const bool isConverted = hdr ? convertHDR(frame, target) : convertSDR(frame, target);
    if (isConverted && frame.interlaced_frame != 0)
        deinterlace(target, frame.top_field_first != 0);
    return isConverted;
}

bool VideoPictures::convertSDR(const AVFrame& frame, Image& target) {
    const int columns = wholeBlocks(target.width);
    if (columns == target.width)
        return scale(frame, target.pixels.data(), columns * kChannels);
    if (wide.pixels.empty())
        wide = Image(columns, target.height);
    if (!scale(frame, wide.pixels.data(), columns * kChannels))
        return false;
    const auto row = static_cast<std::size_t>(target.width) * kChannels;
    for (std::size_t y = 0; y < static_cast<std::size_t>(target.height); ++y)
        std::ranges::copy(rowOf(wide.pixels, wide.width, y).first(row), &target.pixels[y * row]);
    return true;
}

bool VideoPictures::convertHDR(const AVFrame& frame, Image& target) {
    const int columns = wholeBlocks(target.width);
    deep.resize(
        static_cast<std::size_t>(columns * kChannels) * static_cast<std::size_t>(target.height));
    const int rowBytes = columns * kChannels * static_cast<int>(sizeof(deep.front()));
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the library writes bytes
    if (!scale(frame, reinterpret_cast<std::uint8_t*>(deep.data()), rowBytes))
        return false;
    const auto row = static_cast<std::size_t>(target.width) * kChannels;
    for (std::size_t y = 0; y < static_cast<std::size_t>(target.height); ++y)
        hdr->convert(rowOf(deep, columns, y).first(row), rowOf(target.pixels, target.width, y));
    return true;
}

// NOLINTNEXTLINE(readability-non-const-parameter): the library writes there
bool VideoPictures::scale(const AVFrame& frame, std::uint8_t* target, int rowBytes) {
    const std::array<std::uint8_t*, 4> planes{target};
    const std::array<int, 4> strides{rowBytes};
    return sws_scale(
               scaler.get(),
               static_cast<const std::uint8_t* const*>(frame.data),
               static_cast<const int*>(frame.linesize),
               0,
               frame.height,
               planes.data(),
               strides.data()) > 0;
}

} // namespace zelvo::media
