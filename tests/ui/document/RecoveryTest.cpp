// SPDX-License-Identifier: MIT
#include "ui/document/Recovery.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace zelvo::ui {

namespace {

std::string content(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// A text that shows if it is cut or mixed with another one.
std::string numbered(int number) {
    return std::to_string(number) + std::string(20'000, static_cast<char>('a' + number % 26)) +
           "." + std::to_string(number);
}

/// Keeps one text after the other until it is killed, and says through the pipe which one is kept.
[[noreturn]] void keepForEver(const std::filesystem::path& state, int pipe) {
    Recovery recovery(state);
    for (int number = 1;; ++number) {
        if (!recovery.keep(numbered(number), "/home/me/film.zelvo"))
            _exit(1);
        if (write(pipe, &number, sizeof number) != sizeof number)
            _exit(1);
    }
}

/// The last number, after the first, which was read before.
int lastOf(int pipe, int first) {
    int last = first;
    for (int number = 0; read(pipe, &number, sizeof number) == sizeof number;)
        last = number;
    return last;
}

} // namespace

TEST(Recovery, of_a_killed_process_has_its_last_whole_document) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        const test::TemporaryFolder state;
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t child = fork();
        if (child == 0)
            keepForEver(state.path(), ends[1]);
        close(ends[1]);
        int first = 0;
        ASSERT_EQ(read(ends[0], &first, sizeof first), ssize_t{sizeof first});
        usleep(static_cast<unsigned>(random() % 10'000)); // some writings long, at no certain place
        kill(child, SIGKILL);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        const int last = lastOf(ends[0], first);
        close(ends[0]);

        Recovery next(state.path());
        const auto left = next.left();
        ASSERT_EQ(left.size(), 1U);
        const std::string kept = content(left.front().document);
        const int number = std::stoi(kept);
        EXPECT_EQ(kept, numbered(number));
        EXPECT_GE(number, last);
        EXPECT_LE(number, last + 1);
        EXPECT_EQ(left.front().origin, "/home/me/film.zelvo");
    }
}

TEST(Recovery, is_offered_to_one_window_and_never_that_of_a_living_one) {
    const test::TemporaryFolder state;
    Recovery first(state.path());
    ASSERT_TRUE(first.keep("mine", ""));
    Recovery second(state.path());
    EXPECT_TRUE(second.left().empty()) << "the first window lives";
    ASSERT_TRUE(second.keep("other", "/b"));
    {
        Recovery dying(state.path());
        ASSERT_TRUE(dying.keep("left", "/c"));
    } // it has not called clear
    const auto left = second.left();
    ASSERT_EQ(left.size(), 1U);
    ASSERT_TRUE(first.take(left.front()));
    EXPECT_FALSE(second.take(left.front())) << "the first window was faster";
    EXPECT_EQ(content(left.front().document), "left");
    first.clear();
    EXPECT_FALSE(std::filesystem::exists(left.front().folder));
    second.clear();
    EXPECT_TRUE(second.left().empty());
}

} // namespace zelvo::ui
