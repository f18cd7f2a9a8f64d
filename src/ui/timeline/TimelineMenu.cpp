// SPDX-License-Identifier: MIT
#include "ui/timeline/TimelineMenu.h"

#include "ui/timeline/TimelineController.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace zelvo::ui {

TimelineMenu::TimelineMenu(TimelineController& owner)
    : controller(owner) {
    add({.title = tr("Delete"), .key = tr("Del")}, [this] { controller.removePicked(); });
    add({.title = tr("Duplicate")}, [this] { controller.duplicatePicked(); });
    add({.title = tr("Copy"), .key = "Ctrl+C"}, [this] { controller.copyPicked(); });
    add({.title = tr("Paste at the playhead"), .key = "Ctrl+V"}, [this] { controller.paste(); });
    add({.title = tr("Select all"), .key = "Ctrl+A"}, [this] { controller.pickAll(); });
    add({.title = tr("Snap to beats")},
        [this] { controller.music.setSnapping(!controller.music.isSnapping()); });
    for (const model::SpeedRow& row : model::kSpeeds) {
        speeds.push_back(std::make_unique<MyButton>(
            ButtonFace{.title = titleOf(row.ratio)}, [this, ratio = row.ratio] {
                setOpen(false);
                controller.setSpeed(ratio);
            }));
    }
}

QString TimelineMenu::titleOf(model::AnimationRatio speed) {
    // The strip of speeds has these words already.
    return QCoreApplication::translate(
        "zelvo::ui::SpeedViewController", model::speedOf(speed).title.data());
}

void TimelineMenu::add(ButtonFace face, std::function<void()> command) {
    commands.push_back(
        std::make_unique<MyButton>(std::move(face), [this, command = std::move(command)] {
            setOpen(false);
            command();
        }));
}

QList<MyButton*> TimelineMenu::rows() const {
    QList<MyButton*> all;
    for (const auto* const part : {&commands, &speeds}) {
        for (const ButtonPtr& button : *part)
            all.append(button.get());
    }
    return all;
}

void TimelineMenu::open(QPointF place) {
    if (controller.isRunning())
        return;
    place_ = place;
    showState();
    isOpen_ = true;
    Q_EMIT changed();
}

void TimelineMenu::setOpen(bool isOn) {
    if (std::exchange(isOpen_, isOn) != isOn)
        Q_EMIT changed();
}

void TimelineMenu::showState() {
    enum { remove, duplicate, copy, paste, all, snap };

    const auto& picked = controller.picked();
    const bool hasMarks = !controller.marksNow().empty();
    for (const auto row : {remove, duplicate, copy})
        commands[row]->setEnabled(!picked.empty());
    commands[paste]->setEnabled(controller.canPaste());
    commands[all]->setEnabled(hasMarks);
    commands[snap]->setEnabled(controller.music.hasSong());
    commands[snap]->setMySelected(controller.music.isSnapping());
    for (std::size_t i = 0; i < speeds.size(); ++i) {
        const auto has = [&](const TimelineMark& mark) {
            return mark.isPicked && mark.act.speed == model::kSpeeds[i].ratio;
        };
        const auto hasAny = [](const TimelineMark& mark) {
            return mark.isPicked && mark.act.speed.has_value();
        };
        speeds[i]->setMySelected(std::ranges::any_of(controller.marksNow(), has));
        speeds[i]->setEnabled(std::ranges::any_of(controller.marksNow(), hasAny));
    }
}

} // namespace zelvo::ui
