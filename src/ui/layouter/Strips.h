// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/MyButton.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>
#include <vector>

namespace zelvo::ui {

/// A row that scrolls to show the selected entry in the middle.
class Strip : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(int currentIndex READ currentIndex NOTIFY selected)
    Q_PROPERTY(bool isAnimated READ isAnimated NOTIFY selected)

public:
    enum class Motion { atOnce, animated };

    static constexpr int kScrollMilliseconds = 150;

    explicit Strip(int length, QObject* parent = nullptr);

    /// Selects nothing if the index is out of range.
    virtual void select(int index, Motion motion);

    /// -1: none.
    [[nodiscard]] int currentIndex() const { return currentIndex_; }

    [[nodiscard]] bool isAnimated() const { return motion_ == Motion::animated; }

Q_SIGNALS:
    void selected();

private:
    int count;
    int currentIndex_ = -1;
    Motion motion_ = Motion::atOnce;
};

/// A strip with a button for each entry. A press selects the button and reports its index.
class ButtonStrip final : public zelvo::ui::Strip {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QList<zelvo::ui::MyButton*> buttons READ buttonObjects CONSTANT)

public:
    ButtonStrip(
        const QList<QString>& titles,
        std::function<void(std::size_t)> chosenFunc,
        QObject* parent = nullptr);

    void select(int index, Motion motion) override;

    [[nodiscard]] const std::vector<std::unique_ptr<MyButton>>& buttons() const { return row; }

    [[nodiscard]] QList<MyButton*> buttonObjects() const;

private:
    std::function<void(std::size_t)> chosen;
    std::vector<std::unique_ptr<MyButton>> row;
};

} // namespace zelvo::ui
