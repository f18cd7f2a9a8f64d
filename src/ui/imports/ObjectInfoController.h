// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/foundation/RunLoop.h"
#include "platform/scene/ObjectLoader.h"
#include "ui/controls/Services.h"
#include "ui/imports/SceneView.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqml.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <stop_token>

namespace zelvo::ui {

/// A line of the report about an object.
struct ReportLine {
    Q_GADGET
    QML_VALUE_TYPE(reportLine)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString icon MEMBER icon)

public:
    QString text;
    QString icon; ///< name of the icon in front of it; empty: none

    friend bool operator==(const ReportLine&, const ReportLine&) = default;
};

/// Makes the list type known to QML's tools.
struct ReportLineList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::ReportLine>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::ReportLine)
};

/// The screen about one imported object: it turns, a tap on a part lights its material up in red,
/// and a report tells whether the files that it needs are there.
class ObjectInfoController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(zelvo::ui::SceneView* sceneView READ sceneViewObject CONSTANT)
    Q_PROPERTY(QList<zelvo::ui::ReportLine> report READ report NOTIFY changed)
    Q_PROPERTY(QString word READ word NOTIFY changed)

public:
    ObjectInfoController(const Services& given, std::filesystem::path file);
    ~ObjectInfoController() override;
    ObjectInfoController(const ObjectInfoController&) = delete;
    ObjectInfoController& operator=(const ObjectInfoController&) = delete;

    const std::filesystem::path url;
    SceneView sceneView;
    QString textView; ///< the whole report; empty until it is there

    [[nodiscard]] QString title() const;

    [[nodiscard]] SceneView* sceneViewObject() { return &sceneView; }

    /// The report in lines, with icons for its marks, because few fonts have these.
    [[nodiscard]] QList<ReportLine> report() const;

    /// Stands where the object will be, or why there is none; empty: there is one.
    [[nodiscard]] QString word() const { return word_; }

    /// Lights up what the ray meets.
    void handleTap(const geometry::Ray& ray);

Q_SIGNALS:
    void changed();

private:
    struct Flash {
        scene::SCNMaterialPtr material;
        double begun;
    };

    void setUpLights();
    void startReport(const Services& services);
    void show(const scene::ObjectLoader::Loaded& loaded);
    void animate(double time);

    scene::SCNNodePtr object; ///< null until it is loaded
    std::optional<Flash> flash;
    double now = 0;
    QString word_;
    std::stop_source stop; ///< of the report
    std::unique_ptr<foundation::SerialQueue> queue;
    scene::ObjectLoader loader;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
