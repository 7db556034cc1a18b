#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

// A folder of its own for each test, removed with all that is in it.
class TemporaryFolder : public testing::Test {
protected:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "files_test_XXXXXX").string();
        folder_ = std::filesystem::canonical(mkdtemp(name.data()));
    }
    ~TemporaryFolder() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    std::filesystem::path make(const std::string& name, const std::string& bytes = "x") const
    {
        const std::filesystem::path path = folder_ / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }

    static std::string contents(const std::filesystem::path& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::size_t fileCount() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder_),
                                                      std::filesystem::directory_iterator()));
    }

    std::filesystem::path folder_;
};
