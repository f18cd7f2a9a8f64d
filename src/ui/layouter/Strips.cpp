// SPDX-License-Identifier: MIT
#include "ui/layouter/Strips.h"

#include <utility>

namespace zelvo::ui {

Strip::Strip(int length, QObject* parent)
    : QObject(parent)
    , count(length) {}

void Strip::select(int index, Motion motion) {
    currentIndex_ = index >= 0 && index < count ? index : -1;
    motion_ = motion;
    Q_EMIT selected();
}

ButtonStrip::ButtonStrip(
    const QList<QString>& titles, std::function<void(std::size_t)> chosenFunc, QObject* parent)
    : Strip(static_cast<int>(titles.size()), parent)
    , chosen(std::move(chosenFunc)) {
    for (const QString& title : titles) {
        const auto place = static_cast<int>(row.size());
        auto button = std::make_unique<MyButton>(ButtonFace{.title = title}, [this, place] {
            select(place, Motion::animated);
            chosen(static_cast<std::size_t>(place));
        });
        button->size = {0, 36};
        button->selectedColor = kAccentColor;
        button->unselectedColor = kButtonColor;
        row.push_back(std::move(button));
    }
}

void ButtonStrip::select(int index, Motion motion) {
    for (std::size_t place = 0; place < row.size(); ++place)
        row[place]->setMySelected(static_cast<int>(place) == index);
    Strip::select(index, motion);
}

QList<MyButton*> ButtonStrip::buttonObjects() const {
    QList<MyButton*> objects;
    for (const auto& button : row)
        objects.append(button.get());
    return objects;
}

} // namespace zelvo::ui
