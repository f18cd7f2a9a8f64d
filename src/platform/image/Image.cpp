// SPDX-License-Identifier: MIT
#include "platform/image/Image.h"

#include "platform/foundation/Check.h"

#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <QSaveFile>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <mutex>
#include <string_view>
#include <system_error>

namespace zelvo::image {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

constexpr qint64 kMaxFileBytes = 512LL << 20U;
constexpr int kAllocationMegabytes = 512; ///< for one decoded picture, before it is scaled down
constexpr int kJPEGQuality = 95;

/// What people's pictures come as, as far as the decoders are there. Qt would also try icons,
/// vector files and text.
constexpr auto kFormats =
    std::to_array<std::string_view>({"png", "jpeg", "gif", "bmp", "webp", "tiff", "heic", "heif"});

QString qPath(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

Result<ImagePtr> failDecode(const QImageReader& reader) {
    switch (reader.error()) {
    case QImageReader::UnsupportedFormatError:
        return fail(Cause::malformed, "this is no picture; use a PNG, JPEG or WebP file");
    case QImageReader::DeviceError:
        return fail(Cause::unreadable, "the picture cannot be read");
    default:
        return fail(
            Cause::malformed,
            "the picture is damaged (" + reader.errorString().toStdString() + ")");
    }
}

/// RGBA in sRGB, whatever the file held.
QImage normalised(const QImage& decoded) {
    QImage image = decoded.convertToFormat(QImage::Format_RGBA8888);
    if (image.colorSpace().isValid() && image.colorSpace() != QColorSpace(QColorSpace::SRgb)) {
        image.convertToColorSpace(QColorSpace(QColorSpace::SRgb));
        image.convertTo(QImage::Format_RGBA8888);
    }
    const int side = std::max(image.width(), image.height());
    if (side > kMaxSide) {
        image = image.scaled(kMaxSide, kMaxSide, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                    .convertToFormat(QImage::Format_RGBA8888);
    }
    return image;
}

ImagePtr copied(const QImage& source) {
    auto image = std::make_shared<Image>(source.width(), source.height());
    const auto rowBytes = static_cast<std::size_t>(source.width()) * 4U;
    for (int row = 0; row < source.height(); ++row) {
        std::memcpy(
            image->pixels.data() + static_cast<std::size_t>(row) * rowBytes,
            source.constScanLine(row),
            rowBytes);
    }
    return image;
}

/// Asks the decoder itself for a small picture, so that a huge one is never held whole where it can
/// be helped.
void limitSize(QImageReader& reader, const QSize& size) {
    const int side = std::max(size.width(), size.height());
    if (side <= kMaxSide)
        return;
    const QSize scaled = size.scaled(kMaxSide, kMaxSide, Qt::KeepAspectRatio);
    reader.setScaledSize(scaled.expandedTo(QSize(1, 1)));
}

Result<ImagePtr> decode(QIODevice& device) {
    static std::once_flag once;
    std::call_once(once, [] { QImageReader::setAllocationLimit(kAllocationMegabytes); });

    QImageReader reader(&device);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    if (!reader.canRead())
        return failDecode(reader);
    const std::string format = reader.format().toStdString();
    if (std::ranges::find(kFormats, format) == kFormats.end())
        return fail(Cause::malformed, "this is no picture; use a PNG, JPEG or WebP file");

    const QSize size = reader.size();
    if (size.isValid()) {
        const auto count = static_cast<std::int64_t>(size.width()) * size.height();
        if (count > kMaxPixels) {
            return fail(
                Cause::tooLarge,
                fmt::format(
                    "the picture claims {} x {} pixels; use one of at most {} million",
                    size.width(),
                    size.height(),
                    kMaxPixels / 1'000'000));
        }
        limitSize(reader, size);
    }
    const QImage decoded = reader.read();
    if (decoded.isNull())
        return failDecode(reader);
    return copied(normalised(decoded));
}

/// Puts a file in place whole or not at all; anything else that can be written to (a device, a
/// pipe) is written as it is.
Result<void> writeFile(const std::filesystem::path& path, const QByteArray& bytes) {
    const auto unwritable = [&](const QFileDevice& file) {
        return fail(
            Cause::unwritable,
            path.string() + " cannot be written: " + file.errorString().toStdString());
    };
    std::error_code error;
    if (std::filesystem::exists(path, error) && !std::filesystem::is_regular_file(path, error)) {
        QFile file(qPath(path));
        const bool done = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                          file.write(bytes) == bytes.size();
        if (!done)
            return unwritable(file);
        return {};
    }
    QSaveFile file(qPath(path));
    const bool done =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    if (!done)
        return unwritable(file);
    return {};
}

Result<void> save(const QImage& image, const std::filesystem::path& path, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    if (std::string_view(format) == "jpeg")
        writer.setQuality(kJPEGQuality);
    CHECK(writer.write(image), "{}: {}", path.string(), writer.errorString().toStdString());
    return writeFile(path, bytes);
}

QImage viewOf(const Image& image) {
    CHECK(
        image.pixels.size() ==
            4U * static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height),
        "a picture of {} x {} has {} bytes",
        image.width,
        image.height,
        image.pixels.size());
    return {
        image.pixels.data(),
        image.width,
        image.height,
        static_cast<qsizetype>(image.width) * 4,
        QImage::Format_RGBA8888};
}

} // namespace

Result<ImagePtr> loadImage(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::exists(file, error)) {
        return fail(Cause::notFound, file.string() + ": there is no such file");
    }
    QFile device(qPath(file));
    if (!std::filesystem::is_regular_file(file, error) || !device.open(QIODevice::ReadOnly)) {
        return fail(Cause::unreadable, file.string() + ": the file cannot be opened");
    }
    if (device.size() > kMaxFileBytes) {
        return fail(Cause::tooLarge, file.string() + ": the file is larger than 512 MiB");
    }
    return decode(device).map_error([&](const auto& failure) { return failure.in(file.string()); });
}

Result<ImagePtr> decodeImage(std::span<const std::uint8_t> bytes) {
    if (bytes.size() > static_cast<std::size_t>(kMaxFileBytes)) {
        return fail(Cause::tooLarge, "the picture is larger than 512 MiB");
    }
    const auto* const data = reinterpret_cast<const char*>(bytes.data());
    QByteArray array = QByteArray::fromRawData(data, static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&array);
    buffer.open(QIODevice::ReadOnly);
    return decode(buffer);
}

Result<void> savePNG(const Image& image, const std::filesystem::path& file) {
    return save(viewOf(image), file, "png");
}

Result<void> saveJPEG(const Image& image, const std::filesystem::path& file) {
    return save(viewOf(image).convertToFormat(QImage::Format_RGB888), file, "jpeg");
}

Image tinted(const Image& image, const Color& color) {
    const auto byte = [](float value) {
        return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0f, 1.0f) * 255));
    };
    const std::uint8_t red = byte(color.red);
    const std::uint8_t green = byte(color.green);
    const std::uint8_t blue = byte(color.blue);
    const unsigned alpha = byte(color.alpha);

    Image result(image.width, image.height);
    for (std::size_t i = 0; i + 3 < image.pixels.size(); i += 4) {
        result.pixels[i] = red;
        result.pixels[i + 1] = green;
        result.pixels[i + 2] = blue;
        result.pixels[i + 3] =
            static_cast<std::uint8_t>((image.pixels[i + 3] * alpha + 127U) / 255U);
    }
    return result;
}

} // namespace zelvo::image
