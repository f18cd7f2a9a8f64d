// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "ui/audio/MusicLibrary.h"

#include <QCache>
#include <QImage>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

namespace zelvo::ui {

/// What a CoverItem shows: the cover of an album, or of one song.
[[nodiscard]] QString coverOfAlbum(const std::string& albumKey);
[[nodiscard]] QString coverOfSong(const std::filesystem::path& song);

/// Covers for lists. They are read on a thread of their own, the one asked for last first, because that
/// is where the user looks. The newest ones are kept. Nothing is kept on disk: to read a cover takes a few
/// milliseconds.
class CoverPictures final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")

public:
    static constexpr int kKeptBytes = 32 << 20;

    CoverPictures(foundation::RunLoop& runLoop, MusicPlaces given);
    ~CoverPictures() override;
    CoverPictures(const CoverPictures&) = delete;
    CoverPictures& operator=(const CoverPictures&) = delete;

    /// A square of that many pixels. An empty picture: there is none that can be read. Null: it is
    /// not read yet; `arrived` tells when to ask again. Valid until the next call.
    [[nodiscard]] const QImage* find(const QString& cover, int pixels);

Q_SIGNALS:
    void arrived();

private:
    using Key = std::pair<QString, int>;
    struct Asked;

    void keep(const Key& key, QImage picture);

    foundation::RunLoop& loop;
    MusicPlaces places;
    QCache<Key, QImage> pictures{kKeptBytes};
    std::shared_ptr<Asked> asked;
    std::unique_ptr<foundation::SerialQueue> queue;
    foundation::Lifetime lifetime;
};

/// Decodes the bytes of a picture file into a square with round corners. Empty: it cannot be read. Any
/// thread.
[[nodiscard]] QImage coverPicture(const std::vector<std::uint8_t>& bytes, int pixels);

} // namespace zelvo::ui
