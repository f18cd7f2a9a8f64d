// SPDX-License-Identifier: MIT
#include "platform/foundation/UserDefaults.h"

#include "platform/foundation/Console.h"

#include <fmt/format.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QTemporaryFile>

#include <utility>

namespace zelvo::foundation {

namespace {

constexpr qint64 kMaxBytes = 1 << 20;

std::optional<UserDefaults::Value> fromJSON(const QJsonValue& json) {
    if (json.isBool())
        return json.toBool();
    if (json.isDouble())
        return json.toDouble();
    if (json.isString())
        return json.toString().toStdString();
    if (!json.isArray())
        return {};
    std::vector<std::string> strings;
    for (const QJsonValue item : json.toArray()) {
        if (!item.isString())
            return {};
        strings.push_back(item.toString().toStdString());
    }
    return strings;
}

struct ToJSON {
    QJsonValue operator()(bool value) const { return value; }

    QJsonValue operator()(double value) const { return value; }

    QJsonValue operator()(const std::string& value) const { return QString::fromStdString(value); }

    QJsonValue operator()(const std::vector<std::string>& value) const {
        QJsonArray array;
        for (const std::string& item : value) {
            array.append(QString::fromStdString(item));
        }
        return array;
    }
};

using Values = std::map<std::string, UserDefaults::Value>;

/// Nothing if the file is missing or damaged.
std::optional<Values> readValues(const std::filesystem::path& file) {
    QFile in(QString::fromStdString(file.string()));
    if (file.empty() || !in.open(QIODevice::ReadOnly) || in.size() > kMaxBytes)
        return {};
    const auto document = QJsonDocument::fromJson(in.readAll());
    if (!document.isObject())
        return {};
    Values values;
    const QJsonObject object = document.object();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        if (auto value = fromJSON(entry.value()))
            values[entry.key().toStdString()] = *value;
    }
    return values;
}

/// Another window may have changed other values since; they must not be written back as they were.
void takeChangesOfOthers(Values& values, const std::filesystem::path& file) {
    if (auto current = readValues(file))
        values = *std::move(current);
}

// Both ways of writing replace the file in one step, so that a crash leaves the old one or the new
// one. They return what went wrong; empty: nothing.

QString writeToDisk(const std::filesystem::path& file, const QByteArray& content) {
    QSaveFile out(QString::fromStdString(file.string()));
    const bool isSaved = out.open(QIODevice::WriteOnly) && out.write(content) >= 0 && out.commit();
    return isSaved ? QString() : out.errorString();
}

/// Does not wait until the disk has it.
QString writeSoon(const std::filesystem::path& file, const QByteArray& content) {
    QTemporaryFile out(QString::fromStdString(file.string() + ".XXXXXX"));
    if (!out.open() || out.write(content) < 0 || !out.flush())
        return out.errorString();
    std::error_code error;
    std::filesystem::rename(out.fileName().toStdString(), file, error);
    if (error)
        return QString::fromStdString(error.message());
    out.setAutoRemove(false);
    return {};
}

} // namespace

UserDefaults::UserDefaults(std::filesystem::path path)
    : file(std::move(path)) {
    takeChangesOfOthers(values, file);
}

// One reader for all types; a value of another type counts as missing.
template <class T>
static std::optional<T>
valueOf(const std::map<std::string, UserDefaults::Value>& values, const std::string& key) {
    const auto entry = values.find(key);
    if (entry == values.end())
        return {};
    const T* value = std::get_if<T>(&entry->second);
    return value != nullptr ? std::optional<T>(*value) : std::nullopt;
}

std::optional<std::string> UserDefaults::string(const std::string& key) const {
    return valueOf<std::string>(values, key);
}

std::optional<std::vector<std::string>> UserDefaults::strings(const std::string& key) const {
    return valueOf<std::vector<std::string>>(values, key);
}

std::optional<bool> UserDefaults::boolean(const std::string& key) const {
    return valueOf<bool>(values, key);
}

std::optional<double> UserDefaults::number(const std::string& key) const {
    return valueOf<double>(values, key);
}

void UserDefaults::refresh() {
    if (!hasReportedUnwritable) // else the file is older than what is in memory
        takeChangesOfOthers(values, file);
}

void UserDefaults::set(const std::string& key, Value value, Outlives crash) {
    refresh();
    values[key] = std::move(value);
    save(crash);
}

void UserDefaults::remove(const std::string& key, Outlives crash) {
    refresh();
    if (values.erase(key) > 0)
        save(crash);
}

void UserDefaults::save(Outlives crash) {
    if (file.empty())
        return;
    QJsonObject object;
    for (const auto& [key, value] : values) {
        object[QString::fromStdString(key)] = std::visit(ToJSON{}, value);
    }
    std::error_code ignored;
    std::filesystem::create_directories(file.parent_path(), ignored);
    const QByteArray json = QJsonDocument(object).toJson();
    const QString error =
        crash == Outlives::machine ? writeToDisk(file, json) : writeSoon(file, json);
    if (error.isEmpty() || hasReportedUnwritable)
        return;
    hasReportedUnwritable = true;
    logLine(fmt::format("{}: settings cannot be saved ({})", file.string(), error.toStdString()));
}

} // namespace zelvo::foundation
