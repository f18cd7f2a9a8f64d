// SPDX-License-Identifier: MIT
#include "ui/imports/ObjectController.h"

#include "platform/foundation/RunLoop.h"
#include "platform/object/reading/ObjectReader.h"
#include "platform/text/NameOrder.h"
#include "ui/controls/Alerts.h"
#include "ui/imports/ObjectImporter.h"

#include <QStandardPaths>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace zelvo::ui {

namespace {

/// As for the user; names that are the same to the user by their letters, so that the order is
/// always the same.
bool comesBefore(const std::string& first, const std::string& second) {
    if (text::comesBefore(first, second))
        return true;
    return !text::comesBefore(second, first) && first < second;
}

} // namespace

ObjectController::ObjectController(const Services& given, ObjectImporter& importer)
    : services(given)
    , objects(importer) {
    objects.objectsChanged.subscribe(
        lifetime, [this](bool) { services.runLoop.post(lifetime.guard([this] { reload(); })); });
    reload();
}

ObjectController::~ObjectController() = default;

void ObjectController::setDelegate(
    ObjectImportVCDelegate& given, const foundation::Lifetime& itsLifetime) {
    delegate.emplace(Delegate{given, itsLifetime.watch()});
}

void ObjectController::reload() {
    std::vector<std::string> names = objects.list();
    std::ranges::sort(names, &comesBefore);
    QList<ObjectRowData> rows;
    for (const std::string& name : names)
        rows.append({QString::fromStdString(name), objectFileKind(name) == ObjectFile::object});
    if (rows_ == rows)
        return;
    const auto kept = std::ranges::find(rows, currentName(), &ObjectRowData::name);
    const int row =
        kept != rows.end()
            ? static_cast<int>(std::distance(rows.begin(), kept))
            : std::clamp(currentRow_, 0, std::max(0, static_cast<int>(rows.size()) - 1));
    rows_ = std::move(rows);
    renamed.clear();
    Q_EMIT changed(); // the view begins at the first row again
    currentRow_ = row;
    Q_EMIT currentRowChanged();
}

QString ObjectController::currentName() const {
    if (!renamed.isEmpty())
        return renamed;
    return isRow(currentRow_) ? rows_[currentRow_].name : QString();
}

QStringList ObjectController::nameFilters() {
    QStringList objects;
    for (const std::string_view extension : object::objectExtensions())
        objects.append(
            "*" + QString::fromUtf8(extension.data(), static_cast<qsizetype>(extension.size())));
    constexpr const char* kParts = "*.mtl *.bin *.png *.jpg *.jpeg *.webp *.tga *.bmp *.tif *.tiff";
    return {
        tr("3D objects, their parts, archives (%1)")
            .arg(QStringLiteral("%1 %2 *.zip").arg(objects.join(' '), kParts)),
        tr("All files (*)")};
}

QUrl ObjectController::downloads() {
    return QUrl::fromLocalFile(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
}

void ObjectController::showHowto() {
    const QStringList paragraphs{
        tr("Zelvo lets you import USDZ & Wavefront .obj files, their associated material .mtl "
           "files and thereby the import of textures in form of (png & jpeg) images. Zip files are "
           "unzipped to the one main directory."),
        tr("glTF, GLB and STL files can be imported as well. You can also drop files or a folder "
           "on the window."),
        tr("Does an object not look as it should? Send its files, with a picture of what you "
           "expect, to the people from whom you have Zelvo.")};
    services.alerts.showAlert(
        (tr("USDZ & Wavefront .obj") + "\n" + tr("3D Import")).toStdString(),
        paragraphs.join(QStringLiteral("\n\n")).toStdString());
}

void ObjectController::importFrom(const QList<QUrl>& files) {
    services.runLoop.post(lifetime.guard([this, files] {
        std::vector<std::filesystem::path> paths;
        for (const QUrl& file : files)
            paths.emplace_back(file.toLocalFile().toStdString());
        (void)objects.importFiles(paths);
    }));
}

std::filesystem::path ObjectController::fileOf(int row) const {
    return objects.folder() / rows_[row].name.toStdString();
}

void ObjectController::deleteRow(int row) {
    if (isRow(row))
        objects.deleteObject(rows_[row].name.toStdString());
}

void ObjectController::renameRow(int row) {
    if (!isRow(row))
        return;
    const QString name = rows_[row].name;
    // The alert may stand longer than this screen.
    const std::shared_ptr<RenameField> field(
        new RenameField(name), [](RenameField* old) { old->deleteLater(); });
    services.alerts.show(
        {.title = tr("Rename").toStdString(),
         .actions =
             {{.title = tr("OK").toStdString(),
               .handler = [field, renamed = lifetime.guard([this, name](const QString& to) {
                   renameTo(name, to);
               })] { renamed(field->text); }},
              {.title = tr("Cancel").toStdString(), .role = AlertRole::cancel}},
         .content = field.get(),
         .contentView = "RenameField"});
}

void ObjectController::renameTo(const QString& name, const QString& wanted) {
    if (wanted.isEmpty() || wanted == name)
        return;
    const auto done = objects.rename(name.toStdString(), wanted.toStdString());
    if (!done)
        services.alerts.showAlert(done.error().message, wanted.toStdString());
    else if (currentName() == name)
        renamed = wanted;
}

void ObjectController::pickRow(int row) {
    if (isRow(row) && load)
        load(fileOf(row));
}

void ObjectController::didLoad(const scene::SCNNodePtr& node) {
    if (delegate && !delegate->lifetime.hasEnded())
        delegate->object.objectChosen(node);
    dismissViewController();
}

void ObjectController::infoAboutObjectFile(int row) {
    if (!isRow(row) || !rows_[row].isObject)
        return;
    objInfoViewController = std::make_unique<ObjectInfoController>(services, fileOf(row));
    Q_EMIT infoChanged();
}

/// The view still uses the controller when it is told.
void ObjectController::popInfo() {
    if (auto former = std::exchange(objInfoViewController, nullptr)) {
        Q_EMIT infoChanged();
        former.release()->deleteLater();
    }
}

void ObjectController::dismissViewController() {
    Q_EMIT dismissed();
}

} // namespace zelvo::ui
