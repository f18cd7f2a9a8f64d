// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariant>

#include <array>

namespace zelvo::ui {

/// Whether the user wants an interface that does not move, as set for the whole desktop. It asks
/// the desktop portal, and follows its changes; without a portal, motion is wanted. The environment
/// variable ZELVO_REDUCED_MOTION (1 or 0) decides before all.
class DesktopMotion final : public QObject {
    Q_OBJECT

public:
    static constexpr std::size_t kSettingCount = 3; ///< that are known

    /// The answer comes later. `bus` is the session's.
    explicit DesktopMotion(QDBusConnection bus, QObject* parent = nullptr);

    [[nodiscard]] bool isReduced() const { return reduced; }

Q_SIGNALS:
    void changed();

private:
    Q_SLOT void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
    void ask(QDBusConnection& bus);
    void set(const QString& group, const QString& key, const QVariant& value);

    std::array<bool, kSettingCount> wishes{}; ///< of each desktop's setting: no motion
    bool reduced = false;
};

} // namespace zelvo::ui
