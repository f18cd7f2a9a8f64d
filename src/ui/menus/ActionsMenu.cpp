// SPDX-License-Identifier: MIT
#include "ui/menus/ActionsMenu.h"

#include "model/Model.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/Random.h"
#include "platform/foundation/UserDefaults.h"
#include "ui/controls/GroupColors.h"
#include "ui/menus/LoopFormat.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace zelvo::ui {

namespace {

constexpr auto kSpeedMenuVisibleKey = "SpeedMenuVisibleKey";
constexpr qsizetype kFirstTabOfFullRow = 1; // IN1

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// What goes in and what goes out have the same pictures in the catalogue. These are for out: the
/// arrow begins in the frame and leaves it.
struct Leaving {
    const char* picture;
    const char* leaving;
};

constexpr auto kLeaving = std::to_array<Leaving>({
    {"PositionLeft", "LeaveLeft"},
    {"PositionRight", "LeaveRight"},
    {"PositionUp", "LeaveUp"},
    {"PositionDown", "LeaveDown"},
    {"PositionBack", "LeaveBack"},
    {"PositionFront", "LeaveFront"},
});

QString pictureOf(const catalogue::Tab& tab, const catalogue::Button& button) {
    const auto* const leaving = std::ranges::find(
        kLeaving, button.face.image, [](const Leaving& row) { return row.picture; });
    return tab.group == catalogue::Group::out && leaving != kLeaving.end()
               ? leaving->leaving
               : toQString(button.face.image);
}

/// A press context with the user's current choices.
catalogue::PressContext contextOf(const model::Model& model) {
    return {model.actionController(), model.affectedNodes(), model.animationFactor()};
}

} // namespace

ActionsMenu::ActionsMenu(const Services& given, QObject* parent)
    : QObject(parent)
    , speedButton(
          {.image = "Controls_off", .name = tr("Speed and objects"), .key = "S"},
          [this] { speedButtonClicked(); })
    , searchButton(
          {.image = "Search", .name = tr("Search actions"), .key = "Ctrl+F"},
          [this] { search.isOpen() ? search.close() : search.open(); })
    , stackView({.buttonEdgeInsets = {8, 0, 8, 0}, .spacing = 1, .bgColor = kClearButtonColor})
    , services(given) {
    for (const catalogue::Tab& tab : catalogue::tabs())
        tabButtons.push_back(makeTabButton(tab));
    arrowLeft = makeArrow("ArrowLeft", &ActionsMenu::buttonStack1);
    arrowRight = makeArrow("ArrowRight", &ActionsMenu::buttonStack2);
    speedButton.selectedImage = "Controls_on";
    speedButton.size = {34, 34};
    searchButton.size = {34, 34};
}

ActionsMenu::~ActionsMenu() = default;

MySegmentedStackButton& ActionsMenu::tabButton(std::string_view field) const {
    const auto tabs = catalogue::tabs();
    const auto tab = std::ranges::find(tabs, field, &catalogue::Tab::field);
    CHECK(tab != tabs.end(), "the catalogue has no tab {}", field);
    return *tabButtons[static_cast<std::size_t>(tab - tabs.begin())];
}

QString ActionsMenu::tabTitles() const {
    QStringList titles;
    for (const TabButton& button : tabButtons)
        titles.append(button->title());
    return titles.join(' ');
}

ActionsMenu::TabButton ActionsMenu::makeTabButton(const catalogue::Tab& tab) {
    auto button = std::make_unique<MySegmentedStackButton>(
        ButtonFace{.title = toQString(tab.shortTitle), .name = toQString(tab.contents)},
        [this, &tab] { show(tab); });
    button->size = {0, 34};
    button->markColor = groupColor(tab.group);
    return button;
}

ActionsMenu::TabButton ActionsMenu::makeArrow(const QString& image, void (ActionsMenu::*page)()) {
    return std::make_unique<MySegmentedStackButton>(
        ButtonFace{.image = image, .name = tr("More actions")}, [this, page] { (this->*page)(); });
}

void ActionsMenu::viewWillAppear() {
    isOnShow = true;
    if (rowKind == RowKind::full) {
        showFullRow();
        stackView.select(kFirstTabOfFullRow);
        show(*catalogue::tabNamed("IN1"));
    } else {
        buttonStack1();
    }
    updateSpeedButton();
}

void ActionsMenu::setWidths(qreal available, qreal fullRow) {
    const RowKind fitting = fullRow <= available ? RowKind::full : RowKind::pages;
    if (std::exchange(rowKind, fitting) == fitting || !isOnShow)
        return;
    const MySegmentedStackButton* const lit = litTab();
    if (fitting == RowKind::full)
        showFullRow();
    else
        showPage(lit == nullptr ? tabsOfPage(1) : pageOf(*lit));
    if (lit != nullptr)
        stackView.select(stackView.arranged().indexOf(lit));
}

void ActionsMenu::showFullRow() {
    QList<MyButton*> row;
    for (const TabButton& button : tabButtons)
        row.append(button.get());
    stackView.setArrangedSubviews(row);
}

void ActionsMenu::showPage(const QList<MyButton*>& page) {
    const bool isFirst = page.contains(arrowRight.get());
    arrowLeft->setEnabled(!isFirst);
    arrowRight->setEnabled(isFirst);
    stackView.setArrangedSubviews(page);
}

