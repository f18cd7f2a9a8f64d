// SPDX-License-Identifier: MIT
#include "ui/audio/AlbumRows.h"

#include "ui/audio/CoverPictures.h"

#include <unordered_map>
#include <utility>

namespace zelvo::ui {

namespace {

/// With more runs of changed rows it is faster to begin anew.
constexpr std::size_t kMaxRuns = 500;

std::unordered_map<std::string, std::size_t> rowsByKey(const music::AlbumList& list) {
    std::unordered_map<std::string, std::size_t> rows;
    for (std::size_t row = 0; row < list.albums.size(); ++row)
        rows[list.albums[row].key] = row;
    return rows;
}

} // namespace

/// Rows that come or go together. `first` counts in the list as it is then, when runs are applied in
/// their order.
struct AlbumRows::Run {
    bool isNew;
    int first;
    int length;
};

AlbumRows::AlbumRows(QObject* parent)
    : QAbstractListModel(parent) {}

/// Both lists are in the same order, so those that are in both are met in the same order, too.
std::vector<AlbumRows::Run>
AlbumRows::runsBetween(const music::AlbumList& before, const music::AlbumList& after) {
    const auto formerRows = rowsByKey(before);
    const auto newRows = rowsByKey(after);
    std::vector<Run> runs;
    int row = 0;
    const auto add = [&runs, &row](bool isNew) {
        if (!runs.empty() && runs.back().isNew == isNew &&
            row == runs.back().first + (isNew ? runs.back().length : 0))
            ++runs.back().length;
        else
            runs.push_back({isNew, row, 1});
        row += isNew ? 1 : 0;
    };
    std::size_t old = 0;
    std::size_t next = 0;
    while (old < before.albums.size() || next < after.albums.size()) {
        if (old < before.albums.size() && !newRows.contains(before.albums[old].key)) {
            add(false);
            ++old;
        } else if (next < after.albums.size() && !formerRows.contains(after.albums[next].key)) {
            add(true);
            ++next;
        } else {
            ++row;
            ++old;
            ++next;
        }
    }
    return runs;
}

void AlbumRows::setList(List given) {
    const auto runs = runsBetween(*list, *given);
    if (runs.size() > kMaxRuns || count == 0) {
        beginResetModel();
        list = std::move(given);
        count = static_cast<int>(list->albums.size());
        return endResetModel();
    }
    list = std::move(given);
    for (const Run& run : runs) {
        const int last = run.first + run.length - 1;
        if (run.isNew) {
            beginInsertRows({}, run.first, last);
            count += run.length;
            endInsertRows();
        } else {
            beginRemoveRows({}, run.first, last);
            count -= run.length;
            endRemoveRows();
        }
    }
    if (count > 0) // titles and sections may differ, too
        Q_EMIT dataChanged(index(0), index(count - 1));
}

int AlbumRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count;
}

QVariant AlbumRows::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= list->albums.size())
        return {};
    const music::MusicAlbum& album = list->albums[row];
    switch (role) {
    case titleRole:
    case Qt::DisplayRole:
        return QString::fromStdString(album.albumTitle);
    case artistRole:
        return QString::fromStdString(album.albumArtist);
    case sectionRole:
        return QString::fromStdString(list->sections[list->sectionOf(row)].title);
    case coverRole:
        return coverOfAlbum(album.key);
    default:
        return {};
    }
}

QHash<int, QByteArray> AlbumRows::roleNames() const {
    return {
        {titleRole, "title"},
        {artistRole, "artist"},
        {sectionRole, "section"},
        {coverRole, "cover"}};
}

} // namespace zelvo::ui
