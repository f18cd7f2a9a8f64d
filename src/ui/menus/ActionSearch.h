// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/Catalogue.h"

#include <QAbstractListModel>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace zelvo::ui {

/// Finds buttons of the catalogue by their names. It lists the hits; without a text, all buttons.
///
/// A button is a hit if its names and its tab contain all words of the text, wherever they stand.
/// Case and accents do not matter. Hits whose name begins with the text come first, then those of
/// which a word does, then the others; among equal ones in the order of the catalogue.
class ActionSearch : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(int count READ count NOTIFY textChanged)

public:
    enum Role {
        nameRole = Qt::UserRole,
        tabRole,
        loopRole,
        markColorRole,
        keyRole,
        isHoldRole,
    };

    /// A button and its place in its tab, from 0.
    struct Entry {
        const catalogue::Tab* tab = nullptr;
        int place = 0;
        QString name;  ///< as in the history
        QString words; ///< all that is searched, folded
        bool isHold = false;
    };

    explicit ActionSearch(QObject* parent = nullptr);

    /// Shows the field and the list, with all buttons.
    Q_INVOKABLE void open();
    Q_INVOKABLE void close();

    [[nodiscard]] bool isOpen() const { return isOpen_; }

    [[nodiscard]] QString text() const { return text_; }

    void setText(const QString& text);

    [[nodiscard]] int count() const { return static_cast<int>(hits.size()); }

    /// The button of a row. There must be one.
    [[nodiscard]] const Entry& hit(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void isOpenChanged();
    void textChanged();

private:
    std::vector<Entry> entries; ///< as the catalogue
    std::vector<const Entry*> hits;
    QString text_;
    bool isOpen_ = false;
};

} // namespace zelvo::ui
