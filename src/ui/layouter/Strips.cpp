// SPDX-License-Identifier: MIT
#include "ui/layouter/Strips.h"

#include <algorithm>
#include <utility>

namespace zelvo::ui {

namespace {

constexpr qreal kHeight = 36;

std::unique_ptr<StripButton>
makeButton(ButtonFace face, const QSizeF& size, std::function<void()> action) {
    auto button = std::make_unique<StripButton>(std::move(face), std::move(action));
    button->size = size;
    button->selectedColor = kAccentColor;
    button->unselectedColor = kButtonColor;
    return button;
}

} // namespace

Strip::Strip(int length, QObject* parent)
    : QObject(parent)
    , count(length) {}

void Strip::select(int index, Motion motion) {
    currentIndex_ = index >= 0 && index < count ? index : -1;
    motion_ = motion;
    Q_EMIT selected();
}

bool Strip::pressKey(int key) {
    const int last = count - 1;
    int wanted = 0;
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        wanted = std::max(currentIndex_ - 1, 0);
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        wanted = std::min(currentIndex_ + 1, last);
        break;
    case Qt::Key_Home:
        wanted = 0;
        break;
    case Qt::Key_End:
        wanted = last;
        break;
    default:
        return false;
    }
    if (wanted != currentIndex_)
        choose(wanted);
    return true;
}

ButtonStrip::ButtonStrip(
    const QList<StripEntry>& entries,
    std::function<void(std::size_t)> chosenFunc,
    std::optional<First> first,
    QObject* parent)
    : Strip(static_cast<int>(entries.size()), parent)
    , chosen(std::move(chosenFunc))
    , row(buttonsFor(entries)) {
    if (first)
        ahead = makeButton(first->face, first->size, std::move(first->action));
}

std::vector<std::unique_ptr<StripButton>>
ButtonStrip::buttonsFor(const QList<StripEntry>& entries) {
    std::vector<std::unique_ptr<StripButton>> made;
    for (const StripEntry& entry : entries) {
        const auto place = static_cast<int>(made.size());
        auto button =
            makeButton({.image = entry.image, .title = entry.title}, {0, kHeight}, [this, place] {
                choose(place);
            });
        button->thumbnail = entry.thumbnail;
        button->thumbnailSize = entry.thumbnailSize;
        button->fontFile = entry.font;
        made.push_back(std::move(button));
    }
    return made;
}

void ButtonStrip::setEntries(const QList<StripEntry>& entries) {
    auto former = std::exchange(row, buttonsFor(entries));
    setLength(static_cast<int>(row.size()));
    select(-1, Motion::atOnce);
    Q_EMIT entriesChanged();
    for (auto& button : former) // one of them may be calling
        button.release()->deleteLater();
}

void ButtonStrip::select(int index, Motion motion) {
    if (ahead)
        ahead->setMySelected(false);
    for (std::size_t place = 0; place < row.size(); ++place)
        row[place]->setMySelected(static_cast<int>(place) == index);
    Strip::select(index, motion);
}

void ButtonStrip::choose(int index) {
    select(index, Motion::animated);
    chosen(static_cast<std::size_t>(index));
}

void ButtonStrip::selectFirst(Motion motion) {
    for (const auto& button : row)
        button->setMySelected(false);
    if (ahead)
        ahead->setMySelected(true);
    Strip::select(-1, motion);
}

QList<StripButton*> ButtonStrip::buttonObjects() const {
    QList<StripButton*> objects;
    for (const auto& button : row)
        objects.append(button.get());
    return objects;
}

} // namespace zelvo::ui
