// SPDX-License-Identifier: MIT
#include "ui/layouter/LayouterMenu.h"

#include "content/FontManager.h"
#include "model/Model.h"
#include "platform/foundation/RunLoop.h"
#include "ui/audio/AudioViewController.h"
#include "ui/layouter/FontStrip.h"

#include <array>
#include <utility>

namespace zelvo::ui {

namespace {

/// The panel that shows the outlines. An old panel is deleted only after the new one has shown its
/// own outlines, so it must not hide them.
const LayouterMenu* outliner = nullptr;

bool isText(const node::NodePtr& node) {
    return std::dynamic_pointer_cast<content::TextNode>(node) != nullptr;
}

/// A text may be pasted: it gets a blank for each line break, and no half of a character where the
/// field has cut it off.
QString lineOf(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (QChar& letter : text) {
        using enum QChar::Category;
        const auto kind = letter.category();
        if (kind == Other_Control || kind == Separator_Line || kind == Separator_Paragraph)
            letter = u' ';
    }
    if (!text.isEmpty() && text.back().isHighSurrogate())
        text.chop(1);
    return text;
}

/// Whether the option stays when no node is selected any more.
bool outlivesNode(CurrentOption option) {
    return option >= CurrentOption::audio && option <= CurrentOption::mask;
}

} // namespace

LayouterMenu::LayouterMenu(const Services& given, QObject* parent)
    : QObject(parent)
    , services(given)
    , inspirator(services)
    , stackView({.buttonEdgeInsets = {9, 0, 9, 0}, .spacing = 3, .bgColor = kClearButtonColor})
    , backButton(
          {.image = "LargeLayoutBackButton", .name = tr("Back"), .key = "Esc"},
          [this] { backButtonClicked(); })
    , cameraGestures(services.model.actionController().gestures) {
    backButton.size = {34, 0};
    outliner = this;
    const auto nodes = services.model.nodes().content();
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        // The second text is close below the first.
        const bool isBelow = nodes[i] == services.model.nodes().textNode2;
        nodes[i]->nameOutline(
            tr(kNodeNames.at(i)).toStdString(),
            isBelow ? node::NamePlace::below : node::NamePlace::above);
    }
    services.model.actionController().resetAll(actions::CameraHandles::include);
    services.fonts.fontsInstalled.subscribe(lifetime, [this] { fontsHaveChanged(); });
    services.fonts.fontsChanged.subscribe(lifetime, [this] { fontsHaveChanged(); });
    refresh();
}

LayouterMenu::~LayouterMenu() {
    if (outliner != this)
        return;
    outliner = nullptr;
    for (const node::NodePtr& node : services.model.nodes().content())
        node->showOutline(node::Outline::hidden, node::Transition::animated);
}

void LayouterMenu::setCurrentNode(node::NodePtr node) {
    if (isText(currentNode_))
        cachedTextOption = currentOption_;
    currentNode_ = std::move(node);
    endWriting();
    if (isText(currentNode_)) {
        setCurrentOption(cachedTextOption);
    } else if (std::dynamic_pointer_cast<content::MediaNode>(currentNode_)) {
        setCurrentOption(CurrentOption::shape);
    } else if (std::dynamic_pointer_cast<content::ImageNode>(currentNode_)) {
        setCurrentOption(CurrentOption::image);
    } else if (!outlivesNode(currentOption_)) {
        setCurrentOption(CurrentOption::none);
    }
}

void LayouterMenu::setCurrentNodeFromButton(int tag) {
    const auto nodes = services.model.nodes().content();
    const auto place = static_cast<std::size_t>(tag);
    setCurrentNode(place < nodes.size() ? nodes[place] : nullptr);
}

void LayouterMenu::setCurrentOption(CurrentOption option) {
    currentOption_ = option;
    refresh();
}

void LayouterMenu::backButtonClicked() {
    setCurrentNode(nullptr);
    setCurrentOption(CurrentOption::none);
}

void LayouterMenu::writeAction() {
    writing = isText(currentNode_);
    Q_EMIT writingChanged();
}

void LayouterMenu::showFontImport() const {
    if (presentFontImport)
        presentFontImport();
}

void LayouterMenu::fontImported(const std::string& name) {
    if (const auto node = std::dynamic_pointer_cast<content::TextNode>(currentNode_))
        node->setFontNameSoon(name);
    if (auto* const fonts = dynamic_cast<FontStrip*>(strip.get()))
        fonts->setCurrent(name);
    fontsHaveChanged();
}

/// Many fonts may come at once; the list is made anew after the last one.
void LayouterMenu::fontsHaveChanged() {
    if (std::exchange(isFontListOld, true))
        return;
    services.runLoop.post(lifetime.guard([this] {
        isFontListOld = false;
        if (auto* const fonts = dynamic_cast<FontStrip*>(strip.get()))
            fonts->setFonts(services.fonts.fontMenu(services.defaults));
    }));
}

void LayouterMenu::textFieldDidChange(const QString& text) {
    if (const auto node = std::dynamic_pointer_cast<content::TextNode>(currentNode_))
        node->setTextSoon(lineOf(text).toStdString());
}

void LayouterMenu::endWriting() {
    if (!std::exchange(writing, false))
        return;
    if (const auto node = std::dynamic_pointer_cast<content::TextNode>(currentNode_))
        node->settle();
    Q_EMIT writingChanged();
}

QString LayouterMenu::writtenText() const {
    const auto node = std::dynamic_pointer_cast<content::TextNode>(currentNode_);
    return node ? QString::fromStdString(node->text()) : QString();
}

bool LayouterMenu::isBackVisible() const {
    return currentNode_ != nullptr || currentOption_ != CurrentOption::none;
}

void LayouterMenu::showAudio() {
    if (currentOption_ == CurrentOption::audio)
        return;
    setCurrentNode(nullptr);
    setCurrentOption(CurrentOption::audio);
}

void LayouterMenu::songDidChange() {
    if (auto* const editor = qobject_cast<AudioViewController*>(strip.get()); editor != nullptr)
        editor->refresh();
}

void LayouterMenu::refresh() {
    const LaterPtr<QObject> formerStrip = std::exchange(strip, makeStrip());
    rebuildTabs();
    Q_EMIT refreshed();
}

void LayouterMenu::styleDidChange() {
    endWriting(); // the field has the former text
    refresh();
    showOutlines();
}

void LayouterMenu::showOutlines() const {
    for (const node::NodePtr& node : services.model.nodes().content()) {
        const auto unselected = node == pointedNode ? node::Outline::pointed : node::Outline::plain;
        node->showOutline(node == currentNode_ ? node::Outline::highlighted : unselected);
    }
}

} // namespace zelvo::ui
