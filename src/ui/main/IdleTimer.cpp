// SPDX-License-Identifier: MIT
#include "ui/main/IdleTimer.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>

namespace zelvo::ui {

namespace {

/// Without a bus, the library would try to start one, which takes long and leaves a process behind.
bool hasBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

QDBusMessage call(const char* method, const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(
        "org.freedesktop.ScreenSaver",
        "/org/freedesktop/ScreenSaver",
        "org.freedesktop.ScreenSaver",
        method);
    message.setArguments(arguments);
    return message;
}

} // namespace

IdleTimer::IdleTimer() = default;

IdleTimer::~IdleTimer() {
    uninhibit();
}

void IdleTimer::setDisabled(bool isDisabled) {
    wantsDisabled = isDisabled;
    if (isDisabled) {
        inhibit();
    } else {
        uninhibit();
    }
}

void IdleTimer::inhibit() {
    if (cookie || isAsking || !hasBus())
        return;
    isAsking = true;
    const auto pending = QDBusConnection::sessionBus().asyncCall(call(
        "Inhibit",
        {QStringLiteral("Zelvo"),
         QCoreApplication::translate("zelvo::ui::IdleTimer", "A performance is being recorded")}));
    auto* const watcher = new QDBusPendingCallWatcher(pending, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<unsigned> reply = *watcher;
        watcher->deleteLater();
        isAsking = false;
        if (reply.isValid())
            cookie = reply.value();
        if (!wantsDisabled) // it was changed before the answer came
            uninhibit();
    });
}

void IdleTimer::uninhibit() {
    if (!cookie)
        return;
    QDBusConnection::sessionBus().send(call("UnInhibit", {*cookie}));
    cookie.reset();
}

} // namespace zelvo::ui
