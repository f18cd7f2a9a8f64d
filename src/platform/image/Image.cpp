// SPDX-License-Identifier: MIT
#include "platform/image/Image.h"

#include "platform/foundation/Check.h"
#include "platform/foundation/NewFile.h"
#include "platform/image/QImageView.h"

#include <QBuffer>
#include <QImageWriter>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <span>
#include <string_view>

namespace zelvo::image {

using foundation::Result;

namespace {

constexpr int kJPEGQuality = 95;

Result<void> save(const QImage& image, const std::filesystem::path& path, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    if (std::string_view(format) == "jpeg")
        writer.setQuality(kJPEGQuality);
    CHECK(writer.write(image), "{}: {}", path.string(), writer.errorString().toStdString());
    return foundation::NewFile::create(path).and_then([&](foundation::NewFile file) {
        return file.write(std::as_bytes(std::span(bytes))).and_then([&] { return file.commit(); });
    });
}

} // namespace

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

namespace {

std::size_t normalCount(const Image& image) {
    return 2U * static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
}

} // namespace

Result<void> saveFineNormals(const Image& image, const std::filesystem::path& file) {
    CHECK(image.fineNormals.size() == normalCount(image), "{}: no normals", file.string());
    return foundation::NewFile::create(file).and_then([&](foundation::NewFile out) {
        return out.write(std::as_bytes(std::span(image.fineNormals))).and_then([&] {
            return out.commit();
        });
    });
}

Result<void> loadFineNormals(Image& image, const std::filesystem::path& file) {
    std::error_code error;
    const auto bytes = std::filesystem::file_size(file, error);
    if (error)
        return foundation::fail(
            foundation::Cause::notFound, file.string() + ": there is no such file");
    std::vector<std::uint16_t> normals(normalCount(image));
    std::ifstream in(file, std::ios::binary);
    if (bytes == normals.size() * sizeof(std::uint16_t)) {
        in.read(reinterpret_cast<char*>(normals.data()), static_cast<std::streamsize>(bytes));
    }
    if (!in || bytes != normals.size() * sizeof(std::uint16_t)) {
        return foundation::fail(
            foundation::Cause::malformed,
            file.string() + ": not the normals of its picture; bake the resources again");
    }
    image.fineNormals = std::move(normals);
    return {};
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
