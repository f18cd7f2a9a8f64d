// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "ui/controls/FontPictures.h"
#include "ui/controls/Services.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <optional>
#include <string>
#include <vector>

namespace zelvo::ui {

/// Is told which font the user has picked on the import screen.
class FontImportViewControllerDelegate {
public:
    virtual ~FontImportViewControllerDelegate() = default;

    virtual void fontImported(const std::string& name) = 0;
};

/// The screen of imported fonts: import, delete, pick one for the current text.
class FontImportViewController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QStringList rows READ rows NOTIFY changed)
    Q_PROPERTY(zelvo::ui::FontPictures* pictures READ picturesObject CONSTANT)
    Q_PROPERTY(double cellHeight MEMBER cellHeight CONSTANT)
    Q_PROPERTY(QStringList nameFilters READ nameFilters CONSTANT)
    Q_PROPERTY(QUrl downloads READ downloads CONSTANT)

public:
    explicit FontImportViewController(const Services& given);

    double cellHeight = 48;                 ///< device-independent pixels
    std::vector<std::string> importedFonts; ///< file names, in the displayed order

    /// The delegate is forgotten when its lifetime ends.
    void
    setDelegate(FontImportViewControllerDelegate& given, const foundation::Lifetime& itsLifetime);

    [[nodiscard]] QString title() const;
    [[nodiscard]] QStringList rows() const;
    /// The font of a row, for drawing its name.
    Q_INVOKABLE [[nodiscard]] zelvo::ui::FontFile fontFile(int row) const;
    /// For the file dialog.
    [[nodiscard]] static QStringList nameFilters();
    /// Where the file dialog begins: fonts mostly come from the web.
    [[nodiscard]] static QUrl downloads();

    [[nodiscard]] FontPictures* picturesObject() { return &pictures; }

    Q_INVOKABLE void showHowto();
    Q_INVOKABLE void importFrom(const QUrl& file);
    Q_INVOKABLE void deleteRow(int row);
    /// Hands the font to the delegate and closes the screen. Files and names are sorted apart, and
    /// the row counts in both: a neighbour is taken where the two orders differ.
    Q_INVOKABLE void pickRow(int row);
    Q_INVOKABLE void dismissViewController();

Q_SIGNALS:
    void changed();
    void dismissed();

private:
    void reload();
    [[nodiscard]] bool isRow(int row) const;

    struct Delegate {
        FontImportViewControllerDelegate& object;
        foundation::Lifetime::Watch lifetime;
    };

    Services services;
    FontPictures pictures;
    std::optional<Delegate> delegate;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
