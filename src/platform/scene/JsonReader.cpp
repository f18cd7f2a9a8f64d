// SPDX-License-Identifier: MIT
#include "platform/scene/JsonReader.h"

#include <fmt/format.h>
#include <rapidjson/error/en.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvo::scene {

namespace {

constexpr std::size_t kMaxBytes = 4U << 20U;
constexpr float kMaxCoordinate =
    1e6f; ///< scene units, degrees, factors: far above what a stage needs

std::string rangeText(Range range) {
    if (std::isinf(range.most))
        return fmt::format("{} or more", range.least);
    return fmt::format("{} to {}", range.least, range.most);
}

} // namespace

void JsonFault::report(const std::string& path, const std::string& message) {
    if (error_)
        return;
    const foundation::Error error{foundation::Cause::malformed, message};
    error_ = path.empty() ? error : error.in(path);
}

JsonObject::JsonObject(const rapidjson::Value& value, std::string where, JsonFault& shared)
    : object(value)
    , path(std::move(where))
    , fault(shared) {
    if (!object.IsObject())
        fault.report(path, "must be an object");
}

std::optional<double> JsonObject::number(std::string_view key, Range range) {
    const rapidjson::Value* found = value(key);
    if (found == nullptr)
        return {};
    if (found->IsNumber()) {
        const double number = found->GetDouble();
        if (number >= range.least && number <= range.most)
            return number;
    }
    report(key, "must be a number, " + rangeText(range));
    return {};
}

std::optional<int> JsonObject::integer(std::string_view key, Range range) {
    const rapidjson::Value* found = value(key);
    if (found == nullptr)
        return {};
    if (found->IsInt() && found->GetInt() >= range.least && found->GetInt() <= range.most)
        return found->GetInt();
    report(key, "must be a whole number, " + rangeText(range));
    return {};
}

std::optional<bool> JsonObject::boolean(std::string_view key) {
    const rapidjson::Value* found = value(key);
    if (found == nullptr)
        return {};
    if (found->IsBool())
        return found->GetBool();
    report(key, "must be true or false");
    return {};
}

std::optional<std::string> JsonObject::text(std::string_view key) {
    const rapidjson::Value* found = value(key);
    if (found == nullptr)
        return {};
    if (found->IsString())
        return std::string(found->GetString(), found->GetStringLength());
    report(key, "must be a text");
    return {};
}

std::optional<glm::vec3> JsonObject::vector3(std::string_view key) {
    const auto numbers = floats(key, 3);
    if (!numbers)
        return {};
    return glm::vec3((*numbers)[0], (*numbers)[1], (*numbers)[2]);
}

std::optional<glm::vec2> JsonObject::vector2(std::string_view key) {
    const auto numbers = floats(key, 2);
    if (!numbers)
        return {};
    return glm::vec2((*numbers)[0], (*numbers)[1]);
}

std::optional<std::vector<float>> JsonObject::floats(std::string_view key, unsigned count) {
    const rapidjson::Value* found = value(key);
    if (found == nullptr)
        return {};
    std::vector<float> numbers;
    if (found->IsArray() && found->Size() == count) {
        for (const rapidjson::Value& entry : found->GetArray()) {
            if (!entry.IsNumber() || std::abs(entry.GetDouble()) > kMaxCoordinate)
                break;
            numbers.push_back(static_cast<float>(entry.GetDouble()));
        }
    }
    if (numbers.size() == count)
        return numbers;
    report(key, fmt::format("must be {} numbers, none beyond {}", count, kMaxCoordinate));
    return {};
}

const rapidjson::Value* JsonObject::value(std::string_view key) {
    asked.push_back(key);
    if (!object.IsObject())
        return nullptr;
    const rapidjson::Value name(
        rapidjson::StringRef(key.data(), static_cast<rapidjson::SizeType>(key.size())));
    const auto member = object.FindMember(name);
    return member == object.MemberEnd() ? nullptr : &member->value;
}

void JsonObject::forEach(
    std::string_view key,
    const std::function<void(const rapidjson::Value&, const std::string&)>& entry) {
    const rapidjson::Value* found = value(key);
    if (found == nullptr)
        return;
    if (!found->IsArray()) {
        report(key, "must be a list");
        return;
    }
    for (rapidjson::SizeType i = 0; i < found->Size(); ++i) {
        entry((*found)[i], fmt::format("{}[{}]", pathOf(key), i));
    }
}

std::string JsonObject::pathOf(std::string_view key) const {
    return path.empty() ? std::string(key) : fmt::format("{}.{}", path, key);
}

void JsonObject::report(std::string_view key, const std::string& message) {
    fault.report(pathOf(key), message);
}

void JsonObject::finish() {
    if (!object.IsObject())
        return;
    std::vector<std::string_view> seen;
    for (const auto& member : object.GetObject()) {
        const std::string_view key(member.name.GetString(), member.name.GetStringLength());
        if (std::find(asked.begin(), asked.end(), key) == asked.end())
            report(key, "unknown key");
        if (std::find(seen.begin(), seen.end(), key) != seen.end())
            report(key, "stands twice");
        seen.push_back(key);
        if (fault.error())
            return; // a long list of strangers costs no more than the first
    }
}

foundation::Result<rapidjson::Document> parseJson(const std::string& text) {
    if (text.size() > kMaxBytes)
        return foundation::fail(foundation::Cause::tooLarge, "is over 4 MiB");
    rapidjson::Document document;
    // Iterative: depth of nesting must not be depth of the machine's stack.
    document.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag>(
        text.data(), text.size());
    if (!document.HasParseError())
        return document;
    const auto end = text.begin() +
                     static_cast<std::ptrdiff_t>(std::min(document.GetErrorOffset(), text.size()));
    return foundation::fail(
        foundation::Cause::malformed,
        fmt::format(
            "line {}: {}",
            1 + std::count(text.begin(), end, '\n'),
            rapidjson::GetParseError_En(document.GetParseError())));
}

} // namespace zelvo::scene
