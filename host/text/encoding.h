#pragma once

#include "host/text/code_page.h"

#include <string>
#include <string_view>

// Text at the edges of the program and text inside. A wide character is one code point.
// A byte that does not decode becomes U+DC80 to U+DCFF, after its value, and goes back as that
// byte, so that text in an unexpected encoding survives being read and written.
namespace host {

std::wstring fromUtf8(std::string_view bytes);

// What is no code point (a surrogate outside U+DC80 to U+DCFF, a value above U+10FFFF) becomes
// U+FFFD.
std::string toUtf8(std::wstring_view text);

} // namespace host
