// SPDX-License-Identifier: MIT
#include "platform/music/AlbumList.h"

#include <QCollator>
#include <QLocale>
#include <QString>

#include <algorithm>
#include <numeric>
#include <utility>

namespace zelvo::music {

namespace {

constexpr const char* kOthers = "#";

/// Without accents, in small letters.
QString folded(const QString& text) {
    QString plain;
    for (const QChar character : text.normalized(QString::NormalizationForm_KD)) {
        if (!character.isMark())
            plain.append(character);
    }
    return plain.toCaseFolded();
}

QString textOf(const std::string& text) {
    return QString::fromStdString(text);
}

/// Scripts without capitals would make hundreds of sections.
QString letterOf(const QString& title) {
    const QString first = folded(title.left(2)).left(1).toUpper().left(1);
    const bool isLetter =
        !first.isEmpty() && first.front().isLetter() && first.front().toLower() != first.front();
    return isLetter ? first : QString::fromLatin1(kOthers);
}

/// What an album is sorted by.
struct Place {
    QString letter;
    QCollatorSortKey letterKey;
    QCollatorSortKey titleKey;
    QCollatorSortKey artistKey;
    std::size_t album;

    /// Sections first, so that each of them is in one piece.
    [[nodiscard]] int compare(const Place& other) const {
        const bool isOther = letter == QLatin1String(kOthers);
        if (isOther != (other.letter == QLatin1String(kOthers)))
            return isOther ? 1 : -1;
        if (const int order = letterKey.compare(other.letterKey); order != 0)
            return order;
        if (const int order = titleKey.compare(other.titleKey); order != 0)
            return order;
        return artistKey.compare(other.artistKey);
    }
};

/// The locale "C" has no order of letters, and none of numbers.
QLocale sortingLocale() {
    return QLocale().language() == QLocale::C ? QLocale(QLocale::English) : QLocale();
}

} // namespace

AlbumList AlbumList::arrange(std::vector<MusicAlbum> albums) {
    QCollator collator(sortingLocale());
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    std::vector<Place> places;
    places.reserve(albums.size());
    for (std::size_t i = 0; i < albums.size(); ++i) {
        const QString title = textOf(albums[i].albumTitle);
        const QString letter = letterOf(title);
        places.push_back(
            {letter,
             collator.sortKey(letter),
             collator.sortKey(title),
             collator.sortKey(textOf(albums[i].albumArtist)),
             i});
    }
    std::ranges::sort(places, [&albums](const Place& one, const Place& other) {
        const int order = one.compare(other);
        return order != 0 ? order < 0 : albums[one.album].key < albums[other.album].key;
    });
    AlbumList list;
    list.albums.reserve(albums.size());
    for (const Place& place : places) {
        std::string title = place.letter.toStdString();
        if (list.sections.empty() || list.sections.back().title != title)
            list.sections.push_back({std::move(title), list.albums.size(), 0});
        ++list.sections.back().length;
        list.albums.push_back(std::move(albums[place.album]));
    }
    return list;
}

std::optional<std::size_t> AlbumList::find(std::string_view start) const {
    const QString wanted =
        folded(QString::fromUtf8(start.data(), static_cast<qsizetype>(start.size())));
    const auto found = std::ranges::find_if(albums, [&wanted](const MusicAlbum& album) {
        return folded(textOf(album.albumTitle).left(2 * wanted.size())).startsWith(wanted);
    });
    if (found == albums.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - albums.begin());
}

std::size_t AlbumList::sectionOf(std::size_t row) const {
    const auto after = std::ranges::upper_bound(sections, row, {}, &AlbumSection::location);
    return static_cast<std::size_t>(after - sections.begin()) - 1;
}

} // namespace zelvo::music
