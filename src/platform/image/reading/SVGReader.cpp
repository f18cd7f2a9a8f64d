// SPDX-License-Identifier: MIT
#include "platform/image/reading/SVGReader.h"

#include "platform/foundation/HelperProgram.h"
#include "platform/image/reading/SVGDrawing.h"

#include <fmt/format.h>

#include <QImage>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <string>

namespace zelvo::image {

using foundation::Cause;
using foundation::fail;
using foundation::HelperEnding;
using foundation::Result;

namespace {

constexpr std::size_t kMaxBytes = 64U << 20U;
constexpr std::size_t kPixelBytes = 4;
constexpr std::size_t kMaxOutput = sizeof(DrawingHeader) + kPixelBytes *
                                                               std::size_t{kDrawingSize.width} *
                                                               std::size_t{kDrawingSize.height};

Result<ImagePtr> pictureFrom(const std::vector<std::uint8_t>& output) {
    DrawingHeader header;
    if (output.size() >= sizeof(header))
        std::memcpy(&header, output.data(), sizeof(header));
    const auto rowBytes = static_cast<std::size_t>(std::max(header.width, 0)) * kPixelBytes;
    const auto height = static_cast<std::size_t>(std::max(header.height, 0));
    if (rowBytes * height == 0 || output.size() != sizeof(header) + rowBytes * height)
        return fail(Cause::malformed, "the drawing is damaged (only a part of it can be drawn)");
    const QImage straight = QImage(
                                output.data() + sizeof(header),
                                header.width,
                                header.height,
                                static_cast<qsizetype>(rowBytes),
                                QImage::Format_ARGB32_Premultiplied)
                                .convertToFormat(QImage::Format_RGBA8888);
    auto image = std::make_shared<Image>(header.width, header.height);
    std::memcpy(image->pixels.data(), straight.constBits(), image->pixels.size());
    return image;
}

Result<ImagePtr> resultOf(const HelperEnding& ending, int seconds) {
    if (ending.signal == SIGXCPU || ending.signal == SIGALRM)
        return fail(
            Cause::tooLarge,
            fmt::format(
                "the drawing takes longer than {} seconds to draw; make it simpler, or save it "
                "as a PNG",
                seconds));
    if (ending.signal == 0 && ending.exitStatus == 0)
        return pictureFrom(ending.output);
    const std::string complaint(ending.output.begin(), ending.output.end());
    if (ending.signal == 0 && !complaint.ends_with("NoMemory)"))
        return fail(Cause::malformed, complaint);
    return fail(
        Cause::tooLarge,
        "the drawing needs more memory than it may have; make it simpler, or save it as a PNG");
}

} // namespace

bool isSVG(std::span<const std::uint8_t> start) {
    constexpr std::array<std::uint8_t, 2> kGzip{0x1F, 0x8B};
    constexpr std::array<std::uint8_t, 3> kByteOrderMark{0xEF, 0xBB, 0xBF};
    const auto startsWith = [&start](const auto& mark) {
        return start.size() >= mark.size() && std::ranges::equal(start.first(mark.size()), mark);
    };
    if (startsWith(kGzip))
        return true;
    if (startsWith(kByteOrderMark))
        start = start.subspan(kByteOrderMark.size());
    const auto first = std::ranges::find_if(start, [](std::uint8_t byte) { return byte > ' '; });
    return first != start.end() && *first == '<';
}

Result<ImagePtr>
readSVG(std::span<const std::uint8_t> file, const std::function<bool()>& isStopped, int seconds) {
    if (file.size() > kMaxBytes)
        return fail(Cause::tooLarge, "the drawing is larger than 64 MiB");
    return foundation::runHelper({.program = "zelvo-draw",
                                  .arguments = {std::to_string(seconds)},
                                  .input = file,
                                  .maxOutputBytes = kMaxOutput,
                                  .isStopped = isStopped})
        .and_then([seconds](const HelperEnding& ending) { return resultOf(ending, seconds); });
}

} // namespace zelvo::image
