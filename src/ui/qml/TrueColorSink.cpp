// SPDX-License-Identifier: MIT
#include "ui/qml/TrueColorSink.h"

#include <algorithm>
#include <cstdint>

namespace zelvo::ui {

namespace {

/// ITU-R BT.709 in video range, in units of 1/65536.
struct Weights {
    static constexpr int kLuma = 76309;
    static constexpr int kRedOfV = 117489;
    static constexpr int kGreenOfU = -13975;
    static constexpr int kGreenOfV = -34925;
    static constexpr int kBlueOfU = 138438;
};

/// A row of the picture: luma for each pixel, u and v for each two pixels.
struct Row {
    const std::uint8_t* luma;
    const std::uint8_t* u;
    const std::uint8_t* v;
    int chromaStep; ///< bytes between two values
};

std::uint8_t level(int value) {
    constexpr int kHalf = 1 << 15;
    return static_cast<std::uint8_t>(std::clamp((value + kHalf) >> 16, 0, 255));
}

void convert(const Row& row, int width, std::uint8_t* rgbx) {
    for (int x = 0; x < width; ++x) {
        const int luma = Weights::kLuma * (row.luma[x] - 16);
        const int u = row.u[(x / 2) * row.chromaStep] - 128;
        const int v = row.v[(x / 2) * row.chromaStep] - 128;
        rgbx[4 * x] = level(luma + Weights::kRedOfV * v);
        rgbx[4 * x + 1] = level(luma + Weights::kGreenOfU * u + Weights::kGreenOfV * v);
        rgbx[4 * x + 2] = level(luma + Weights::kBlueOfU * u);
        rgbx[4 * x + 3] = 255;
    }
}

bool isOurs(const QVideoFrameFormat& format) {
    const auto layout = format.pixelFormat();
    return (layout == QVideoFrameFormat::Format_YUV420P ||
            layout == QVideoFrameFormat::Format_NV12) &&
           format.colorSpace() == QVideoFrameFormat::ColorSpace_BT709 &&
           format.colorRange() != QVideoFrameFormat::ColorRange_Full;
}

} // namespace

TrueColorSink::TrueColorSink(QObject* parent)
    : QVideoSink(parent) {
    connect(this, &QVideoSink::videoFrameChanged, this, &TrueColorSink::pass, Qt::DirectConnection);
}

QVideoSink* TrueColorSink::target() const {
    const std::scoped_lock lock(mutex);
    return target_;
}

void TrueColorSink::setTarget(QVideoSink* sink) {
    {
        const std::scoped_lock lock(mutex);
        target_ = sink;
    }
    Q_EMIT targetChanged();
}

void TrueColorSink::pass(const QVideoFrame& frame) const {
    const QVideoFrame shown = withTrueColors(frame);
    // Locked until the frame is delivered, so that the target cannot be removed meanwhile.
    const std::scoped_lock lock(mutex);
    if (target_ != nullptr)
        target_->setVideoFrame(shown);
}

QVideoFrame withTrueColors(const QVideoFrame& frame) {
    if (!isOurs(frame.surfaceFormat()))
        return frame;
    QVideoFrame source = frame;
    QVideoFrame shown(QVideoFrameFormat(frame.size(), QVideoFrameFormat::Format_RGBX8888));
    if (!source.map(QVideoFrame::ReadOnly))
        return frame;
    if (!shown.map(QVideoFrame::WriteOnly)) {
        source.unmap();
        return frame;
    }
    const bool isInterleaved = source.planeCount() == 2;
    const int step = isInterleaved ? 2 : 1;
    const std::uint8_t* const vBegin = isInterleaved ? source.bits(1) + 1 : source.bits(2);
    const int vLine = source.bytesPerLine(isInterleaved ? 1 : 2);
    for (int y = 0; y < frame.height(); ++y) {
        const Row row{
            source.bits(0) + y * source.bytesPerLine(0),
            source.bits(1) + y / 2 * source.bytesPerLine(1),
            vBegin + y / 2 * vLine,
            step};
        convert(row, frame.width(), shown.bits(0) + y * shown.bytesPerLine(0));
    }
    source.unmap();
    shown.unmap();
    shown.setStartTime(frame.startTime());
    shown.setEndTime(frame.endTime());
    return shown;
}

} // namespace zelvo::ui
