#pragma once

#include <string>
#include <string_view>

namespace host {

// The letters of a multi-line text without its format codes: "\P" and "\N" begin a line, "\~" is a
// blank that does not break, "\\", "\{" and "\}" stand for themselves, "\S1/2;" reads 1/2. Braces
// that group, and codes with their parameters up to ";" ("\H2.5x;", "\fArial|b0;"), go. "%%d",
// "%%c" and "%%p" are the signs for degrees, diameter and plus-minus; "%%nnn" is the character of
// that number. Lines end in "\n".
std::wstring plainText(std::wstring_view contents);

} // namespace host
