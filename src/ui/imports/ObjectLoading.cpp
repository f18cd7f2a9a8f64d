// SPDX-License-Identifier: MIT
#include "ui/imports/ObjectLoading.h"

#include "ui/controls/Alerts.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace zelvo::ui {

ObjectLoading::ObjectLoading(const Services& given)
    : services(given)
    , loader(services.runLoop) {}

void ObjectLoading::load(const std::filesystem::path& file) {
    name = QString::fromStdString(file.filename().string());
    progress = {};
    waiting = nullptr;
    loader.load(
        file,
        {.isAdvanced =
             [this](const scene::LoadProgress& told) {
                 progress = told;
                 Q_EMIT changed();
             },
         .isDone = [this](const scene::ObjectLoader::Loaded& loaded) { finish(loaded); }});
    isShown_ = false;
    patience = services.runLoop.scheduleOnce(kPatience, [this] {
        isShown_ = true;
        Q_EMIT changed();
    });
    Q_EMIT changed();
}

void ObjectLoading::giveUp() {
    loader.giveUp();
    patience.invalidate();
    Q_EMIT changed();
}

void ObjectLoading::setHeld(bool isOn) {
    isHeld = isOn;
    if (isHeld || !waiting)
        return;
    if (const auto node = std::exchange(waiting, nullptr); didLoad)
        didLoad(node);
}

QString ObjectLoading::word() const {
    return progress.step == scene::LoadStep::reading ? tr("Loading %1…").arg(name)
                                                     : tr("Loading the pictures of %1…").arg(name);
}

void ObjectLoading::finish(const scene::ObjectLoader::Loaded& loaded) {
    patience.invalidate();
    Q_EMIT changed();
    if (!loaded) {
        services.alerts.showAlert(
            tr("The object cannot be opened.").toStdString(), loaded.error().message);
        return;
    }
    waiting = *loaded;
    setHeld(isHeld);
    tellMissing(**loaded);
}

void ObjectLoading::tellMissing(const scene::SCNReferenceNode& node) const {
    constexpr std::size_t kShown = 6;
    const auto& warnings = node.warnings();
    if (warnings.empty())
        return;
    QStringList lines;
    for (std::size_t i = 0; i < std::min(warnings.size(), kShown); ++i)
        lines.append(QString::fromStdString(warnings[i]));
    if (warnings.size() > kShown)
        lines.append(QStringLiteral("…"));
    services.alerts.showAlert(
        tr("%1 is not complete.").arg(name).toStdString(), lines.join('\n').toStdString());
}

} // namespace zelvo::ui
