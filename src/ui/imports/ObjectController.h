// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Lifetime.h"
#include "platform/scene/SCNNode.h"
#include "ui/controls/Services.h"
#include "ui/imports/ObjectInfoController.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QtQml/qqml.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zelvo::ui {

class ObjectImporter;

/// Is told which object the user has picked on the import screen.
class ObjectImportVCDelegate {
public:
    virtual ~ObjectImportVCDelegate() = default;

    virtual void objectChosen(const scene::SCNNodePtr& node) = 0;
};

/// A row of the list.
struct ObjectRowData {
    Q_GADGET
    QML_VALUE_TYPE(objectRowData)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(bool isObject MEMBER isObject)

public:
    QString name;
    bool isObject = false; ///< otherwise a part of one, such as a picture

    friend bool operator==(const ObjectRowData&, const ObjectRowData&) = default;
};

/// Makes the list type known to QML's tools.
struct ObjectRowDataList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::ObjectRowData>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::ObjectRowData)
};

/// The name that is typed for a file, inside an alert.
class RenameField final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QString text MEMBER text NOTIFY edited)

public:
    explicit RenameField(QString name)
        : text(std::move(name)) {}

    QString text;

Q_SIGNALS:
    void edited();
};

/// The screen of imported objects: import, rename, delete, inspect, pick one for the stage.
class ObjectController final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(QList<zelvo::ui::ObjectRowData> rows READ rows NOTIFY changed)
    Q_PROPERTY(int currentRow READ currentRow WRITE setCurrentRow NOTIFY currentRowChanged)
    Q_PROPERTY(double cellHeight MEMBER cellHeight CONSTANT)
    Q_PROPERTY(QStringList nameFilters READ nameFilters CONSTANT)
    Q_PROPERTY(QUrl downloads READ downloads CONSTANT)
    Q_PROPERTY(zelvo::ui::ObjectInfoController* info READ info NOTIFY infoChanged)

public:
    ObjectController(const Services& given, ObjectImporter& importer);
    ~ObjectController() override;

    /// Of the info screen that was pushed last; null: none is shown.
    std::unique_ptr<ObjectInfoController> objInfoViewController;
    double cellHeight = 48; ///< device-independent pixels

    /// The delegate is forgotten when its lifetime ends.
    void setDelegate(ObjectImportVCDelegate& given, const foundation::Lifetime& itsLifetime);
    /// Called with the file of a row that was picked; set by the owner.
    std::function<void(const std::filesystem::path&)> load;
    /// The file has been loaded: hands the object to the delegate and closes the screen.
    void didLoad(const scene::SCNNodePtr& node);

    [[nodiscard]] const QList<ObjectRowData>& rows() const { return rows_; }

    /// The row that keys act on. It stays with its file when other rows come or go, and when the file
    /// gets another name. When its file goes, the next one has it.
    [[nodiscard]] int currentRow() const { return currentRow_; }

    void setCurrentRow(int row) { currentRow_ = row; }

    /// For the file dialog.
    [[nodiscard]] static QStringList nameFilters();
    [[nodiscard]] static QUrl downloads();

    [[nodiscard]] ObjectInfoController* info() const { return objInfoViewController.get(); }

    Q_INVOKABLE void showHowto();
    Q_INVOKABLE void importFrom(const QList<QUrl>& files);
    Q_INVOKABLE void deleteRow(int row);
    /// Asks for the new name.
    Q_INVOKABLE void renameRow(int row);
    /// Loads the file, whatever it is.
    Q_INVOKABLE void pickRow(int row);
    /// Pushes the screen about an object. Does nothing for other files.
    Q_INVOKABLE void infoAboutObjectFile(int row);
    Q_INVOKABLE void popInfo();
    Q_INVOKABLE void dismissViewController();

Q_SIGNALS:
    void changed();
    void currentRowChanged();
    void infoChanged();
    void dismissed();

private:
    struct Delegate {
        ObjectImportVCDelegate& object;
        foundation::Lifetime::Watch lifetime;
    };

    void reload();
    [[nodiscard]] QString currentName() const;

    [[nodiscard]] bool isRow(int row) const { return row >= 0 && row < rows_.size(); }

    [[nodiscard]] std::filesystem::path fileOf(int row) const;
    void renameTo(const QString& name, const QString& wanted);

    Services services;
    ObjectImporter& objects;
    QList<ObjectRowData> rows_;
    int currentRow_ = 0;
    QString renamed; ///< what the current file is called once the list is read again
    std::optional<Delegate> delegate;
    foundation::Lifetime lifetime;
};

} // namespace zelvo::ui
