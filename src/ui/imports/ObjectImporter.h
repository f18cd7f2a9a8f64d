// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "shared/Signal.h"
#include "ui/controls/Services.h"

#include <QCoreApplication>
#include <QString>

#include <filesystem>
#include <string>
#include <vector>

namespace zelvo::ui {

/// What a file is to the import of objects, by its name alone.
enum class ObjectFile {
    object,  ///< usdz, usd, usda, usdc, obj, glb, gltf, stl
    part,    ///< of an object: a picture, mtl, bin
    archive, ///< zip
    other
};

[[nodiscard]] ObjectFile objectFileKind(const std::filesystem::path& file);

/// The 3D objects of the user: the folder "ImportedObjects" of the program's data, in which objects,
/// material libraries and pictures are side by side. That is how an object finds its parts by their
/// bare names.
///
/// A file appears there whole or not at all, and replaces one of the same name. Names that differ in
/// case are different names. What goes wrong is shown in an alert.
class ObjectImporter {
    Q_DECLARE_TR_FUNCTIONS(zelvo::ui::ObjectImporter)

public:
    explicit ObjectImporter(const Services& given);

    /// Made if it is missing.
    [[nodiscard]] std::filesystem::path folder() const;
    /// The names of the files in it, in no order; empty if it cannot be read.
    [[nodiscard]] std::vector<std::string> list() const;

    /// Takes in files, archives and folders, one after the other, and the files that an object names
    /// beside it. Returns where the objects are now.
    std::vector<std::filesystem::path> importFiles(const std::vector<std::filesystem::path>& given);

    /// Errors, for the user: `malformed` (no name of a file), `unwritable` (taken, or the system's
    /// reason).
    foundation::Result<void> rename(const std::string& name, const std::string& wanted);
    /// Parts of the object stay. False if there is no such file.
    bool deleteObject(const std::string& name);

    /// After each import, renaming and deletion; whether it was done as asked.
    Signal<bool> objectsChanged;

private:
    using Paths = std::vector<std::filesystem::path>;

    [[nodiscard]] Paths importOne(const std::filesystem::path& file);
    [[nodiscard]] Paths importArchive(const std::filesystem::path& file);
    [[nodiscard]] Paths importFolder(const std::filesystem::path& given);
    [[nodiscard]] foundation::Result<std::filesystem::path>
    place(const std::filesystem::path& file) const;
    void placeAll(const Paths& files, const std::string& source, Paths& objects);
    void refuse(const QString& title, const std::string& message);

    Services services;
};

} // namespace zelvo::ui
