#pragma once

#include <filesystem>
#include <string>

namespace host {

// "cannot write '/maps/a.dxf': no space left on the disk", from a system call's error number.
std::string fileError(const char* action, const std::filesystem::path& path, int errorNumber);
std::string fileError(const char* action, const std::filesystem::path& path,
                      const std::string& reason);

} // namespace host
