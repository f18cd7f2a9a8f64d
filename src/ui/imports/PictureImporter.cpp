// SPDX-License-Identifier: MIT
#include "ui/imports/PictureImporter.h"

#include "content/ImageVideo.h"
#include "model/Model.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/NewFile.h"
#include "platform/image/reading/ImageReader.h"
#include "shared/Signal.h"
#include "ui/controls/Alerts.h"

#include <QCryptographicHash>

#include <array>
#include <span>
#include <string>
#include <utility>

namespace zelvo::ui {

namespace {

constexpr const char* kPastedFolder = "PastedPictures";
constexpr qsizetype kHashDigits = 16;
constexpr double kWordInterval = 2; ///< seconds; the word goes by itself soon after

/// The usual endings of what loadImage reads.
constexpr std::array kPictureSuffixes{
    "png", "jpg", "jpeg", "webp", "svg", "svgz", "gif", "tif", "tiff", "bmp"};
/// The usual endings of videos.
constexpr std::array kVideoSuffixes{
    "mp4", "mov", "m4v", "webm", "mkv", "avi", "mpg", "mpeg", "ts", "mts", "3gp", "ogv", "wmv"};

/// The desktop's dialogs mind the case.
template <std::size_t count> QString patternsOf(const std::array<const char*, count>& suffixes) {
    QStringList patterns;
    for (const char* const suffix : suffixes) {
        patterns.append(QStringLiteral("*.") + QString::fromLatin1(suffix));
        patterns.append(patterns.back().toUpper());
    }
    return patterns.join(' ');
}

/// The message with the file's name in place of its path.
std::string shortened(std::string message, const std::filesystem::path& file) {
    const std::string path = file.string();
    if (message.starts_with(path))
        message.replace(0, path.size(), file.filename().string());
    return message;
}

/// Writes what was pasted to a file with a name of its content. Empty if it cannot be written: then the
/// picture is shown, but no document can name it.
std::filesystem::path keptPaste(const QByteArray& encoded, const std::filesystem::path& folder) {
    const QByteArray hash = QCryptographicHash::hash(encoded, QCryptographicHash::Sha256).toHex();
    auto file = folder / hash.first(kHashDigits).toStdString();
    std::error_code error;
    if (std::filesystem::exists(file, error))
        return file;
    std::filesystem::create_directories(folder, error);
    const auto bytes =
        std::as_bytes(std::span(encoded.data(), static_cast<std::size_t>(encoded.size())));
    const auto written = foundation::NewFile::create(file).and_then([&](foundation::NewFile made) {
        return made.write(bytes).and_then([&] { return made.commit(); });
    });
    if (written)
        return file;
    foundation::logLine("zelvo: " + written.error().message);
    return {};
}

} // namespace

PictureImporter::PictureImporter(const Services& given)
    : services(given)
    , queue(services.runLoop.makeSerialQueue("pictures")) {}

PictureImporter::~PictureImporter() {
    ++*latest; // pictures that have not begun are not decoded any more
}

PictureImporter::Decoded
PictureImporter::read(const std::filesystem::path& file, const IsStopped& isStopped) {
    const auto asContent = [&](auto read) { return Arrived{std::move(read), file}; };
    if (media::isVideoFile(file))
        return media::AVPlayer::open(file).map(asContent);
    return image::loadImage(file, isStopped).map(asContent);
}

void PictureImporter::load(const std::filesystem::path& file) {
    begin(QString::fromStdString(file.filename().string()), [file](const IsStopped& isStopped) {
        return read(file, isStopped).map_error([&file](foundation::Error error) {
            error.message = shortened(std::move(error.message), file);
            return error;
        });
    });
}

void PictureImporter::load(const QByteArray& encoded) {
    const auto folder = services.folders.documents / kPastedFolder;
    begin(tr("Picture"), [encoded, folder](const IsStopped& isStopped) -> Decoded {
        const std::span bytes(
            reinterpret_cast<const std::uint8_t*>(encoded.data()),
            static_cast<std::size_t>(encoded.size()));
        return image::decodeImage(bytes, isStopped).map([&](image::ImagePtr picture) {
            return Arrived{std::move(picture), keptPaste(encoded, folder)};
        });
    });
}

void PictureImporter::begin(const QString& name, Decode decode) {
    const std::uint64_t number = ++*latest;
    waiting = nullptr;
    if (didAsk)
        didAsk();
    const std::string word = tr("Loading %1…").arg(name).toStdString();
    loadingWord = services.runLoop.scheduleOnce(kPatience, [this, word] {
        signals().messageSignal.fire(word);
        loadingWord = services.runLoop.scheduleRepeating(
            kWordInterval, [word] { signals().messageSignal.fire(word); });
    });
    queue->async([&loop = services.runLoop,
                  isStopped = IsStopped([latest = latest, number] { return number != *latest; }),
                  decode = std::move(decode),
                  done = lifetime.guard([this, number, name](const Decoded& decoded) {
                      finish(number, name, decoded);
                  })] {
        if (!isStopped())
            loop.post([done, decoded = decode(isStopped)] { done(decoded); });
    });
}

void PictureImporter::finish(std::uint64_t number, const QString& name, const Decoded& decoded) {
    if (number != *latest)
        return;
    loadingWord.invalidate();
    if (!decoded) {
        services.alerts.showAlert(
            tr("The picture cannot be opened.").toStdString(), decoded.error().message);
        return;
    }
    waiting = [this, name, arrived = *decoded] { show(arrived, name); };
    setHeld(isHeld);
}

void PictureImporter::setHeld(bool isOn) {
    isHeld = isOn;
    if (const auto call = isHeld ? nullptr : std::exchange(waiting, nullptr))
        call();
}

void PictureImporter::show(const Arrived& arrived, const QString& name) const {
    content::ImageNode& node = *services.model.nodes().imageNode;
    node.resetLayout();
    const auto* const video = std::get_if<std::shared_ptr<media::AVPlayer>>(&arrived.content);
    if (video != nullptr)
        content::setVideo(node, *video);
    else
        node.setImage(std::get<image::ImagePtr>(arrived.content));
    node.file = arrived.file;
    node.isVisible = true;
    node.updateVisibility();
    signals().messageSignal.fire(name.toStdString()); // in place of the size from the reset
    if (didArrive)
        didArrive();
}

QStringList PictureImporter::nameFilters() {
    const QString pictures = patternsOf(kPictureSuffixes);
    const QString videos = patternsOf(kVideoSuffixes);
    return {
        tr("Pictures and videos (%1)").arg(pictures + ' ' + videos),
        tr("Pictures (%1)").arg(pictures),
        tr("Videos (%1)").arg(videos),
        tr("All files (*)")};
}

} // namespace zelvo::ui
