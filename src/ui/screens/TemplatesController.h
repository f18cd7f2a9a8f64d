// SPDX-License-Identifier: MIT
#pragma once

#include "ui/screens/TemplateRows.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <filesystem>
#include <functional>

namespace zelvo::ui {

/// The screen of a new movie: the user chooses an empty stage or a template.
class TemplatesController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::TemplateRows* rows READ rows CONSTANT)
    Q_PROPERTY(QString failure READ failure NOTIFY failureChanged)

public:
    /// Called once, with the performance to begin with; an empty path: with an empty stage.
    using Chosen = std::function<void(const std::filesystem::path& performance)>;

    explicit TemplatesController(Chosen call);

    [[nodiscard]] TemplateRows* rows() { return &rows_; }

    /// That the file of the last chosen template is missing; otherwise empty.
    [[nodiscard]] QString failure() const { return failure_; }

    Q_INVOKABLE void choose(int row);
    Q_INVOKABLE void dismissViewController();

Q_SIGNALS:
    void failureChanged();
    void dismissed();

private:
    Chosen chosen;
    TemplateRows rows_;
    QString failure_;
};

} // namespace zelvo::ui
