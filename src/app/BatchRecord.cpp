// SPDX-License-Identifier: MIT
#include "app/BatchRecord.h"

#include "document/PerformanceWriter.h"
#include "document/StylePaths.h"
#include "platform/foundation/JsonObject.h"
#include "platform/foundation/NewFile.h"

#include <fmt/format.h>

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <fstream>
#include <iterator>
#include <span>
#include <system_error>

namespace zelvo::app {

namespace {

constexpr const char* kMovies = "movies";
constexpr const char* kMovie = "movie";
constexpr const char* kKey = "key";

[[nodiscard]] QJsonDocument documentOf(const std::map<std::string, std::string>& keys) {
    QJsonArray movies;
    for (const auto& [movie, key] : keys) {
        movies.append(QJsonObject{
            {kMovie, QString::fromStdString(movie)}, {kKey, QString::fromStdString(key)}});
    }
    return QJsonDocument(QJsonObject{{kMovies, movies}});
}

/// Its size and time; nothing of a file that is not there.
[[nodiscard]] std::string stampOf(const std::filesystem::path& file) {
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    if (error)
        return "missing";
    const auto time = std::filesystem::last_write_time(file, error);
    return fmt::format("{} {}", size, time.time_since_epoch().count());
}

} // namespace

BatchRecord BatchRecord::of(const std::filesystem::path& folder) {
    BatchRecord record(folder);
    std::ifstream in(folder / kFileName, std::ios::binary);
    std::string text(foundation::kMaxJsonBytes + 1, '\0');
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(in.gcount()));
    const auto root = foundation::parseJson(text);
    if (!root)
        return record;
    foundation::Problems problems;
    foundation::JsonObject object(*root, "the record", problems);
    object.forEach(kMovies, [&](const foundation::JsonValue& value, const std::string& place) {
        foundation::JsonObject entry(value, place, problems);
        const auto movie = entry.string(kMovie);
        const auto key = entry.string(kKey);
        if (movie && key)
            record.keys[*movie] = *key;
    });
    return record;
}

bool BatchRecord::has(const std::string& movie, const std::string& key) const {
    std::error_code ignored;
    const auto kept = keys.find(movie);
    return kept != keys.end() && kept->second == key &&
           std::filesystem::is_regular_file(folder / movie, ignored);
}

foundation::Result<void> BatchRecord::add(const std::string& movie, const std::string& key) {
    keys[movie] = key;
    auto file = foundation::NewFile::create(folder / kFileName);
    if (!file)
        return tl::unexpected(file.error());
    const QByteArray text = documentOf(keys).toJson();
    if (auto written = file->write(std::as_bytes(std::span(text.data(), text.size()))); !written)
        return written;
    return file->commit();
}

std::string batchKey(const document::Performance& performance, const BatchCommand& command) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const auto add = [&hash](const std::string& text) {
        hash.addData(QByteArray::fromStdString(text + '\0'));
    };
    add(document::written(performance));
    document::Style style = performance;
    document::forEachPath(style, [&](const std::string& file) { add(stampOf(file)); });
    const auto& quality = command.quality;
    add(fmt::format(
        "{}x{} {} {} {} {} {} {} {}",
        command.size.width,
        command.size.height,
        quality.oversampling,
        quality.samples,
        quality.passes,
        quality.moments,
        command.seed ? std::to_string(*command.seed) : "-",
        command.codec ? static_cast<int>(*command.codec) : -1,
        ZELVO_VERSION));
    return hash.result().toHex().toStdString();
}

} // namespace zelvo::app
