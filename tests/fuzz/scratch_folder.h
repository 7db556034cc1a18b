#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace fuzz {

// A folder of this process alone, gone with it; for the user's profile, which the host fills.
class ScratchFolder {
public:
    ScratchFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "fuzz-XXXXXX").string();
        if (!::mkdtemp(name.data()))
            std::abort();
        path_ = name;
    }
    ~ScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace fuzz
