// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"
#include "ui/controls/FuncButton.h"
#include "ui/controls/HighlightButton.h"
#include "ui/controls/Services.h"
#include "ui/controls/TabStackView.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>
#include <vector>

namespace zelvo::ui {

/// The catalogue as one plays it: a row of tabs and the six buttons of the tab that is open.
///
/// Where the window is wide enough the row holds all tabs; else it has two pages with an
/// arrow between them:
///
///     page one   OT1 OT2 OT3 FLY IN1 IN2 IN3 IN4  >
///     page two   <  TXT ROT CAM FX1 FX2 FX3
///
/// It comes on show with IN1 open, or on page one with OT1 lit over the buttons of FLY.
class ActionsMenu final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString tabTitles READ tabTitles CONSTANT)
    Q_PROPERTY(zelvo::ui::TabStackView* stackView READ stackObject CONSTANT)
    Q_PROPERTY(
        QList<zelvo::ui::FuncButton*> actionsStackView READ actionObjects NOTIFY actionsChanged)
    Q_PROPERTY(zelvo::ui::MyButton* speedButton READ speedObject CONSTANT)

public:
    explicit ActionsMenu(const Services& given, QObject* parent = nullptr);
    ~ActionsMenu() override;
    ActionsMenu(const ActionsMenu&) = delete;
    ActionsMenu& operator=(const ActionsMenu&) = delete;

    using TabButton = std::unique_ptr<MySegmentedStackButton>;
    TabButton arrowLeft;
    TabButton arrowRight;
    MyButton speedButton;
    TabStackView stackView;

    /// Told whether the strip of speed and nodes is to show; may be empty.
    std::function<void(bool)> speedClosure;

    /// Comes on show: chooses the row, opens its first tab, brings the speed button up to date.
    Q_INVOKABLE void viewWillAppear();
    /// The view's width changed, or what all tabs would take up: turns to the other kind
    /// of row where it has to, with the tab that is open kept.
    Q_INVOKABLE void setWidths(qreal available, qreal fullRow);

    /// The button at that place of the open tab, by a key. The same rules as by a finger: what is
    /// pressed already is not pressed again. No button there: nothing happens.
    Q_INVOKABLE void pressButton(int index);
    Q_INVOKABLE void releaseButton(int index);
    /// Opens the neighbour of the lit tab, across pages, around the ends.
    Q_INVOKABLE void nextTab();
    Q_INVOKABLE void previousTab();

    void buttonStack1();
    void buttonStack2();
    void updateSpeedButton();
    /// Has no tab: an empty row.
    void showFX4();

    /// The button of a tab of the catalogue, by the name of its field.
    [[nodiscard]] MySegmentedStackButton& tabButton(std::string_view field) const;
    /// What all tabs show, side by side.
    [[nodiscard]] QString tabTitles() const;

    [[nodiscard]] const std::vector<std::unique_ptr<FuncButton>>& actionButtons() const {
        return actionsStackView;
    }

    [[nodiscard]] TabStackView* stackObject() { return &stackView; }

    [[nodiscard]] MyButton* speedObject() { return &speedButton; }

    [[nodiscard]] QList<FuncButton*> actionObjects() const;

Q_SIGNALS:
    void actionsChanged();

private:
    enum class RowKind { full, pages };

    [[nodiscard]] TabButton makeTabButton(const catalogue::Tab& tab);
    [[nodiscard]] TabButton makeArrow(const QString& image, void (ActionsMenu::*page)());
    [[nodiscard]] std::unique_ptr<FuncButton>
    makeActionButton(const catalogue::Button& button, int place);
    [[nodiscard]] QList<MyButton*> tabsOfPage(int number) const;
    [[nodiscard]] QList<MyButton*> pageOf(const MyButton& tab) const;
    [[nodiscard]] QList<MyButton*> tabsInOrder() const;
    [[nodiscard]] const MySegmentedStackButton* litTab() const;
    /// Its buttons; those on show already stay, with what is held on them.
    void show(const catalogue::Tab& tab);
    void setActionButtons(std::vector<std::unique_ptr<FuncButton>> buttons);
    void showFullRow();
    void showPage(const QList<MyButton*>& page);
    void step(qsizetype by);
    void speedButtonClicked();

    Services services;
    std::vector<TabButton> tabButtons; ///< as catalogue::tabs()
    std::vector<std::unique_ptr<FuncButton>> actionsStackView;
    const catalogue::Tab* shown = nullptr;
    RowKind rowKind = RowKind::full;
    bool isOnShow = false;
};

} // namespace zelvo::ui
