// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <zip.h>

#include <filesystem>
#include <list>
#include <string>

namespace zelvo::test {

/// Writes a ZIP archive: add entries, then `close`.
class ZipFile {
public:
    explicit ZipFile(const std::filesystem::path& file)
        : zip(zip_open(file.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr)) {}

    ZipFile(const ZipFile&) = delete;
    ZipFile& operator=(const ZipFile&) = delete;
    ~ZipFile() = default; // an archive that was not closed is a fault of the test

    ZipFile& add(const std::string& name, std::string content = "text", mode_t type = S_IFREG) {
        const std::string& kept = contents.emplace_back(std::move(content));
        zip_source_t* const source = zip_source_buffer(zip, kept.data(), kept.size(), 0);
        last = static_cast<zip_uint64_t>(zip_file_add(zip, name.c_str(), source, ZIP_FL_ENC_UTF_8));
        constexpr unsigned kModeShift = 16;
        const auto attributes = static_cast<zip_uint32_t>((type | 0644U) << kModeShift);
        zip_file_set_external_attributes(zip, last, 0, ZIP_OPSYS_UNIX, attributes);
        return *this;
    }

    ZipFile& addFolder(const std::string& name) {
        zip_dir_add(zip, name.c_str(), ZIP_FL_ENC_UTF_8);
        return *this;
    }

    /// The entry added last.
    ZipFile& encrypt() {
        EXPECT_EQ(zip_file_set_encryption(zip, last, ZIP_EM_AES_256, "secret"), 0);
        return *this;
    }

    void close() { ASSERT_EQ(zip_close(zip), 0) << zip_strerror(zip); }

private:
    zip_t* zip;
    zip_uint64_t last = 0;
    std::list<std::string> contents; ///< read when the archive is closed
};

} // namespace zelvo::test
