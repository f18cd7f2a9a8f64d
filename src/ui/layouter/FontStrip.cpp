// SPDX-License-Identifier: MIT
#include "ui/layouter/FontStrip.h"

#include <algorithm>
#include <utility>

namespace zelvo::ui {

namespace {

bool isInStrip(const content::FontEntry& font, const std::string& current) {
    return font.source != content::FontSource::system || font.name == current;
}

QList<StripEntry>
entriesOf(const std::vector<content::FontEntry>& fonts, const std::string& current) {
    QList<StripEntry> entries;
    for (const content::FontEntry& font : fonts) {
        if (isInStrip(font, current)) {
            entries.append(
                {.title = QString::fromStdString(font.name),
                 .image = font.isCorrupt ? "CorruptFont" : "",
                 .font = fontFileOf(font)});
        }
    }
    return entries;
}

} // namespace

FontStrip::FontStrip(
    const std::vector<content::FontEntry>& fonts,
    const std::string& current,
    std::shared_ptr<FontPictures> fontPictures,
    const Actions& actions,
    QObject* parent)
    : ButtonStrip(
          entriesOf(fonts, current),
          [this, actions](std::size_t place) {
              const std::string name = buttons().at(place)->title().toStdString();
              list.setCurrent(name);
              actions.choose(name);
          },
          {},
          parent)
    , list(fonts)
    , listButton(
          {.image = "FontList", .name = tr("All fonts")}, [this] { openList(!isListOpen()); })
    , importButton({.image = "Import", .title = tr("Import")}, actions.import)
    , pictures(std::move(fontPictures)) {
    listButton.selectedColor = kAccentColor;
    listButton.unselectedColor = kButtonColor;
    importButton.unselectedColor = kButtonColor;
    list.chosen = [this, actions](const std::string& name) {
        show(name, Motion::animated);
        actions.choose(name);
    };
    list.setCurrent(current);
    show(current, Motion::atOnce);
}

void FontStrip::setFonts(std::vector<content::FontEntry> fonts) {
    list.setFonts(std::move(fonts));
    setEntries(entriesOf(list.fonts(), list.current()));
    show(list.current(), Motion::atOnce);
}

void FontStrip::setCurrent(const std::string& name) {
    list.setCurrent(name);
    show(name, Motion::animated);
}

void FontStrip::openList(bool isOpen) {
    if (isOpen == isListOpen())
        return;
    listButton.setMySelected(isOpen);
    if (!isOpen)
        list.setSearch({});
    Q_EMIT listToggled();
}

void FontStrip::show(const std::string& name, Motion motion) {
    const auto place = [this, title = QString::fromStdString(name)] {
        const auto found =
            std::ranges::find(buttons(), title, [](const auto& button) { return button->title(); });
        return found == buttons().end() ? -1 : static_cast<int>(found - buttons().begin());
    };
    if (place() < 0) { // a font of the system
        setEntries(entriesOf(list.fonts(), name));
        motion = Motion::atOnce;
    }
    select(place(), motion);
}

} // namespace zelvo::ui
