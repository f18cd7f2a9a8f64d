// SPDX-License-Identifier: MIT
#include "ui/menus/SpeedViewController.h"

#include "model/Model.h"
#include "shared/Signal.h"

#include <algorithm>

namespace zelvo::ui {

namespace {

constexpr int kNormalTag = 3;

/// By tag, in the order of model::kSpeeds.
constexpr auto kSpeedTitles = std::to_array<const char*>({"---", "--", "-", "O", "+", "++", "+++"});
static_assert(kSpeedTitles.size() == model::kSpeeds.size());

/// The titles of model::kSpeeds, for who translates them.
[[maybe_unused]] constexpr auto kSpokenSpeeds = std::to_array<const char*>({
    QT_TRANSLATE_NOOP("zelvo::ui::SpeedViewController", "Slowest"),
    QT_TRANSLATE_NOOP("zelvo::ui::SpeedViewController", "Slower"),
    QT_TRANSLATE_NOOP("zelvo::ui::SpeedViewController", "Slow"),
    QT_TRANSLATE_NOOP("zelvo::ui::SpeedViewController", "Normal"),
    QT_TRANSLATE_NOOP("zelvo::ui::SpeedViewController", "Fast"),
    QT_TRANSLATE_NOOP("zelvo::ui::SpeedViewController", "Faster"),
    QT_TRANSLATE_NOOP("zelvo::ui::SpeedViewController", "Fastest"),
});

} // namespace

SpeedViewController::SpeedViewController(const Services& given, QObject* parent)
    : QObject(parent)
    , txt1Btn({.title = "TX1", .name = tr("First text")}, [this] { nodeAction(0); })
    , txt2Btn({.title = "TX2", .name = tr("Second text")}, [this] { nodeAction(1); })
    , imgBtn({.title = "IMG", .name = tr("Image")}, [this] { nodeAction(2); })
    , medBtn({.title = "OBJ", .name = tr("Object")}, [this] { nodeAction(3); })
    , speedStackView(
          {.buttonEdgeInsets = {4, 0, 4, 0},
           .spacing = 3,
           .distribution = TabStackView::Distribution::fillEqually})
    , services(given) {
    for (MyButton* const button : nodeButtons()) {
        button->selectedColor = kAccentColor;
        button->unselectedColor = kClearButtonColor;
    }
    for (int tag = 0; tag < static_cast<int>(kSpeedTitles.size()); ++tag) {
        const auto index = static_cast<std::size_t>(tag);
        const QString spoken = tr(model::kSpeeds[index].title.data());
        auto button = std::make_unique<HighlightButton>(
            ButtonFace{
                .title = QString::fromUtf8(kSpeedTitles[index]),
                .name = tr("Speed: %1").arg(spoken)},
            [this, tag] { speedAction(tag); });
        button->unselectedColor = kClearButtonColor;
        speedStackView.addArrangedSubview(*button);
        speedButtons.push_back(std::move(button));
    }
    speedButtons[kNormalTag]->didTouch();
    viewWillAppear();
}

void SpeedViewController::viewWillAppear() {
    const auto& affected = services.model.affectedNodes();
    const auto nodes = services.model.nodes().content();
    const auto buttons = nodeButtons();
    for (std::size_t tag = 0; tag < nodes.size(); ++tag)
        buttons[tag]->setMySelected(std::ranges::find(affected, nodes[tag]) != affected.end());
}

void SpeedViewController::setHidden(bool isGone) {
    if (hidden == isGone)
        return;
    hidden = isGone;
    if (!hidden)
        viewWillAppear();
    Q_EMIT changed();
}

QList<MyButton*> SpeedViewController::nodeObjects() {
    const auto buttons = nodeButtons();
    return {buttons.begin(), buttons.end()};
}

void SpeedViewController::nodeAction(int tag) {
    const auto buttons = nodeButtons();
    MyButton& pressed = *buttons.at(static_cast<std::size_t>(tag));
    pressed.setMySelected(!pressed.isMySelected());
    if (std::ranges::none_of(buttons, &MyButton::isMySelected)) {
        for (MyButton* const button : buttons)
            button->setMySelected(true);
    }
    const auto nodes = services.model.nodes().content();
    std::vector<node::NodePtr> chosen;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (buttons[i]->isMySelected())
            chosen.push_back(nodes[i]);
    }
    services.model.setAffectedNodes(std::move(chosen));
}

void SpeedViewController::speedAction(int tag) {
    const bool isKnown = tag >= 0 && static_cast<std::size_t>(tag) < model::kSpeeds.size();
    const model::SpeedRow& row =
        model::kSpeeds[static_cast<std::size_t>(isKnown ? tag : kNormalTag)];
    services.model.animationRatio = row.ratio;
    signals().messageSignal.fire(tr("Speed: %1").arg(tr(row.title.data())).toStdString());
}

} // namespace zelvo::ui
