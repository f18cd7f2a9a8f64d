// SPDX-License-Identifier: MIT
// The rows of the style panel: the tabs and the strip for each selection.
#include "content/FontManager.h"
#include "environments/SceneManager.h"
#include "model/Model.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/RunLoop.h"
#include "platform/text/SystemFontIndex.h"
#include "shared/Palette.h"
#include "shared/Thumbnail.h"
#include "ui/audio/AudioViewController.h"
#include "ui/layouter/ColorPickers.h"
#include "ui/layouter/FontStrip.h"
#include "ui/layouter/FormPanel.h"
#include "ui/layouter/ImagePanel.h"
#include "ui/layouter/LayouterMenu.h"
#include "ui/layouter/Strips.h"
#include "ui/layouter/TransformPanel.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace zelvo::ui {

namespace {

constexpr auto kNone = "None";
constexpr double kSceneDelay = 0.15; ///< seconds: the strip has then scrolled

/// The index of the first entry for which the predicate is true; -1: none.
template <class List, class Predicate> int placeOf(const List& list, Predicate isCurrent) {
    const auto found = std::find_if(list.begin(), list.end(), isCurrent);
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

/// Sizes in device-independent pixels.
QSizeF sizeOf(ThumbnailKind kind) {
    switch (kind) {
    case ThumbnailKind::environment:
        return {50, 28};
    case ThumbnailKind::mask:
        return {40, 28};
    default:
        return {28, 28};
    }
}

/// The entries of a list with their thumbnails. "None" has an icon.
template <class List, class Title>
QList<StripEntry> entriesOf(const List& list, ThumbnailKind kind, Title titleOf) {
    QList<StripEntry> entries;
    for (const auto& one : list) {
        const std::string title(titleOf(one));
        StripEntry entry{.title = QString::fromStdString(title)};
        const auto file = foundation::mainBundle().path(thumbnailName(kind, title));
        if (title == kNone) {
            entry.image = "None";
        } else if (!file.empty()) {
            entry.thumbnail = QUrl::fromLocalFile(QString::fromStdString(file.string()));
            entry.thumbnailSize = sizeOf(kind);
        }
        entries.append(entry);
    }
    return entries;
}

const auto kNameOf = [](const auto& entry) { return entry->name; };

void whenSystemFontsAreRead(foundation::RunLoop& loop, std::function<void()> call) {
    constexpr double kInterval = 0.05; // seconds
    if (text::systemFontsIfRead() != nullptr)
        return call();
    loop.asyncAfter(
        kInterval, [&loop, call = std::move(call)] { whenSystemFontsAreRead(loop, call); });
}

} // namespace

struct LayouterMenu::TabRow {
    QString title;
    std::function<void()> action;
    CurrentOption option = CurrentOption::none; ///< this tab is lit while the option is current
    bool isHighlighting = true;
};

LayouterMenu::TabRow LayouterMenu::optionTab(const char* title, CurrentOption option) {
    const auto choose = [this, option] {
        endWriting();                 // the field loses the focus to a pointer only
        if (option != currentOption_) // a lit tab keeps its strip
            setCurrentOption(option);
    };
    return {tr(title), choose, option};
}

std::vector<LayouterMenu::TabRow> LayouterMenu::rootTabs() {
    std::vector<TabRow> rows;
    for (const char* const title : kNodeNames) {
        const auto tag = static_cast<int>(rows.size());
        rows.push_back({tr(title), [this, tag] { setCurrentNodeFromButton(tag); }});
    }
    rows.push_back(optionTab(QT_TR_NOOP("Background"), CurrentOption::backgroundScenes));
    rows.push_back(optionTab(QT_TR_NOOP("Audio"), CurrentOption::audio));
    for (TabRow& row : rows)
        row.option = CurrentOption::write; // so that no tab is lit
    return rows;
}

std::vector<LayouterMenu::TabRow> LayouterMenu::tabsNow() {
    using enum CurrentOption;
    if (currentOption_ == backgroundColor || currentOption_ == backgroundScenes)
        return {
            optionTab(QT_TR_NOOP("Environment"), backgroundScenes),
            optionTab(QT_TR_NOOP("Color"), backgroundColor)};
    if (currentOption_ == audio)
        return {{shownAudioTitle(), [] {}, audio}};
    if (std::dynamic_pointer_cast<content::TextNode>(currentNode_)) {
        return {
            {tr("Write"), [this] { writeAction(); }, write, false},
            optionTab(QT_TR_NOOP("Font"), font),
            optionTab(QT_TR_NOOP("Material"), material),
            optionTab(QT_TR_NOOP("Frontcolor"), frontColor),
            optionTab(QT_TR_NOOP("Sidecolor"), bandColor),
            optionTab(QT_TR_NOOP("Form"), form),
            optionTab(QT_TR_NOOP("Transform"), transform)};
    }
    if (std::dynamic_pointer_cast<content::MediaNode>(currentNode_)) {
        return {
            optionTab(QT_TR_NOOP("Shape"), shape),
            optionTab(QT_TR_NOOP("Material"), material),
            optionTab(QT_TR_NOOP("Color"), frontColor),
            optionTab(QT_TR_NOOP("Transform"), transform)};
    }
    if (std::dynamic_pointer_cast<content::ImageNode>(currentNode_))
        return {
            optionTab(QT_TR_NOOP("Image"), image),
            optionTab(QT_TR_NOOP("Mask"), mask),
            optionTab(QT_TR_NOOP("Transform"), transform)};
    return rootTabs();
}

void LayouterMenu::rebuildTabs() {
    showOutlines();
    std::vector<LaterPtr<MySegmentedStackButton>> made;
    QList<MyButton*> row;
    int lit = -1;
    for (TabRow& tab : tabsNow()) {
        if (tab.option == currentOption_)
            lit = static_cast<int>(made.size());
        made.emplace_back(std::make_unique<MySegmentedStackButton>(
                              ButtonFace{.title = tab.title}, std::move(tab.action))
                              .release());
        made.back()->highlightingEnabled = tab.isHighlighting;
        made.back()->size = {0, 34};
        row.append(made.back().get());
    }
    stackView.setArrangedSubviews(row);
    stackView.select(lit);
    tabs = std::move(made);
    audioTitleButton = currentOption_ == CurrentOption::audio ? tabs.front().get() : nullptr;
}

QString LayouterMenu::shownAudioTitle() const {
    return audioTitle_.isEmpty() ? tr("No music") : audioTitle_;
}

void LayouterMenu::setAudioTitle(const QString& title) {
    audioTitle_ = title;
    services.runLoop.post(lifetime.guard([this] {
        if (audioTitleButton != nullptr)
            audioTitleButton->setFace({.title = shownAudioTitle()});
    }));
}

LayouterMenu::LaterPtr<QObject> LayouterMenu::makeStrip() {
    using enum CurrentOption;
    const auto shown = [this](const char* view, LaterPtr<QObject> made) {
        stripView_ = QString::fromLatin1(view);
        return made;
    };
    const auto textNode = std::dynamic_pointer_cast<content::TextNode>(currentNode_);
    const auto imageNode = std::dynamic_pointer_cast<content::ImageNode>(currentNode_);
    switch (currentOption_) {
    case material:
        return shown("ButtonStrip", currentNode_ ? makeMaterialStrip() : nullptr);
    case font:
        return shown("FontStrip", textNode ? makeFontStrip(textNode) : nullptr);
    case shape:
        return shown("ButtonStrip", makeShapeStrip());
    case mask:
        return shown("ButtonStrip", makeMaskStrip());
    case backgroundScenes:
        return shown("ButtonStrip", makeSceneStrip());
    case frontColor:
    case bandColor:
    case backgroundColor:
        return shown("ColorStrip", makeColorStrip());
    case form:
        return shown("FormPanel", textNode ? LaterPtr<QObject>(new FormPanel(textNode)) : nullptr);
    case image:
        return shown(
            "ImagePanel",
            imageNode
                ? LaterPtr<QObject>(new ImagePanel(imageNode, [this] { showImportOptions(); }))
                : nullptr);
    case transform:
        return shown(
            "TransformPanel",
            currentNode_ ? LaterPtr<QObject>(new TransformPanel(currentNode_)) : nullptr);
    case audio:
        return shown("AudioEditor", makeAudioEditor());
    default:
        return shown("", nullptr);
    }
}

LayouterMenu::LaterPtr<QObject> LayouterMenu::makeAudioEditor() {
    LaterPtr<AudioViewController> made(new AudioViewController(services, songBeats));
    made->setSongTitleClosure([this](const QString& title) { setAudioTitle(title); });
    made->presentMusicLibrary = [this, editor = made.get()] {
        if (presentMusicLibrary)
            presentMusicLibrary(*editor);
    };
    made->openSong = [this](const std::filesystem::path& file) {
        if (openSong)
            openSong(file);
    };
    return made;
}

LayouterMenu::LaterPtr<QObject> LayouterMenu::makeMaterialStrip() {
    const auto& pairs = currentNode_->allMaterials;
    const auto entries = entriesOf(
        pairs, ThumbnailKind::material, [](const look::XMATPtr& pair) { return pair->title; });
    LaterPtr<ButtonStrip> made(new ButtonStrip(entries, [node = currentNode_](std::size_t tag) {
        node->setCurrentMaterialName(node->allMaterials.at(tag)->name);
    }));
    made->select(
        placeOf(
            pairs,
            [this](const look::XMATPtr& pair) {
                return pair->name == currentNode_->currentMaterialName();
            }),
        Strip::Motion::atOnce);
    return made;
}

LayouterMenu::LaterPtr<QObject> LayouterMenu::makeFontStrip(const content::TextNodePtr& text) {
    if (text::systemFontsIfRead() == nullptr)
        whenSystemFontsAreRead(services.runLoop, lifetime.guard([this] { fontsHaveChanged(); }));
    return LaterPtr<QObject>(new FontStrip(
        services.fonts.fontMenu(services.defaults),
        text->fontName(),
        fontPictures,
        {.choose = [text](const std::string& name) { text->setFontNameSoon(name); },
         .import = [this] { showFontImport(); }}));
}

LayouterMenu::LaterPtr<QObject> LayouterMenu::makeShapeStrip() {
    const auto& shapes = content::mediaShapes();
    const content::MediaNodePtr node = services.model.nodes().mediaNode;
    LaterPtr<ButtonStrip> made(new ButtonStrip(
        entriesOf(shapes, ThumbnailKind::shape, kNameOf),
        [node, &shapes](std::size_t tag) { node->setShape(shapes.at(tag)); },
        ButtonStrip::First{
            .face = {.image = "Import", .title = tr("Custom"), .name = tr("Import a 3D object")},
            .size = {96, 36},
            .action = [this] { showObjectImport(); }}));
    if (node->customNode()) {
        made->selectFirst(Strip::Motion::atOnce);
        return made;
    }
    const content::MediaShapePtr& current = node->currentShape();
    made->select(
        placeOf(
            shapes,
            [&](const content::MediaShapePtr& one) {
                return current && one->name == current->name;
            }),
        Strip::Motion::atOnce);
    return made;
}

void LayouterMenu::showObjectImport() const {
    if (presentObjectImport)
        presentObjectImport();
}

void LayouterMenu::objectChosen(const scene::SCNNodePtr& node) {
    const auto media = std::dynamic_pointer_cast<content::MediaNode>(currentNode_);
    if (!media)
        return;
    media->setCustomNode(node);
    if (auto* const shapes = qobject_cast<ButtonStrip*>(strip.get());
        currentOption_ == CurrentOption::shape && shapes != nullptr)
        shapes->selectFirst(Strip::Motion::animated);
}

LayouterMenu::LaterPtr<QObject> LayouterMenu::makeMaskStrip() const {
    const auto& masks = content::imageMasks();
    const content::ImageNodePtr node = services.model.nodes().imageNode;
    LaterPtr<ButtonStrip> made(new ButtonStrip(
        entriesOf(masks, ThumbnailKind::mask, kNameOf), [node, &masks](std::size_t tag) {
            node->setCurrentMask(masks.at(tag));
            node->isVisible = true;
            node->updateVisibility();
        }));
    const content::ImageMaskPtr& current = node->currentMask();
    made->select(
        placeOf(
            masks,
            [&](const content::ImageMaskPtr& one) {
                return current && one->name == current->name;
            }),
        Strip::Motion::atOnce);
    return made;
}

LayouterMenu::LaterPtr<QObject> LayouterMenu::makeSceneStrip() {
    LaterPtr<ButtonStrip> made(new ButtonStrip(
        entriesOf(
            environments::SceneManager::sceneNames,
            ThumbnailKind::environment,
            [](std::string_view name) { return name; }),
        [this](std::size_t tag) {
            wantedScene = static_cast<int>(tag);
            services.runLoop.asyncAfter(kSceneDelay, lifetime.guard([this, index = wantedScene] {
                // Only the last of several quick choices is made.
                if (index == wantedScene && services.model.currentSceneIndex() != index)
                    services.model.setScene(index);
            }));
        }));
    made->select(services.model.currentSceneIndex(), Strip::Motion::atOnce);
    return made;
}

LayouterMenu::LaterPtr<QObject> LayouterMenu::makeColorStrip() {
    const auto& background = services.model.currentBackgroundColor();
    const bool isNodes = currentOption_ != CurrentOption::backgroundColor && currentNode_;
    const image::Color current = !isNodes ? background
                                 : currentOption_ == CurrentOption::frontColor
                                     ? currentNode_->frontColor()
                                     : currentNode_->bandColor();
    LaterPtr<SimpleColorPicker> made(new SimpleColorPicker(kPalette, current));
    made->didChangeColor = [this](const image::Color& color) { assignColor(color); };
    return made;
}

void LayouterMenu::assignColor(const image::Color& color) {
    if (currentOption_ == CurrentOption::frontColor && currentNode_) {
        currentNode_->setFrontColor(color);
    } else if (currentOption_ == CurrentOption::bandColor && currentNode_) {
        currentNode_->setBandColor(color);
    } else {
        services.model.setCurrentBackgroundColor(color);
    }
}

} // namespace zelvo::ui
