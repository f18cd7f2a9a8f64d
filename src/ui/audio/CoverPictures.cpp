// SPDX-License-Identifier: MIT
#include "ui/audio/CoverPictures.h"

#include "platform/music/TagReader.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <atomic>
#include <deque>
#include <mutex>
#include <optional>

namespace zelvo::ui {

namespace {

/// More covers than a window shows. Older ones are forgotten: they have scrolled out of sight, or they
/// are asked for again.
constexpr std::size_t kMostAsked = 48;
constexpr int kMaxSide = 8192; ///< of a cover, pixels

const QString kAlbum = QStringLiteral("album:");
const QString kSong = QStringLiteral("song:");

std::filesystem::path songWith(const QString& cover, const MusicPlaces& places) {
    if (cover.startsWith(kSong))
        return cover.mid(kSong.size()).toStdString();
    auto index = music::MusicIndex::open(places.database, places.folder);
    return index ? index->artworkOf(cover.mid(kAlbum.size()).toStdString())
                 : std::filesystem::path();
}

QImage squareOf(const QImage& picture, int pixels) {
    const int side = std::min(picture.width(), picture.height());
    const QRect middle((picture.width() - side) / 2, (picture.height() - side) / 2, side, side);
    QImage square(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const double radius = pixels / 12.0;
    QPainterPath edge;
    edge.addRoundedRect(square.rect(), radius, radius);
    painter.setClipPath(edge);
    painter.drawImage(square.rect(), picture, middle);
    return square;
}

} // namespace

QString coverOfAlbum(const std::string& albumKey) {
    return kAlbum + QString::fromStdString(albumKey);
}

QString coverOfSong(const std::filesystem::path& song) {
    return kSong + QString::fromStdString(song.string());
}

QImage coverPicture(const std::vector<std::uint8_t>& bytes, int pixels) {
    QByteArray data = QByteArray::fromRawData(
        reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QByteArray format = reader.format(); // only those of covers: others are drawn, or rare
    const QSize size = reader.size();
    if ((format != "jpeg" && format != "png" && format != "webp" && format != "gif" &&
         format != "bmp") ||
        !size.isValid() || std::max(size.width(), size.height()) > kMaxSide)
        return {};
    // A JPEG is decoded small, which is much faster.
    reader.setScaledSize(
        size.scaled(2 * pixels, 2 * pixels, Qt::KeepAspectRatioByExpanding).boundedTo(size));
    const QImage picture = reader.read();
    return picture.isNull() ? QImage() : squareOf(picture, pixels);
}

/// The covers that wait for the thread.
struct CoverPictures::Asked {
    std::atomic<bool> isOver = false;
    std::mutex mutex;
    std::deque<Key> keys; ///< guarded by the mutex; the newest is the last

    void add(const Key& key) {
        const std::scoped_lock lock(mutex);
        std::erase(keys, key);
        keys.push_back(key);
        if (keys.size() > kMostAsked)
            keys.pop_front();
    }

    [[nodiscard]] std::optional<Key> takeNewest() {
        const std::scoped_lock lock(mutex);
        if (keys.empty() || isOver)
            return std::nullopt;
        Key newest = std::move(keys.back());
        keys.pop_back();
        return newest;
    }
};

CoverPictures::CoverPictures(foundation::RunLoop& runLoop, MusicPlaces given)
    : loop(runLoop)
    , places(std::move(given))
    , asked(std::make_shared<Asked>())
    , queue(runLoop.makeSerialQueue("covers")) {}

CoverPictures::~CoverPictures() {
    asked->isOver = true; // so that the thread ends soon
}

const QImage* CoverPictures::find(const QString& cover, int pixels) {
    const Key wanted(cover, pixels);
    if (const QImage* const known = pictures.object(wanted))
        return known;
    asked->add(wanted);
    queue->async([waiting = asked,
                  where = places,
                  &runLoop = loop,
                  take = lifetime.guard(
                      [this](const Key& key, const QImage& picture) { keep(key, picture); })] {
        const auto next = waiting->takeNewest();
        if (!next)
            return; // it was asked for twice, or forgotten
        const auto song = songWith(next->first, where);
        const auto bytes = music::readCover(song, [waiting] { return waiting->isOver.load(); });
        QImage picture = bytes ? coverPicture(*bytes, next->second) : QImage();
        runLoop.post([take, next, picture] { take(*next, picture); });
    });
    return nullptr;
}

void CoverPictures::keep(const Key& key, QImage picture) {
    const auto bytes = std::max<qsizetype>(picture.sizeInBytes(), 1);
    pictures.insert(key, new QImage(std::move(picture)), bytes);
    Q_EMIT arrived();
}

} // namespace zelvo::ui
