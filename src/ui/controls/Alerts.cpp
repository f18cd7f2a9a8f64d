// SPDX-License-Identifier: MIT
#include "ui/controls/Alerts.h"

#include <algorithm>

namespace zelvo::ui {

void Alerts::show(Alert alert) {
    if (alert.actions.empty())
        alert.actions.push_back({.title = tr("Ok").toStdString(), .role = AlertRole::cancel});
    alerts.push_back(std::move(alert));
    if (alerts.size() == 1)
        Q_EMIT changed();
}

void Alerts::showAlert(const std::string& title, const std::string& message) {
    show({.title = title, .message = message, .actions = {}});
}

QString Alerts::title() const {
    return isShowing() ? QString::fromStdString(alerts.front().title) : QString();
}

QString Alerts::message() const {
    return isShowing() ? QString::fromStdString(alerts.front().message) : QString();
}

QList<AlertChoice> Alerts::actions() const {
    QList<AlertChoice> choices;
    if (!isShowing())
        return choices;
    for (const AlertAction& action : alerts.front().actions) {
        choices.append(
            {.title = QString::fromStdString(action.title),
             .isCancelling = action.role == AlertRole::cancel,
             .isDestructive = action.role == AlertRole::destructive,
             .color = action.titleColor});
    }
    return choices;
}

int Alerts::defaultAction() const {
    if (!isShowing())
        return -1;
    const auto& offered = alerts.front().actions;
    const bool isHarmless = offered.front().role != AlertRole::destructive;
    return isHarmless ? 0 : static_cast<int>(offered.size()) - 1;
}

QObject* Alerts::content() const {
    return isShowing() ? alerts.front().content : nullptr;
}

QString Alerts::contentView() const {
    return isShowing() ? QString::fromStdString(alerts.front().contentView) : QString();
}

void Alerts::choose(int index) {
    if (!isShowing() || index < 0 ||
        static_cast<std::size_t>(index) >= alerts.front().actions.size())
        return;
    const auto handler = std::move(alerts.front().actions[static_cast<std::size_t>(index)].handler);
    alerts.pop_front();
    Q_EMIT changed();
    if (handler)
        handler();
}

void Alerts::escape() {
    if (!isShowing())
        return;
    const auto& offered = alerts.front().actions;
    const auto cancelling = std::ranges::find(offered, AlertRole::cancel, &AlertAction::role);
    if (cancelling != offered.end())
        choose(static_cast<int>(cancelling - offered.begin()));
    else if (offered.size() == 1)
        choose(0);
}

} // namespace zelvo::ui
