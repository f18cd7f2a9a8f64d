// SPDX-License-Identifier: MIT
#include "ui/qml/DesktopMotion.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QMap>

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

namespace zelvo::ui {

namespace {

constexpr const char* kVariable = "ZELVO_REDUCED_MOTION";
constexpr const char* kService = "org.freedesktop.portal.Desktop";
constexpr const char* kObject = "/org/freedesktop/portal/desktop";
constexpr const char* kInterface = "org.freedesktop.portal.Settings";

using Groups = QMap<QString, QVariantMap>; ///< the settings of each group

struct Setting {
    const char* group;
    const char* key;
    bool (*wantsNoMotion)(const QVariant& value);
};

// One for each desktop; the first is common to the newer ones.
// clang-format off
constexpr auto kSettings = std::to_array<Setting>({
    {"org.freedesktop.appearance",  "reduced-motion",          [](const QVariant& value) { return value.toUInt() == 1; }},
    {"org.gnome.desktop.interface", "enable-animations",       [](const QVariant& value) { return !value.toBool(); }},
    {"org.kde.kdeglobals.KDE",      "AnimationDurationFactor", [](const QVariant& value) { return value.toDouble() == 0; }},
});

// clang-format on

[[nodiscard]] const Setting* settingOf(const QString& group, const QString& key) {
    const auto* const found = std::ranges::find_if(
        kSettings, [&](const Setting& one) { return group == one.group && key == one.key; });
    return found == kSettings.end() ? nullptr : found;
}

} // namespace

static_assert(std::tuple_size_v<decltype(kSettings)> == DesktopMotion::kSettingCount);

DesktopMotion::DesktopMotion(QDBusConnection bus, QObject* parent)
    : QObject(parent) {
    if (qEnvironmentVariableIsSet(kVariable))
        reduced = qEnvironmentVariableIntValue(kVariable) != 0;
    else if (bus.isConnected())
        ask(bus);
}

void DesktopMotion::ask(QDBusConnection& bus) {
    qDBusRegisterMetaType<Groups>();
    qRegisterMetaType<QDBusVariant>(); // the slot would not be called before a setting was read
    bus.connect(
        kService,
        kObject,
        kInterface,
        "SettingChanged",
        this,
        SLOT(settingChanged(QString, QString, QDBusVariant)));
    QStringList groups;
    for (const Setting& one : kSettings)
        groups.append(one.group);
    QDBusMessage message = QDBusMessage::createMethodCall(kService, kObject, kInterface, "ReadAll");
    message.setArguments({groups});
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<Groups> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError()) // there is no portal
            return;
        const Groups all = reply.value();
        for (auto group = all.begin(); group != all.end(); ++group) {
            for (auto one = group->begin(); one != group->end(); ++one)
                set(group.key(), one.key(), one.value());
        }
    });
}

void DesktopMotion::settingChanged(
    const QString& group, const QString& key, const QDBusVariant& value) {
    set(group, key, value.variant());
}

void DesktopMotion::set(const QString& group, const QString& key, const QVariant& value) {
    const Setting* const setting = settingOf(group, key);
    if (setting == nullptr)
        return;
    wishes.at(static_cast<std::size_t>(setting - kSettings.data())) = setting->wantsNoMotion(value);
    const bool isReducedNow = std::ranges::any_of(wishes, std::identity{});
    if (std::exchange(reduced, isReducedNow) != isReducedNow)
        Q_EMIT changed();
}

} // namespace zelvo::ui