QList<MyButton*> ActionsMenu::tabsOfPage(int number) const {
    std::map<int, MyButton*> byPlace;
    for (const catalogue::Tab& tab : catalogue::tabs()) {
        if (tab.onPage.page == number)
            byPlace[tab.onPage.place] = &tabButton(tab.field);
    }
    QList<MyButton*> row;
    for (const auto& [place, button] : byPlace)
        row.append(button);
    if (number == 1)
        row.append(arrowRight.get());
    else
        row.prepend(arrowLeft.get());
    return row;
}

QList<MyButton*> ActionsMenu::pageOf(const MyButton& tab) const {
    const auto first = tabsOfPage(1);
    return first.contains(&tab) ? first : tabsOfPage(2);
}

void ActionsMenu::buttonStack1() {
    showPage(tabsOfPage(1));
    stackView.select(0);
    show(*catalogue::tabNamed("FLY")); // OT1 is lit above the buttons of FLY; this is intended
}

void ActionsMenu::buttonStack2() {
    showPage(tabsOfPage(2));
    stackView.select(1);
    show(*catalogue::tabNamed("TXT"));
}

void ActionsMenu::show(const catalogue::Tab& tab) {
    if (std::exchange(shown, &tab) == &tab)
        return;
    std::vector<std::unique_ptr<FuncButton>> made;
    for (const catalogue::Button& button : tab.buttons())
        made.push_back(makeActionButton(tab, button, static_cast<int>(made.size())));
    setActionButtons(std::move(made));
}

void ActionsMenu::showFX4() {
    shown = nullptr;
    setActionButtons({});
}

void ActionsMenu::setActionButtons(std::vector<std::unique_ptr<FuncButton>> buttons) {
    // The old buttons live until the view no longer uses them; a held one is released then.
    const auto former = std::exchange(actionsStackView, std::move(buttons));
    Q_EMIT actionsChanged();
}

std::unique_ptr<FuncButton> ActionsMenu::makeActionButton(
    const catalogue::Tab& tab, const catalogue::Button& button, int place) {
    const model::Model& model = services.model;
    FuncButton::Action action{.beganFunc = [this, &tab, button, &model] {
        if (!model.recordsActs() && pressedIdly)
            pressedIdly();
        catalogue::press(tab, button, contextOf(model), foundation::arc4random());
    }};
    if (button.isHold())
        action.endFunc = [button, &model](auto) { catalogue::release(button, contextOf(model)); };
    auto made = std::make_unique<FuncButton>(
        services.runLoop,
        ButtonFace{
            .image = pictureOf(tab, button),
            .title = toQString(button.face.label),
            .name = toQString(button.title),
            .key = QString::number(place + 1)},
        std::move(action));
    made->markColor = groupColor(tab.group);
    made->loop = loopOf(button.title);
    return made;
}

QList<FuncButton*> ActionsMenu::actionObjects() const {
    QList<FuncButton*> objects;
    for (const auto& button : actionsStackView)
        objects.append(button.get());
    return objects;
}

void ActionsMenu::pressButton(int index) {
    if (index >= 0 && static_cast<std::size_t>(index) < actionsStackView.size())
        actionsStackView[static_cast<std::size_t>(index)]->press();
}

void ActionsMenu::releaseButton(int index) {
    if (index >= 0 && static_cast<std::size_t>(index) < actionsStackView.size())
        actionsStackView[static_cast<std::size_t>(index)]->release();
}

void ActionsMenu::releaseButtons() {
    for (const auto& button : actionsStackView)
        button->release();
}

void ActionsMenu::nextTab() {
    step(1);
}

void ActionsMenu::previousTab() {
    step(-1);
}

void ActionsMenu::step(qsizetype by) {
    const auto order = tabsInOrder();
    if (order.isEmpty())
        return; // not shown yet
    const auto here = std::max<qsizetype>(order.indexOf(litTab()), 0);
    open(*order[(here + by + order.size()) % order.size()]);
}

void ActionsMenu::open(MyButton& tab) {
    if (!stackView.arranged().contains(&tab))
        showPage(pageOf(tab));
    tab.click();
}

void ActionsMenu::pressHit(int row) {
    if (row < 0 || row >= search.count())
        return;
    releaseHit();
    const ActionSearch::Entry& hit = search.hit(row);
    open(tabButton(hit.tab->field));
    pressedHit = hit.place;
    pressButton(pressedHit);
}

void ActionsMenu::releaseHit() {
    releaseButton(std::exchange(pressedHit, -1));
}

QList<MyButton*> ActionsMenu::tabsInOrder() const {
    if (rowKind == RowKind::full)
        return stackView.arranged();
    auto order = tabsOfPage(1) + tabsOfPage(2);
    order.removeAll(arrowRight.get());
    order.removeAll(arrowLeft.get());
    return order;
}

const MySegmentedStackButton* ActionsMenu::litTab() const {
    const auto& row = stackView.arranged();
    const auto lit = std::ranges::find_if(row, &MyButton::isMySelected);
    return lit == row.end() ? nullptr : qobject_cast<const MySegmentedStackButton*>(*lit);
}

void ActionsMenu::speedButtonClicked() {
    services.defaults.set(kSpeedMenuVisibleKey, !speedButton.isMySelected());
    updateSpeedButton();
}

void ActionsMenu::updateSpeedButton() {
    const auto kept = services.defaults.boolean(kSpeedMenuVisibleKey);
    if (!kept)
        services.defaults.set(kSpeedMenuVisibleKey, false);
    speedButton.setMySelected(kept.value_or(false));
    if (speedClosure)
        speedClosure(kept.value_or(false));
}

} // namespace zelvo::ui
