#pragma once

#include <filesystem>
#include <string>

namespace host {

// All bytes of a file. On failure empty, and the error (one line that names the file) is not; else
// it is empty.
std::string readWholeFile(const std::filesystem::path& path, std::string& error);

} // namespace host
