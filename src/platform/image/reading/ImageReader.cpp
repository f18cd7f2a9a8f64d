// SPDX-License-Identifier: MIT
#include "platform/image/reading/ImageReader.h"

#include "platform/image/QImageView.h"
#include "platform/image/reading/AreaScaler.h"
#include "platform/image/reading/JPEGMarkers.h"
#include "platform/image/reading/PNGRows.h"
#include "platform/image/reading/SVGReader.h"
#include "platform/image/reading/StoredOrientation.h"
#include "platform/image/reading/TGAReader.h"

#include <fmt/format.h>

#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QImageReader>
#include <QLibrary>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdarg>
#include <cstring>
#include <mutex>
#include <span>
#include <string_view>
#include <system_error>

namespace zelvo::image {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

namespace {

constexpr qint64 kMaxFileBytes = 512LL << 20U;
constexpr int kAllocationMegabytes = 512; ///< for a decoded picture, before scaling

/// Common picture formats, if their decoders are installed. Qt would also try icons, vector files
/// and text.
constexpr auto kFormats =
    std::to_array<std::string_view>({"png", "jpeg", "gif", "bmp", "webp", "tiff", "heic", "heif"});

/// A file or buffer that cannot be read on as soon as it is stopped, so that its decoder ends.
template <class Device> class Stoppable final : public Device {
public:
    template <class Source>
    Stoppable(const IsStopped& stops, Source source)
        : Device(source)
        , asked(stops) {}

    [[nodiscard]] bool isStopped() const { return asked && asked(); }

protected:
    qint64 readData(char* data, qint64 count) override {
        return isStopped() ? -1 : Device::readData(data, count);
    }

private:
    const IsStopped& asked;
};

QString qPath(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

Result<ImagePtr> failDecode(const QImageReader& reader) {
    switch (reader.error()) {
    case QImageReader::UnsupportedFormatError:
        return fail(Cause::malformed, "this is no picture; use a PNG, JPEG, WebP or SVG file");
    case QImageReader::DeviceError:
        return fail(Cause::unreadable, "the picture cannot be read");
    default:
        return fail(
            Cause::malformed,
            "the picture is damaged (" + reader.errorString().toStdString() + ")");
    }
}

tl::unexpected<foundation::Error> failSize(Extent extent, std::string_view advice) {
    return fail(
        Cause::tooLarge,
        fmt::format("the picture claims {} x {} pixels; {}", extent.width, extent.height, advice));
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

/// Converts any picture to RGBA of at most kMaxSide, in strips, so that there is no second copy in
/// full.
QImage limited(const QImage& decoded) {
    const Extent extent{decoded.width(), decoded.height()};
    const Extent result = limitedExtent(extent);
    if (result.width == extent.width && result.height == extent.height)
        return decoded.convertToFormat(QImage::Format_RGBA8888);
    AreaScaler scaler(extent, result);
    constexpr int kStrip = 64;
    for (int top = 0; top < extent.height; top += kStrip) {
        const int rows = std::min(kStrip, extent.height - top);
        const QImage strip =
            decoded.copy(0, top, extent.width, rows).convertToFormat(QImage::Format_RGBA8888);
        for (int row = 0; row < rows; ++row) {
            scaler.addRow({strip.constScanLine(row), static_cast<std::size_t>(extent.width) * 4});
        }
    }
    const Image scaled = scaler.take();
    QImage image = viewOf(scaled).copy();
    image.setColorSpace(decoded.colorSpace());
    return image;
}

/// Converts from another colour space to sRGB.
ImagePtr inSRGB(QImage image) {
    const QColorSpace sRGB(QColorSpace::SRgb);
    if (image.colorSpace().isValid() && image.colorSpace() != sRGB) {
        image.convertToColorSpace(sRGB);
        image.convertTo(QImage::Format_RGBA8888);
    }
    return copied(image);
}

/// Lets the decoder make a small picture if it can, so that a huge one is never in memory.
void limitSize(QImageReader& reader, Extent extent) {
    const Extent result = limitedExtent(extent);
    if (result.width != extent.width && reader.supportsOption(QImageIOHandler::ScaledSize))
        reader.setScaledSize({result.width, result.height});
}

QColorSpace colorSpaceOf(const LimitedPNG& picture) {
    QColorSpace space;
    if (!picture.profile.empty()) {
        space = QColorSpace::fromIccProfile(QByteArray(
            reinterpret_cast<const char*>(picture.profile.data()),
            static_cast<qsizetype>(picture.profile.size())));
    }
    constexpr double kMinGamma = 0.1;
    if (space.isValid() || picture.gamma.value_or(0) < kMinGamma)
        return space;
    const auto gamma = static_cast<float>(1 / *picture.gamma);
    if (const auto& c = picture.chromaticities) {
        const auto point = [](const std::array<double, 2>& xy) { return QPointF(xy[0], xy[1]); };
        space = QColorSpace(
            point(c->white),
            point(c->red),
            point(c->green),
            point(c->blue),
            QColorSpace::TransferFunction::Gamma,
            gamma);
    }
    return space.isValid() ? space : QColorSpace(QColorSpace::Primaries::SRgb, gamma);
}

Result<ImagePtr> readPNG(QIODevice& device) {
    const auto read = [&device](std::span<std::uint8_t> bytes) {
        const qint64 count =
            device.read(reinterpret_cast<char*>(bytes.data()), static_cast<qint64>(bytes.size()));
        return static_cast<std::size_t>(std::max<qint64>(count, 0));
    };
    auto picture = readLimitedPNG(read);
    if (!picture)
        return tl::unexpected(picture.error());
    const QColorSpace colorSpace = colorSpaceOf(*picture);
    if (!colorSpace.isValid())
        return std::make_shared<const Image>(std::move(picture->image));
    QImage image = viewOf(picture->image);
    image.setColorSpace(colorSpace);
    return inSRGB(std::move(image));
}

Result<void> checkSize(Extent extent) {
    if (static_cast<std::int64_t>(extent.width) * extent.height <= kMaxPixels)
        return {};
    return failSize(extent, fmt::format("use one of at most {} million", kMaxPixels / 1'000'000));
}

tl::unexpected<foundation::Error> failEarlyEnd(Extent extent) {
    return fail(
        Cause::malformed,
        fmt::format(
            "the picture is damaged (it ends long before {} x {} pixels)",
            extent.width,
            extent.height));
}

/// A real picture of this size is never so empty.
Result<void> checkIsFilled(const QIODevice& device, Extent extent) {
    constexpr std::int64_t kHarmless = 1LL << 24U; // pixels
    constexpr std::int64_t kEmptyPixelsPerByte = 4096;
    const std::int64_t pixels = static_cast<std::int64_t>(extent.width) * extent.height;
    if (pixels > kHarmless && pixels / kEmptyPixelsPerByte > device.size())
        return failEarlyEnd(extent);
    return {};
}

/// Checks a JPEG before decoding, because the decoder fills the rest of a truncated file with grey,
/// keeps a progressive one in memory, and processes the whole picture for each scan.
Result<void> checkJPEG(const FileReader& file) {
    constexpr int kMaxScans = 200; // some ten are usual
    constexpr std::int64_t kBytesPerPixel = 6;
    const auto markers = jpegMarkersOf(file);
    if (!markers)
        return {};
    if (!markers->isWhole)
        return fail(
            Cause::malformed,
            "the picture is cut off: its file ends before the picture does; use another copy");
    if (markers->scans > kMaxScans)
        return fail(Cause::malformed, "the picture is damaged (it is in too many pieces)");
    if (markers->isProgressive &&
        markers->pixels * kBytesPerPixel > std::int64_t{kAllocationMegabytes} << 20U) {
        return fail(
            Cause::tooLarge,
            fmt::format(
                "the picture claims {} million pixels; save it without progressive coding",
                markers->pixels / 1'000'000));
    }
    return {};
}

/// Checks the header's claims before decoding: a few bytes must not allocate gigabytes.
Result<void> checkClaim(const QImageReader& reader, Extent extent) {
    if (auto fits = checkSize(extent); !fits)
        return fits;
    const std::int64_t pixels = static_cast<std::int64_t>(extent.width) * extent.height;
    constexpr std::int64_t kPixelsPerByte = 64 * 8; // each block of 8 x 8 needs at least a bit
    if (reader.format() == "jpeg" && pixels / kPixelsPerByte > reader.device()->size())
        return failEarlyEnd(extent);
    const QImage::Format format = reader.imageFormat();
    const std::int64_t bits =
        format == QImage::Format_Invalid ? 32 : QImage::toPixelFormat(format).bitsPerPixel();
    const bool isHeldWhole = !reader.supportsOption(QImageIOHandler::ScaledSize);
    if (isHeldWhole && pixels * bits / 8 > std::int64_t{kAllocationMegabytes} << 20U)
        return failSize(extent, "save it as a PNG or JPEG file");
    return checkIsFilled(*reader.device(), extent);
}

/// libtiff writes its errors and warnings to the console, and Qt lets it. Only Qt's plugin links
/// it, so its functions are looked up.
void silenceTIFF() {
    using Handler = void (*)(const char*, const char*, va_list);
    using Setter = Handler (*)(Handler);
    constexpr int kVersion = 6;
    for (const char* const name : {"TIFFSetErrorHandler", "TIFFSetWarningHandler"}) {
        if (const auto set = reinterpret_cast<Setter>(QLibrary::resolve("tiff", kVersion, name)))
            set(nullptr);
    }
}

/// Qt's decoder keeps the whole picture in memory and refuses large ones.
Result<ImagePtr> decodeWithQt(QIODevice& device) {
    static std::once_flag once;
    std::call_once(once, [] { QImageReader::setAllocationLimit(kAllocationMegabytes); });

    QImageReader reader(&device);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    if (!reader.canRead())
        return failDecode(reader);
    const std::string format = reader.format().toStdString();
    if (std::ranges::find(kFormats, format) == kFormats.end())
        return fail(Cause::malformed, "this is no picture; use a PNG, JPEG, WebP or SVG file");
    if (format == "tiff")
        silenceTIFF();

    const QSize size = reader.size();
    if (size.isValid()) {
        const Extent extent{size.width(), size.height()};
        if (const auto fits = checkClaim(reader, extent); !fits)
            return tl::unexpected(fits.error());
        limitSize(reader, extent);
    }
    const QImage decoded = reader.read();
    if (decoded.isNull())
        return failDecode(reader);
    return inSRGB(limited(decoded));
}

/// libpng itself, because Qt lets it write its errors to the console.
Result<ImagePtr> decodePNG(QIODevice& device, std::span<const std::uint8_t> start) {
    const auto header = pngHeaderOf(start);
    if (!header)
        return fail(Cause::malformed, "the picture is damaged (it ends early)");
    const Extent extent = header->extent;
    if (std::max(extent.width, extent.height) > kMaxSide) {
        if (const auto fits = checkSize(extent); !fits)
            return tl::unexpected(fits.error());
    }
    if (header->isInterlaced) { // is in memory as a whole
        constexpr std::int64_t kMaxInterlaced = (std::int64_t{kAllocationMegabytes} << 20U) / 8;
        if (static_cast<std::int64_t>(extent.width) * extent.height > kMaxInterlaced)
            return failSize(extent, "save it without interlacing");
        if (const auto filled = checkIsFilled(device, extent); !filled)
            return tl::unexpected(filled.error());
    }
    return readPNG(device);
}

std::span<const std::uint8_t> spanOf(const QByteArray& bytes) {
    return {
        reinterpret_cast<const std::uint8_t*>(bytes.data()),
        static_cast<std::size_t>(bytes.size())};
}

/// Qt's plugin knows only a part of the format.
Result<ImagePtr> decodeTGA(QIODevice& device) {
    const auto picture = readTGA(spanOf(device.readAll()));
    if (!picture)
        return tl::unexpected(picture.error());
    return inSRGB(limited(viewOf(*picture)));
}

Result<ImagePtr> decodeStored(QIODevice& device, const IsStopped& isStopped) {
    constexpr qint64 kStart = 256; // an SVG may begin with empty lines
    static_assert(kStart >= kPNGHeaderBytes);
    const QByteArray start = device.peek(kStart);
    if (isPNG(spanOf(start)))
        return decodePNG(
            device, spanOf(start).first(std::min(spanOf(start).size(), kPNGHeaderBytes)));
    if (isTGA(spanOf(start)))
        return decodeTGA(device);
    return isSVG(spanOf(start)) ? readSVG(spanOf(device.readAll()), isStopped)
                                : decodeWithQt(device);
}

Result<ImagePtr> decode(QIODevice& device, const IsStopped& isStopped) {
    const auto read = [&device](std::int64_t at, std::size_t count) {
        const bool isInside = at <= device.size() && device.seek(at);
        const QByteArray bytes = isInside ? device.read(static_cast<qint64>(count)) : QByteArray();
        return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
    };
    if (const auto sound = checkJPEG(read); !sound)
        return tl::unexpected(sound.error());
    // For other formats, Qt applies the orientation itself.
    const unsigned orientation = storedOrientation(read);
    device.seek(0);
    auto picture = decodeStored(device, isStopped);
    if (!picture || orientation == 1)
        return picture;
    return std::make_shared<const Image>(upright(**picture, orientation));
}

} // namespace

Result<ImagePtr> loadImage(const std::filesystem::path& file, const IsStopped& isStopped) {
    std::error_code error;
    if (!std::filesystem::exists(file, error)) {
        return fail(Cause::notFound, file.string() + ": there is no such file");
    }
    if (std::filesystem::is_directory(file, error))
        return fail(Cause::unreadable, file.string() + ": this is a folder");
    if (!std::filesystem::is_regular_file(file, error)) // reading a pipe would never end
        return fail(Cause::unreadable, file.string() + ": this is a device, not a file");
    Stoppable<QFile> device(isStopped, qPath(file));
    if (!device.open(QIODevice::ReadOnly)) {
        return fail(
            Cause::unreadable,
            fmt::format(
                "{}: the file cannot be opened ({})",
                file.string(),
                device.errorString().toStdString()));
    }
    if (device.size() == 0)
        return fail(Cause::malformed, file.string() + ": the file is empty");
    if (device.size() > kMaxFileBytes) {
        return fail(Cause::tooLarge, file.string() + ": the file is larger than 512 MiB");
    }
    auto picture = decode(device, isStopped);
    if (!picture && device.isStopped())
        return fail(Cause::cancelled, file.string() + ": nobody waits for it any more");
    return picture.map_error([&](const auto& failure) { return failure.in(file.string()); });
}

Result<ImagePtr> decodeImage(std::span<const std::uint8_t> bytes, const IsStopped& isStopped) {
    if (bytes.size() > static_cast<std::size_t>(kMaxFileBytes)) {
        return fail(Cause::tooLarge, "the picture is larger than 512 MiB");
    }
    const auto* const data = reinterpret_cast<const char*>(bytes.data());
    QByteArray array = QByteArray::fromRawData(data, static_cast<qsizetype>(bytes.size()));
    Stoppable<QBuffer> buffer(isStopped, &array);
    buffer.open(QIODevice::ReadOnly);
    auto picture = decode(buffer, isStopped);
    if (!picture && buffer.isStopped())
        return fail(Cause::cancelled, "nobody waits for the picture any more");
    return picture;
}

} // namespace zelvo::image
