// SPDX-License-Identifier: MIT
#include "ui/layouter/FontList.h"

#include <algorithm>
#include <utility>

namespace zelvo::ui {

FontFile fontFileOf(const content::FontEntry& font) {
    return {QString::fromStdString(font.file.string()), font.faceIndex};
}

namespace {

bool hasAll(const std::string& name, const QStringList& words) {
    const QString text = QString::fromStdString(name);
    return std::ranges::all_of(
        words, [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

} // namespace

FontList::FontList(std::vector<content::FontEntry> all, QObject* parent)
    : QAbstractListModel(parent)
    , entries(std::move(all)) {
    setSearch({});
}

void FontList::setFonts(std::vector<content::FontEntry> all) {
    beginResetModel();
    entries = std::move(all);
    rows.clear();
    endResetModel();
    setSearch(search_);
}

const content::FontEntry& FontList::at(int row) const {
    return entries[rows.at(static_cast<std::size_t>(row))];
}

void FontList::setSearch(const QString& text) {
    beginResetModel();
    search_ = text;
    rows.clear();
    const QStringList words = text.split(' ', Qt::SkipEmptyParts);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (hasAll(entries[i].name, words))
            rows.push_back(i);
    }
    endResetModel();
    Q_EMIT searched();
    Q_EMIT currentChanged();
}

int FontList::currentRow() const {
    const auto found =
        std::ranges::find(rows, current_, [this](std::size_t i) { return entries[i].name; });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

void FontList::setCurrent(const std::string& name) {
    if (current_ == name)
        return;
    current_ = name;
    Q_EMIT currentChanged();
}

void FontList::choose(int row) {
    setCurrent(at(row).name);
    if (chosen)
        chosen(current_);
}

void FontList::moveBy(int step) {
    const int wanted = std::clamp(currentRow() + step, 0, count() - 1);
    if (count() > 0 && wanted != currentRow())
        choose(wanted);
}

int FontList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant FontList::data(const QModelIndex& index, int role) const {
    const content::FontEntry& font = at(index.row());
    switch (role) {
    case nameRole:
        return QString::fromStdString(font.name);
    case fontRole:
        return QVariant::fromValue(fontFileOf(font));
    case sectionRole:
        return font.source == content::FontSource::system ? tr("Fonts of the system") : QString();
    case corruptRole:
        return font.isCorrupt;
    default:
        return {};
    }
}

QHash<int, QByteArray> FontList::roleNames() const {
    return {
        {nameRole, "name"},
        {fontRole, "fontFile"},
        {sectionRole, "section"},
        {corruptRole, "isCorrupt"}};
}

} // namespace zelvo::ui
