// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/RunLoop.h"
#include "platform/scene/ObjectLoader.h"
#include "ui/controls/Services.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <filesystem>
#include <functional>

namespace zelvo::ui {

/// Loads 3D files for the stage, which stays live meanwhile and as it is. A notice says how far it
/// is, and the user can give up. If several files are asked for, the last one counts. A file that
/// cannot be read changes nothing, and an alert says why; another one names what is missing.
class ObjectLoading final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY changed)
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed)
    Q_PROPERTY(QString word READ word NOTIFY changed)
    Q_PROPERTY(double share READ share NOTIFY changed)

public:
    static constexpr double kPatience = 0.3; ///< seconds until the notice comes

    explicit ObjectLoading(const Services& given);

    /// Called with what was loaded; set by the owner.
    std::function<void(const scene::SCNNodePtr& node)> didLoad;

    void load(const std::filesystem::path& file);
    Q_INVOKABLE void giveUp();

    /// While it is held, objects wait: a movie that is being made must not change.
    void setHeld(bool isOn);

    [[nodiscard]] bool isLoading() const { return loader.isLoading(); }

    /// Whether the notice is to be seen: a file that comes at once needs none.
    [[nodiscard]] bool isShown() const { return isShown_ && isLoading(); }

    [[nodiscard]] QString word() const;

    /// 0 to 1.
    [[nodiscard]] double share() const { return progress.share; }

Q_SIGNALS:
    void changed();

private:
    void finish(const scene::ObjectLoader::Loaded& loaded);
    void tellMissing(const scene::SCNReferenceNode& node) const;

    Services services;
    QString name;
    scene::LoadProgress progress;
    bool isShown_ = false;
    bool isHeld = false;
    scene::SCNNodePtr waiting; ///< came while held
    foundation::Timer patience;
    scene::ObjectLoader loader;
};

} // namespace zelvo::ui
