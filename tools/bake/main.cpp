// SPDX-License-Identifier: MIT
#include "Recipe.h"
#include "platform/image/Formats.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

// zelvo_bake FOLDER [KEY [NAME…]]
//
// Makes all binary resources in the folder. If the folder was already baked with the same key (a
// digest of the recipes' sources), nothing is done. With names, only these resources are made.

namespace zelvo::bake {

namespace {

/// Locks the folder while it is baked, because several build trees share it.
class FolderLock {
public:
    explicit FolderLock(const std::filesystem::path& folder)
        : file(open((folder / "bake.lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0644)) {
        if (file >= 0)
            flock(file, LOCK_EX);
    }

    ~FolderLock() {
        if (file >= 0)
            close(file);
    }

    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int file;
};

/// The manifest of a folder that is up to date.
std::string manifest(const std::vector<Recipe>& recipes, std::string_view key) {
    std::string text = fmt::format("{}\n", key);
    for (const Recipe& recipe : recipes)
        text += fmt::format("{}\n", recipe.name);
    return text;
}

bool isUpToDate(
    const std::filesystem::path& folder,
    const std::vector<Recipe>& recipes,
    const std::string& wanted) {
    std::ifstream in(folder / "bake.manifest");
    const std::string found{std::istreambuf_iterator<char>(in), {}};
    return found == wanted && std::ranges::all_of(recipes, [&](const Recipe& recipe) {
               return std::filesystem::exists(folder / recipe.name);
           });
}

/// Bakes on all cores. Returns the number of failures.
int bakeAll(const std::vector<Recipe>& recipes, const std::filesystem::path& folder) {
    std::atomic<std::size_t> next = 0;
    std::atomic<int> failures = 0;
    const auto work = [&] {
        for (std::size_t i = next++; i < recipes.size(); i = next++) {
            const Recipe& recipe = recipes[i];
            const auto stored =
                store(recipe.make(recipe.width, recipe.height), recipe.name, folder);
            if (stored)
                continue;
            ++failures;
            fmt::print(stderr, "zelvo_bake: {}\n", stored.error().message);
        }
    };
    const unsigned count = std::clamp(std::thread::hardware_concurrency(), 1U, 16U);
    std::vector<std::jthread> workers;
    for (unsigned i = 0; i < count; ++i)
        workers.emplace_back(work);
    workers.clear();
    return failures;
}

int run(const std::vector<std::string>& arguments) {
    if (arguments.empty()) {
        fmt::print(stderr, "usage: zelvo_bake FOLDER [KEY [NAME...]]\n");
        return 2;
    }
    const std::filesystem::path folder = arguments.front();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    const FolderLock lock(folder);

    std::vector<Recipe> recipes = allRecipes();
    const bool isWhole = arguments.size() <= 2;
    const std::string wanted =
        arguments.size() > 1 ? manifest(recipes, arguments[1]) : std::string();
    if (!isWhole) {
        std::erase_if(recipes, [&](const Recipe& recipe) {
            return std::find(arguments.begin() + 2, arguments.end(), recipe.name) ==
                   arguments.end();
        });
    } else if (!wanted.empty() && isUpToDate(folder, recipes, wanted)) {
        return 0;
    }
    image::loadFormats();
    if (bakeAll(recipes, folder) > 0)
        return 1;
    if (isWhole)
        std::ofstream(folder / "bake.manifest") << wanted;
    fmt::print("baked {} resources into {}\n", recipes.size(), folder.string());
    return 0;
}

} // namespace

} // namespace zelvo::bake

int main(int argc, char** argv) {
    return zelvo::bake::run({argv + 1, argv + argc});
}
