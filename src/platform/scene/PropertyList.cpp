// SPDX-License-Identifier: MIT
#include "platform/scene/PropertyList.h"

#include <fmt/format.h>

#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>

namespace zelvo::scene {
namespace {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

constexpr std::size_t kMaxBytes = 64 * 1024;
constexpr int kMaxDepth = 12;
constexpr int kMaxValues = 1000;

class Reader {
public:
    explicit Reader(std::string_view text)
        : xml(QByteArray(text.data(), static_cast<qsizetype>(text.size()))) {}

    [[nodiscard]] Result<PropertyValue> root() {
        if (!xml.readNextStartElement() || xml.name() != QLatin1String("plist"))
            return fault(Cause::malformed, "the file must begin with <plist>");
        if (!xml.readNextStartElement() || xml.name() != QLatin1String("dict"))
            return fault(Cause::malformed, "<plist> must hold a <dict>");
        auto tree = value(1);
        if (!tree)
            return tree;
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::StartElement)
                return fault(Cause::malformed, "there is more than one value in <plist>");
        }
        if (xml.hasError())
            return fault(Cause::malformed, xml.errorString().toStdString());
        return tree;
    }

private:
    [[nodiscard]] tl::unexpected<foundation::Error> fault(Cause cause, std::string_view what) {
        return fail(cause, fmt::format("line {}: {}", xml.lineNumber(), what));
    }

    /// The reader must be at the value's start tag.
    // NOLINTNEXTLINE(misc-no-recursion): as deep as kMaxDepth
    [[nodiscard]] Result<PropertyValue> value(int depth) {
        if (depth > kMaxDepth || ++count > kMaxValues)
            return fault(Cause::tooLarge, "too many values or levels");
        const std::string element = xml.name().toString().toStdString();
        if (element == "dict")
            return dictionary(depth);
        if (element == "array")
            return array(depth);
        if (element != "string" && element != "real" && element != "integer")
            return fault(Cause::unsupported, fmt::format("<{}> is not supported", element));
        const QString text = xml.readElementText();
        if (xml.hasError())
            return fault(Cause::malformed, xml.errorString().toStdString());
        if (element == "string")
            return PropertyValue::string(text.toStdString());
        bool isNumber = false;
        PropertyValue result{.kind = PropertyValue::Kind::number, .text = {}, .values = {}};
        result.number = text.trimmed().toDouble(&isNumber);
        if (!isNumber || !std::isfinite(result.number))
            return fault(Cause::malformed, fmt::format("\"{}\" is no number", text.toStdString()));
        return result;
    }

    // NOLINTNEXTLINE(misc-no-recursion)
    [[nodiscard]] Result<PropertyValue> dictionary(int depth) {
        PropertyValue result;
        while (xml.readNextStartElement()) {
            if (xml.name() != QLatin1String("key"))
                return fault(Cause::malformed, "a <dict> takes a <key> before each value");
            const std::string key = xml.readElementText().toStdString();
            if (result.find(key) != nullptr)
                return fault(Cause::malformed, fmt::format("\"{}\" stands twice", key));
            if (!xml.readNextStartElement())
                return fault(Cause::malformed, fmt::format("\"{}\" has no value", key));
            auto entry = value(depth + 1);
            if (!entry)
                return entry;
            result.values.push_back({key, std::move(*entry)});
        }
        if (xml.hasError())
            return fault(Cause::malformed, xml.errorString().toStdString());
        return result;
    }

    // NOLINTNEXTLINE(misc-no-recursion)
    [[nodiscard]] Result<PropertyValue> array(int depth) {
        std::vector<PropertyValue> items;
        while (xml.readNextStartElement()) {
            auto item = value(depth + 1);
            if (!item)
                return item;
            items.push_back(std::move(*item));
        }
        if (xml.hasError())
            return fault(Cause::malformed, xml.errorString().toStdString());
        return PropertyValue::array(std::move(items));
    }

    QXmlStreamReader xml;
    int count = 0;
};

} // namespace

PropertyValue PropertyValue::string(std::string text) {
    return {.kind = Kind::string, .text = std::move(text), .values = {}};
}

PropertyValue PropertyValue::array(std::vector<PropertyValue> items) {
    PropertyValue result{.kind = Kind::array, .text = {}, .values = {}};
    result.values.reserve(items.size());
    for (PropertyValue& item : items)
        result.values.push_back({{}, std::move(item)});
    return result;
}

PropertyValue PropertyValue::dictionary(std::vector<Entry> entries) {
    return {.kind = Kind::dictionary, .text = {}, .values = std::move(entries)};
}

const PropertyValue* PropertyValue::find(std::string_view key) const {
    const auto found = std::ranges::find(values, key, &Entry::key);
    return kind != Kind::dictionary || found == values.end() ? nullptr : &found->value;
}

Result<PropertyValue> readPropertyList(std::string_view xml) {
    if (xml.size() > kMaxBytes)
        return fail(Cause::tooLarge, fmt::format("over {} bytes", kMaxBytes));
    return Reader(xml).root();
}

Result<PropertyValue> readPropertyListFile(const std::filesystem::path& file) {
    const std::string name = file.filename().string();
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        return fail(Cause::notFound, name + ": the file cannot be opened");
    std::string text(kMaxBytes + 1, '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (stream.bad())
        return fail(Cause::unreadable, name + ": the file cannot be read");
    text.resize(static_cast<std::size_t>(stream.gcount()));
    auto list = readPropertyList(text);
    if (!list)
        return tl::unexpected(list.error().in(name));
    return list;
}

} // namespace zelvo::scene
