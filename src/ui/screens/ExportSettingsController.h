// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSettings.h"
#include "ui/controls/Services.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace zelvo::ui {

/// The sheet before an export: what kind of movie, how large and how fine, and where it goes. The
/// settings are those of the last export.
class ExportSettingsController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QList<QString> formats READ formats CONSTANT)
    Q_PROPERTY(int format READ format WRITE setFormat NOTIFY changed)
    Q_PROPERTY(QList<QString> sizes READ sizes CONSTANT)
    Q_PROPERTY(int size READ size WRITE setSize NOTIFY changed)
    Q_PROPERTY(bool hasOwnSize READ hasOwnSize NOTIFY changed)
    Q_PROPERTY(QString ownSize READ ownSize WRITE setOwnSize NOTIFY changed)
    Q_PROPERTY(QList<QString> qualities READ qualities CONSTANT)
    Q_PROPERTY(int quality READ quality WRITE setQuality NOTIFY changed)
    Q_PROPERTY(QList<QString> motionBlurs READ motionBlurs CONSTANT)
    Q_PROPERTY(int motionBlur READ motionBlur WRITE setMotionBlur NOTIFY changed)
    Q_PROPERTY(QList<QString> backgrounds READ backgrounds CONSTANT)
    Q_PROPERTY(int background READ background WRITE setBackground NOTIFY changed)
    Q_PROPERTY(bool canHaveAlpha READ canHaveAlpha NOTIFY changed)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY changed)
    Q_PROPERTY(QString folder READ folder NOTIFY changed)
    Q_PROPERTY(QUrl folderUrl READ folderUrl NOTIFY changed)
    Q_PROPERTY(QString remark READ remark NOTIFY changed)
    Q_PROPERTY(bool canStart READ canStart NOTIFY changed)

public:
    explicit ExportSettingsController(const Services& given);

    // Choices are lists of texts; the chosen one is an index.
    [[nodiscard]] static QStringList formats();
    [[nodiscard]] int format() const;
    void setFormat(int index);
    /// The last one stands for a size of one's own.
    [[nodiscard]] static QStringList sizes();
    [[nodiscard]] int size() const;
    void setSize(int index);

    [[nodiscard]] bool hasOwnSize() const { return hasOwnSize_; }

    /// For example "1920x1080"; may be one that cannot be.
    [[nodiscard]] QString ownSize() const { return ownSize_; }

    void setOwnSize(const QString& text);
    [[nodiscard]] static QStringList qualities();
    [[nodiscard]] int quality() const;
    void setQuality(int index);
    [[nodiscard]] static QStringList motionBlurs();
    [[nodiscard]] int motionBlur() const;
    void setMotionBlur(int index);
    /// The stage, or alpha.
    [[nodiscard]] static QStringList backgrounds();

    [[nodiscard]] int background() const { return settings.hasAlpha() ? 1 : 0; }

    void setBackground(int index);
    [[nodiscard]] bool canHaveAlpha() const;
    [[nodiscard]] QString name() const;
    void setName(const QString& text);
    [[nodiscard]] QString folder() const;
    [[nodiscard]] QUrl folderUrl() const;
    Q_INVOKABLE void setFolder(const QUrl& chosen);

    /// The name that the movie will get, or why it cannot be made so.
    [[nodiscard]] QString remark() const;

    [[nodiscard]] bool canStart() const { return fault().isEmpty(); }

    /// Keeps the settings and hands them to the movie writer.
    Q_INVOKABLE void start();
    Q_INVOKABLE void cancel();

Q_SIGNALS:
    void changed();
    void accepted();
    void dismissed();

private:
    [[nodiscard]] movie::LibraryPlace place() const;
    [[nodiscard]] QString fault() const;

    Services services;
    movie::ExportSettings settings;
    bool hasOwnSize_ = false;
    QString ownSize_;
    QString typedName;
};

} // namespace zelvo::ui
