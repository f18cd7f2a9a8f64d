// SPDX-License-Identifier: MIT
// The desktop's wish for an interface that does not move, on a bus of its own with a portal that
// answers as the real one does.

#include "ui/qml/DesktopMotion.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QMap>
#include <QProcess>
#include <QTest>

namespace zelvo::ui {
namespace {

using Groups = QMap<QString, QVariantMap>;

constexpr const char* kGnome = "org.gnome.desktop.interface";
constexpr const char* kKde = "org.kde.kdeglobals.KDE";
constexpr const char* kCommon = "org.freedesktop.appearance";

class Portal final : public QDBusVirtualObject {
public:
    Groups settings;

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        Groups asked;
        for (const QString& group : message.arguments().value(0).toStringList()) {
            if (settings.contains(group))
                asked.insert(group, settings.value(group));
        }
        return bus.send(message.createReply(QVariant::fromValue(asked)));
    }
};

class DesktopMotionTest : public testing::Test {
protected:
    void SetUp() override {
        if (!daemonStarts())
            GTEST_SKIP() << "there is no dbus-daemon";
        qDBusRegisterMetaType<Groups>();
    }

    void TearDown() override {
        QDBusConnection::disconnectFromBus("desktop");
        QDBusConnection::disconnectFromBus("program");
        daemon.kill();
        daemon.waitForFinished();
    }

    [[nodiscard]] bool daemonStarts() {
        daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        if (!daemon.waitForStarted() || !daemon.waitForReadyRead())
            return false;
        const QString address = QString::fromUtf8(daemon.readLine()).trimmed();
        desktop = QDBusConnection::connectToBus(address, "desktop");
        program = QDBusConnection::connectToBus(address, "program");
        return desktop.isConnected() && program.isConnected();
    }

    void openPortal() {
        ASSERT_TRUE(desktop.registerVirtualObject("/org/freedesktop/portal/desktop", &portal));
        ASSERT_TRUE(desktop.registerService("org.freedesktop.portal.Desktop"));
    }

    void change(const QString& group, const QString& key, const QVariant& value) {
        QDBusMessage told = QDBusMessage::createSignal(
            "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged");
        told.setArguments({group, key, QVariant::fromValue(QDBusVariant(value))});
        ASSERT_TRUE(desktop.send(told));
    }

    Portal portal;
    QProcess daemon;
    QDBusConnection desktop{"desktop"};
    QDBusConnection program{"program"};
};

TEST_F(DesktopMotionTest, IsWhatEachDesktopSays) {
    openPortal();

    struct Row {
        Groups settings;
        bool isReduced;
    };

    const Row rows[] = {
        {{}, false},
        {{{kGnome, {{"enable-animations", true}}}}, false},
        {{{kGnome, {{"enable-animations", false}}}}, true},
        {{{kKde, {{"AnimationDurationFactor", "1"}}}}, false},
        {{{kKde, {{"AnimationDurationFactor", "0"}}}}, true},
        {{{kCommon, {{"reduced-motion", 0U}, {"color-scheme", 1U}}}}, false},
        {{{kCommon, {{"reduced-motion", 1U}}}, {kGnome, {{"enable-animations", true}}}}, true},
    };
    for (const Row& row : rows) {
        portal.settings = row.settings;
        const DesktopMotion motion(program);
        const auto place = &row - rows;
        if (row.isReduced)
            EXPECT_TRUE(QTest::qWaitFor([&] { return motion.isReduced(); })) << place;
        else
            QTest::qWait(100);
        EXPECT_EQ(motion.isReduced(), row.isReduced) << place;
    }
}

TEST_F(DesktopMotionTest, FollowsItsChangesAndDoesWithoutAPortal) {
    const DesktopMotion motion(program); // before there is a portal
    int changes = 0;
    QObject::connect(&motion, &DesktopMotion::changed, [&] { ++changes; });
    QTest::qWait(100);
    EXPECT_FALSE(motion.isReduced());
    openPortal();
    change(kGnome, "enable-animations", false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return motion.isReduced(); }));
    change(kGnome, "cursor-size", 24);
    change(kGnome, "enable-animations", true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !motion.isReduced(); }));
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace zelvo::ui
