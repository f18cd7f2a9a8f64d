// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"
#include "ui/controls/FuncButton.h"
#include "ui/controls/HighlightButton.h"
#include "ui/controls/Services.h"
#include "ui/controls/TabStackView.h"
#include "ui/menus/ActionSearch.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>
#include <vector>

namespace zelvo::ui {

/// The catalogue for performing: a row of tabs, and the six buttons of the open tab.
///
/// If the window is wide enough, the row shows all tabs. Otherwise it has two pages with an arrow
/// between them:
///
///     page one   OT1 OT2 OT3 FLY IN1 …  >
///     page two   <  TXT ROT CAM FX1 …
///
/// At first IN1 is open, or page one is shown with OT1 lit above the buttons of FLY.
class ActionsMenu final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString tabTitles READ tabTitles CONSTANT)
    Q_PROPERTY(zelvo::ui::TabStackView* stackView READ stackObject CONSTANT)
    Q_PROPERTY(
        QList<zelvo::ui::FuncButton*> actionsStackView READ actionObjects NOTIFY actionsChanged)
    Q_PROPERTY(zelvo::ui::MyButton* speedButton READ speedObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MyButton* searchButton READ searchObject CONSTANT)
    Q_PROPERTY(zelvo::ui::ActionSearch* search READ searchModel CONSTANT)

public:
    /// Called when a button is pressed while no run records it; may be empty.
    std::function<void()> pressedIdly;

    explicit ActionsMenu(const Services& given, QObject* parent = nullptr);
    ~ActionsMenu() override;
    ActionsMenu(const ActionsMenu&) = delete;
    ActionsMenu& operator=(const ActionsMenu&) = delete;

    using TabButton = std::unique_ptr<MySegmentedStackButton>;
    TabButton arrowLeft;
    TabButton arrowRight;
    MyButton speedButton;
    MyButton searchButton;
    TabStackView stackView;
    ActionSearch search;

    /// Called with whether the strip of speed and nodes should be shown; may be empty.
    std::function<void(bool)> speedClosure;

    /// When the view appears: chooses the kind of row, opens its first tab, updates the speed
    /// button.
    Q_INVOKABLE void viewWillAppear();
    /// The width of the view, or of a row with all tabs, has changed: switches the kind of row if
    /// needed and keeps the open tab.
    Q_INVOKABLE void setWidths(qreal available, qreal fullRow);

    /// Presses a button of the open tab by key. As with a finger, a pressed button is not pressed
    /// again. Does nothing if there is no such button.
    Q_INVOKABLE void pressButton(int index);
    Q_INVOKABLE void releaseButton(int index);
    /// Opens the tab of a hit of the search and presses the button there, until it is released. Does
    /// nothing if there is no such hit.
    Q_INVOKABLE void pressHit(int row);
    Q_INVOKABLE void releaseHit();
    /// Releases all pressed buttons, whoever holds them.
    void releaseButtons();
    /// Opens the next tab, on the other page if needed; the first follows the last.
    Q_INVOKABLE void nextTab();
    Q_INVOKABLE void previousTab();

    void buttonStack1();
    void buttonStack2();
    void updateSpeedButton();
    /// Shows an empty row; no tab belongs to it.
    void showFX4();

    /// The button of a catalogue tab, by the tab's field.
    [[nodiscard]] MySegmentedStackButton& tabButton(std::string_view field) const;
    /// The titles of all tabs, for measuring their width.
    [[nodiscard]] QString tabTitles() const;

    [[nodiscard]] const std::vector<std::unique_ptr<FuncButton>>& actionButtons() const {
        return actionsStackView;
    }

    [[nodiscard]] TabStackView* stackObject() { return &stackView; }

    [[nodiscard]] MyButton* speedObject() { return &speedButton; }

    [[nodiscard]] MyButton* searchObject() { return &searchButton; }

    [[nodiscard]] ActionSearch* searchModel() { return &search; }

    [[nodiscard]] QList<FuncButton*> actionObjects() const;

Q_SIGNALS:
    void actionsChanged();

private:
    enum class RowKind { full, pages };

    [[nodiscard]] TabButton makeTabButton(const catalogue::Tab& tab);
    [[nodiscard]] TabButton makeArrow(const QString& image, void (ActionsMenu::*page)());
    [[nodiscard]] std::unique_ptr<FuncButton>
    makeActionButton(const catalogue::Tab& tab, const catalogue::Button& button, int place);
    [[nodiscard]] QList<MyButton*> tabsOfPage(int number) const;
    [[nodiscard]] QList<MyButton*> pageOf(const MyButton& tab) const;
    [[nodiscard]] QList<MyButton*> tabsInOrder() const;
    [[nodiscard]] const MySegmentedStackButton* litTab() const;
    /// Shows the tab's buttons. If they are shown already, they stay, so that held ones remain
    /// held.
    void show(const catalogue::Tab& tab);
    void setActionButtons(std::vector<std::unique_ptr<FuncButton>> buttons);
    void showFullRow();
    void showPage(const QList<MyButton*>& page);
    void step(qsizetype by);
    /// Lights the tab, on the other page if needed, and shows its buttons.
    void open(MyButton& tab);
    void speedButtonClicked();

    Services services;
    std::vector<TabButton> tabButtons; ///< as catalogue::tabs()
    std::vector<std::unique_ptr<FuncButton>> actionsStackView;
    const catalogue::Tab* shown = nullptr;
    int pressedHit = -1; ///< place of the button in its tab; negative: none
    RowKind rowKind = RowKind::full;
    bool isOnShow = false;
};

} // namespace zelvo::ui
