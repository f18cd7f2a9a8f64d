// SPDX-License-Identifier: MIT
#pragma once

#include "content/FontManager.h"
#include "ui/controls/FontPictures.h"

#include <QAbstractListModel>
#include <QStringList>

#include <functional>
#include <vector>

namespace zelvo::ui {

[[nodiscard]] FontFile fontFileOf(const content::FontEntry& font);

/// All fonts that a text can have, for a list with a search field: the program's and the imported
/// ones, then those of the system.
class FontList final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searched)
    Q_PROPERTY(int count READ count NOTIFY searched)
    Q_PROPERTY(int currentRow READ currentRow NOTIFY currentChanged)

public:
    enum Role { nameRole = Qt::UserRole, fontRole, sectionRole, corruptRole };

    explicit FontList(std::vector<content::FontEntry> all, QObject* parent = nullptr);

    /// Called with the name of a font that the user has chosen; may be empty.
    std::function<void(const std::string& name)> chosen;

    [[nodiscard]] const std::vector<content::FontEntry>& fonts() const { return entries; }

    /// Shows these fonts instead, with the same search.
    void setFonts(std::vector<content::FontEntry> all);

    /// Shows the fonts whose names contain all words of the text; upper and lower case are alike.
    void setSearch(const QString& text);

    [[nodiscard]] QString search() const { return search_; }

    [[nodiscard]] int count() const { return static_cast<int>(rows.size()); }

    /// The row of the current font; -1: it is not listed.
    [[nodiscard]] int currentRow() const;

    [[nodiscard]] const std::string& current() const { return current_; }

    void setCurrent(const std::string& name);
    /// Does what a tap on the row does.
    Q_INVOKABLE void choose(int row);
    /// Chooses the row that many rows below the current one, or the last or first one.
    Q_INVOKABLE void moveBy(int step);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void searched();
    void currentChanged();

private:
    [[nodiscard]] const content::FontEntry& at(int row) const;

    std::vector<content::FontEntry> entries;
    std::vector<std::size_t> rows; ///< indices of the entries that are shown
    QString search_;
    std::string current_;
};

} // namespace zelvo::ui
