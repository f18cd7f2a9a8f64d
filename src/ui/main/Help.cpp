// SPDX-License-Identifier: MIT
#include "ui/main/Help.h"

#include "ui/controls/KeyName.h"

#include <array>
#include <utility>

namespace zelvo::ui {

namespace {

struct KeyRow {
    const char* key;
    const char* meaning;
};

// clang-format off
constexpr auto kKeys = std::to_array<KeyRow>({
    {QT_TRANSLATE_NOOP("zelvo::ui::Help", "Space"),      QT_TRANSLATE_NOOP("zelvo::ui::Help", "Start and stop a run")},
    {"1 … 6",                                            QT_TRANSLATE_NOOP("zelvo::ui::Help", "Press the buttons of the tab")},
    {"Ctrl+←, Ctrl+→",                                   QT_TRANSLATE_NOOP("zelvo::ui::Help", "Previous tab, next tab")},
    {"Ctrl+F",                                           QT_TRANSLATE_NOOP("zelvo::ui::Help", "Find an action by its name")},
    {"S",                                                QT_TRANSLATE_NOOP("zelvo::ui::Help", "Speeds, and who takes part")},
    {"P",                                                QT_TRANSLATE_NOOP("zelvo::ui::Help", "Play and pause, without recording")},
    {QT_TRANSLATE_NOOP("zelvo::ui::Help", "← → (time line)"), QT_TRANSLATE_NOOP("zelvo::ui::Help", "Move the playhead; with Shift by a second")},
    {QT_TRANSLATE_NOOP("zelvo::ui::Help", "↑ ↓ (time line)"), QT_TRANSLATE_NOOP("zelvo::ui::Help", "Choose an action; with Alt, ← and → move it")},
    {QT_TRANSLATE_NOOP("zelvo::ui::Help", "+ − (time line)"), QT_TRANSLATE_NOOP("zelvo::ui::Help", "Hold it longer, shorter")},
    {"Ctrl+Z, Ctrl+Shift+Z",                             QT_TRANSLATE_NOOP("zelvo::ui::Help", "Undo, redo")},
    {"Ctrl+H",                                           QT_TRANSLATE_NOOP("zelvo::ui::Help", "History")},
    {"Ctrl+D",                                           QT_TRANSLATE_NOOP("zelvo::ui::Help", "Duration")},
    {"Ctrl+E",                                           QT_TRANSLATE_NOOP("zelvo::ui::Help", "Export a movie")},
    {"Ctrl+N, Ctrl+O",                                   QT_TRANSLATE_NOOP("zelvo::ui::Help", "New document, open")},
    {"Ctrl+S, Ctrl+Shift+S",                             QT_TRANSLATE_NOOP("zelvo::ui::Help", "Save, save as")},
    {"F2, F3",                                           QT_TRANSLATE_NOOP("zelvo::ui::Help", "Style, actions; again: to its tabs, then the arrow keys")},
    {"I",                                                QT_TRANSLATE_NOOP("zelvo::ui::Help", "A random style")},
    {"Tab",                                              QT_TRANSLATE_NOOP("zelvo::ui::Help", "Select the next text, image or object")},
    {"← → ↑ ↓",                                          QT_TRANSLATE_NOOP("zelvo::ui::Help", "Move it; with Shift in large steps")},
    {QT_TRANSLATE_NOOP("zelvo::ui::Help", "Return"),     QT_TRANSLATE_NOOP("zelvo::ui::Help", "Write the text; choose another image")},
    {"[ ]",                                              QT_TRANSLATE_NOOP("zelvo::ui::Help", "Make it smaller, larger")},
    {"Ctrl+V",                                           QT_TRANSLATE_NOOP("zelvo::ui::Help", "Use the copied picture or file")},
    {"F11",                                              QT_TRANSLATE_NOOP("zelvo::ui::Help", "Full screen")},
    {"Esc",                                              QT_TRANSLATE_NOOP("zelvo::ui::Help", "Close what is on top")},
});

// clang-format on

QStringList translated(const char* const KeyRow::*column) {
    QStringList texts;
    for (const KeyRow& row : kKeys)
        texts.append(Help::tr(row.*column));
    return texts;
}

} // namespace

Help::Help(std::function<void()> show, QObject* parent)
    : QObject(parent)
    , button({.image = "Help", .name = tr("Help and keys"), .key = "F1"}, std::move(show)) {}

QStringList Help::keys() {
    QStringList names;
    for (const QString& key : translated(&KeyRow::key))
        names.append(keyName(key));
    return names;
}

QStringList Help::meanings() {
    return translated(&KeyRow::meaning);
}

} // namespace zelvo::ui
