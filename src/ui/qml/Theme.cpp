// SPDX-License-Identifier: MIT
#include "ui/qml/Theme.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>

namespace zelvo::ui {

namespace {

constexpr qreal kUsualFontPixels = 12;

} // namespace

Theme::Theme(QObject* parent)
    : QObject(parent)
    , digitsFamily(QFontDatabase::systemFont(QFontDatabase::FixedFont).family())
    , textScale(QFontInfo(QGuiApplication::font()).pixelSize() / kUsualFontPixels)
    , desktopMotion(QDBusConnection::sessionBus()) {
    connect(&desktopMotion, &DesktopMotion::changed, this, &Theme::motionChanged);
}

} // namespace zelvo::ui
