// SPDX-License-Identifier: MIT
#include "ui/document/Recovery.h"

#include "platform/foundation/NewFile.h"
#include "platform/foundation/WritingError.h"

#include <fcntl.h>
#include <sys/file.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <span>
#include <system_error>
#include <utility>

namespace zelvo::ui {

namespace fs = std::filesystem;

namespace {

using foundation::Descriptor;
using foundation::NewFile;
using foundation::Result;

constexpr const char* kDocument = "document.zelvo";
constexpr const char* kOrigin = "origin";

Result<void> write(const std::string& text, const fs::path& file) {
    return NewFile::create(file).and_then([&](NewFile made) {
        return made.write(std::as_bytes(std::span(text))).and_then([&] { return made.commit(); });
    });
}

/// A lock on the folder; closed if another process has it.
Descriptor lockOn(const fs::path& folder) {
    Descriptor lock(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    const bool isFree = lock.isOpen() && flock(lock.get(), LOCK_EX | LOCK_NB) == 0;
    return isFree ? std::move(lock) : Descriptor();
}

fs::path pathIn(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

} // namespace

Result<void> Recovery::makeFolder() {
    std::error_code ignored; // errors show when the folder is made
    fs::create_directories(all, ignored);
    auto name = (all / "window-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        return tl::unexpected(foundation::writingError(errno, name));
    lock = lockOn(name);
    own = name;
    return {};
}

Result<void> Recovery::keep(const std::string& text, const fs::path& origin) {
    if (own.empty()) {
        if (auto made = makeFolder(); !made)
            return made;
    }
    if (pathIn(own / kOrigin) != origin) {
        if (auto written = write(origin.string(), own / kOrigin); !written)
            return written;
    }
    return write(text, own / kDocument);
}

void Recovery::clear() {
    std::error_code ignored; // what stays is offered again, which does no harm
    if (!own.empty())
        fs::remove_all(own, ignored);
    own.clear();
    lock = Descriptor();
}

std::vector<Recovery::Left> Recovery::left() const {
    std::vector<std::pair<fs::file_time_type, Left>> found;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(all, error)) {
        const fs::path document = entry.path() / kDocument;
        const auto changed = fs::last_write_time(document, error);
        if (!error && lockOn(entry.path()).isOpen())
            found.push_back({changed, {entry.path(), document, pathIn(entry.path() / kOrigin)}});
    }
    std::ranges::sort(found, std::greater(), [](const auto& each) { return each.first; });
    std::vector<Left> newestFirst;
    newestFirst.reserve(found.size());
    for (auto& [changed, each] : found)
        newestFirst.push_back(std::move(each));
    return newestFirst;
}

Result<void> Recovery::take(const Left& left) {
    Descriptor taken = lockOn(left.folder);
    std::error_code error;
    if (!taken.isOpen() || !fs::exists(left.document, error))
        return foundation::fail(
            foundation::Cause::notFound, "another window has opened it already");
    clear();
    own = left.folder;
    lock = std::move(taken);
    return {};
}

} // namespace zelvo::ui
