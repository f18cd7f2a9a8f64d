// SPDX-License-Identifier: MIT
#pragma once

// Uses FFmpeg's types: only for the sources of this folder.

#include "platform/image/Image.h"
#include "platform/media/FFmpeg.h"
#include "platform/media/HDRConversion.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

struct SwsContext;

namespace zelvo::media {

/// How the stored picture is turned to be shown: first mirrored, then its axes swapped.
struct VideoOrientation {
    bool swapsAxes = false;
    bool mirrorsX = false; ///< of the picture as shown
    bool mirrorsY = false;

    /// From the file's display matrix (ISO/IEC 14496-12, 6.2.2); null means upright. Only quarter
    /// turns and mirroring are followed.
    [[nodiscard]] static VideoOrientation of(const std::int32_t* matrix);
};

/// Turns decoded frames into pictures: upright, with square pixels, sRGB with straight alpha. All
/// pictures have the same size. Memory of destroyed pictures is used again.
///
/// The matrix (BT.601, BT.709, BT.2020) and the range of the luma are those that the file names. A
/// file that names none has BT.601 up to 576 rows and BT.709 above. Transfer curves are taken as
/// they are, as all players do with BT.709, but for those of HDR. Of an interlaced frame the first
/// field is shown.
class VideoPictures {
public:
    struct Source {
        int width = 0; ///< as stored
        int height = 0;
        double pixelAspect = 1; ///< width over height of a stored pixel
        VideoOrientation orientation;
    };

    /// Pictures with a side above `maxSide` are scaled down.
    VideoPictures(const Source& source, int maxSide);
    ~VideoPictures();
    VideoPictures(VideoPictures&& other) noexcept;
    VideoPictures& operator=(VideoPictures&&) = delete;

    /// As shown.
    [[nodiscard]] int width() const { return turns.swapsAxes ? storedHeight : storedWidth; }

    [[nodiscard]] int height() const { return turns.swapsAxes ? storedWidth : storedHeight; }

    /// Null if the format of the frame is not known.
    [[nodiscard]] image::ImagePtr picture(const AVFrame& frame);

private:
    struct ScalerDelete {
        void operator()(SwsContext* context) const;
    };

    /// What the scaler's tables are made for.
    struct Colors {
        int format = -1;
        int width = 0; ///< as stored
        int height = 0;
        int matrix = 0;
        bool hasFullRange = false;
        std::optional<HDRConversion::Transfer> transfer; ///< nothing: not in HDR

        bool operator==(const Colors&) const = default;
    };

    class Stock;

    [[nodiscard]] bool prepareScaler(const AVFrame& frame);
    [[nodiscard]] bool convert(const AVFrame& frame, image::Image& target);
    [[nodiscard]] bool convertSDR(const AVFrame& frame, image::Image& target);
    [[nodiscard]] bool convertHDR(const AVFrame& frame, image::Image& target);
    [[nodiscard]] bool scale(const AVFrame& frame, std::uint8_t* target, int rowBytes);

    VideoOrientation turns;
    int storedWidth = 1; ///< with square pixels, before turning
    int storedHeight = 1;
    std::unique_ptr<SwsContext, ScalerDelete> scaler;
    Colors lastColors;
    std::shared_ptr<Stock> stock;
    image::Image unturned; ///< empty while pictures need no turning
    image::Image wide;     ///< rows of whole blocks; empty while pictures have such rows
    std::unique_ptr<HDRConversion> hdr; ///< null while frames are not in HDR
    std::vector<std::uint16_t> deep;    ///< the scaler's picture in HDR, in rows of whole blocks
};

} // namespace zelvo::media
