// SPDX-License-Identifier: MIT
#pragma once

#include "ui/layouter/FontList.h"
#include "ui/layouter/Strips.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zelvo::ui {

/// The strip of fonts, each name in its own face: the program's and the imported ones, and the
/// font of the system that was chosen last. A button ahead of it opens the list of all fonts. Strip
/// and list show the same choice.
class FontStrip final : public zelvo::ui::ButtonStrip {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(zelvo::ui::FontPictures* pictures READ picturesObject CONSTANT)
    Q_PROPERTY(zelvo::ui::FontList* list READ listObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MyButton* listButton READ listButtonObject CONSTANT)
    Q_PROPERTY(zelvo::ui::MyButton* importButton READ importButtonObject CONSTANT)
    Q_PROPERTY(bool isListOpen READ isListOpen NOTIFY listToggled)

public:
    struct Actions {
        std::function<void(const std::string& name)> choose;
        std::function<void()> import;
    };

    FontStrip(
        const std::vector<content::FontEntry>& fonts,
        const std::string& current,
        std::shared_ptr<FontPictures> fontPictures,
        const Actions& actions,
        QObject* parent = nullptr);

    FontList list;
    MyButton listButton;   ///< selected while the list is open
    MyButton importButton; ///< in the list

    [[nodiscard]] bool isListOpen() const { return listButton.isMySelected(); }

    Q_INVOKABLE void openList(bool isOpen);

    /// Shows these fonts instead. The list stays open, with its search and its current font.
    void setFonts(std::vector<content::FontEntry> fonts);
    /// Shows that font as the current one, as soon as it is among the fonts.
    void setCurrent(const std::string& name);

    [[nodiscard]] FontPictures* picturesObject() const { return pictures.get(); }

    [[nodiscard]] FontList* listObject() { return &list; }

    [[nodiscard]] MyButton* listButtonObject() { return &listButton; }

    [[nodiscard]] MyButton* importButtonObject() { return &importButton; }

Q_SIGNALS:
    void listToggled();

private:
    void show(const std::string& name, Motion motion);

    std::shared_ptr<FontPictures> pictures; // shared, because the view uses it until it is gone
};

} // namespace zelvo::ui
