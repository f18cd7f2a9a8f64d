// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/FontPictures.h"
#include "ui/controls/MyButton.h"

#include <QList>
#include <QObject>
#include <QSizeF>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>
#include <optional>
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

    /// Does what a tap on the entry does.
    virtual void choose(int index) { select(index, Motion::animated); }

    /// Arrow keys, Home and End choose the neighbour, the first and the last entry. False: another
    /// key.
    Q_INVOKABLE bool pressKey(int key);

    /// -1: none.
    [[nodiscard]] int currentIndex() const { return currentIndex_; }

    [[nodiscard]] bool isAnimated() const { return motion_ == Motion::animated; }

Q_SIGNALS:
    void selected();

protected:
    /// The index stays.
    void setLength(int length) { count = length; }

private:
    int count;
    int currentIndex_ = -1;
    Motion motion_ = Motion::atOnce;
};

/// A button with a small picture before its title.
class StripButton final : public zelvo::ui::MyLabelButton {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QUrl thumbnail MEMBER thumbnail CONSTANT)
    Q_PROPERTY(QSizeF thumbnailSize MEMBER thumbnailSize CONSTANT)
    Q_PROPERTY(zelvo::ui::FontFile fontFile MEMBER fontFile CONSTANT)

public:
    using MyLabelButton::MyLabelButton;

    QUrl thumbnail;       ///< of a file; empty: there is none, or it is missing
    QSizeF thumbnailSize; ///< device-independent pixels; empty: there is none
    FontFile fontFile;    ///< the font of the title; without a path: the font of the interface
};

/// Makes the list type known to QML's tools.
struct StripButtonList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::StripButton*>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::StripButton*)
};

/// An entry of a ButtonStrip.
struct StripEntry {
    QString title;
    QString image{}; ///< name of an icon, where there is no thumbnail; empty: none
    QUrl thumbnail{};
    QSizeF thumbnailSize{};
    FontFile font{};
};

/// A strip with a button for each entry. A press selects the button and reports its index.
class ButtonStrip : public zelvo::ui::Strip {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QList<zelvo::ui::StripButton*> buttons READ buttonObjects NOTIFY entriesChanged)
    Q_PROPERTY(zelvo::ui::StripButton* firstButton READ firstButton CONSTANT)

public:
    /// A button ahead of the entries, which is none of them.
    struct First {
        ButtonFace face;
        QSizeF size;
        std::function<void()> action;
    };

    ButtonStrip(
        const QList<StripEntry>& entries,
        std::function<void(std::size_t)> chosenFunc,
        std::optional<First> first = {},
        QObject* parent = nullptr);

    void select(int index, Motion motion) override;
    void choose(int index) override;
    /// Selects the button ahead of the entries, and none of them.
    void selectFirst(Motion motion);

    [[nodiscard]] const std::vector<std::unique_ptr<StripButton>>& buttons() const { return row; }

    [[nodiscard]] QList<StripButton*> buttonObjects() const;

    /// Null if there is none.
    [[nodiscard]] StripButton* firstButton() const { return ahead.get(); }

Q_SIGNALS:
    void entriesChanged();

protected:
    /// Selects none of them.
    void setEntries(const QList<StripEntry>& entries);

private:
    [[nodiscard]] std::vector<std::unique_ptr<StripButton>>
    buttonsFor(const QList<StripEntry>& entries);

    std::function<void(std::size_t)> chosen;
    std::unique_ptr<StripButton> ahead;
    std::vector<std::unique_ptr<StripButton>> row;
};

} // namespace zelvo::ui
