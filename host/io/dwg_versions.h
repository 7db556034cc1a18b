#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {

// "AutoCAD 2010 (AC1024)" for the bytes of a DWG file; nothing for any other file.
std::optional<std::wstring> dwgRelease(std::string_view file);

} // namespace host
