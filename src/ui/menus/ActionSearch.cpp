// SPDX-License-Identifier: MIT
#include "ui/menus/ActionSearch.h"

#include "platform/foundation/Check.h"
#include "ui/controls/GroupColors.h"
#include "ui/menus/LoopFormat.h"

#include <QColor>

#include <algorithm>

namespace zelvo::ui {

namespace {

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Without case and accents.
QString folded(const QString& text) {
    QString plain;
    for (const QChar character : text.normalized(QString::NormalizationForm_KD)) {
        if (!character.isMark())
            plain += character;
    }
    return plain.toCaseFolded();
}

bool hasAll(const QString& words, const QStringList& wanted) {
    return std::ranges::all_of(wanted, [&](const QString& word) { return words.contains(word); });
}

/// How well a name fits a text: the lower, the better.
enum class Fit { begins, wordBegins, contains };

Fit fitOf(const QString& words, const QString& text) {
    if (words.startsWith(text))
        return Fit::begins;
    return words.contains(' ' + text) ? Fit::wordBegins : Fit::contains;
}

std::vector<ActionSearch::Entry> allButtons() {
    std::vector<ActionSearch::Entry> entries;
    for (const catalogue::Tab& tab : catalogue::tabs()) {
        int place = 0;
        for (const catalogue::Button& button : tab.buttons()) {
            const QString name = toQString(button.title);
            const QStringList words{name, toQString(button.face.label), toQString(tab.shortTitle)};
            entries.push_back({&tab, place++, name, folded(words.join(' ')), button.isHold()});
        }
    }
    return entries;
}

} // namespace

ActionSearch::ActionSearch(QObject* parent)
    : QAbstractListModel(parent)
    , entries(allButtons()) {
    setText({});
}

void ActionSearch::open() {
    if (isOpen_)
        return;
    setText({});
    isOpen_ = true;
    Q_EMIT isOpenChanged();
}

void ActionSearch::close() {
    if (!isOpen_)
        return;
    isOpen_ = false;
    Q_EMIT isOpenChanged();
}

void ActionSearch::setText(const QString& text) {
    const QString wanted = folded(text.simplified());
    const QStringList words = wanted.split(' ', Qt::SkipEmptyParts);
    beginResetModel();
    text_ = text;
    hits.clear();
    for (const Entry& entry : entries) {
        if (hasAll(entry.words, words))
            hits.push_back(&entry);
    }
    std::ranges::stable_sort(
        hits, {}, [&](const Entry* entry) { return fitOf(entry->words, wanted); });
    endResetModel();
    Q_EMIT textChanged();
}

const ActionSearch::Entry& ActionSearch::hit(int row) const {
    CHECK(row >= 0 && row < count(), "the search has no row {}", row);
    return *hits[static_cast<std::size_t>(row)];
}

int ActionSearch::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant ActionSearch::data(const QModelIndex& index, int role) const {
    const Entry& entry = hit(index.row());
    switch (role) {
    case nameRole:
        return entry.name;
    case tabRole:
        return toQString(entry.tab->shortTitle);
    case loopRole:
        return loopOf(entry.name.toStdString());
    case markColorRole:
        return groupColor(entry.tab->group);
    case keyRole:
        return QString::number(entry.place + 1);
    case isHoldRole:
        return entry.isHold;
    default:
        return {};
    }
}

QHash<int, QByteArray> ActionSearch::roleNames() const {
    return {
        {nameRole, "name"},
        {tabRole, "tab"},
        {loopRole, "loop"},
        {markColorRole, "markColor"},
        {keyRole, "key"},
        {isHoldRole, "isHold"}};
}

} // namespace zelvo::ui
