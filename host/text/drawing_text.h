#pragma once

#include "host/text/code_page.h"

#include <string>
#include <string_view>

// Text as it stands in a drawing file, which spells some characters out:
//
//     \U+XXXX   a code point in four hexadecimal digits, a pair of surrogates above U+FFFF
//     \M+nXXXX  a character of a multi-byte page (n from 1: 932, 950, 949, 1361, 936), by its bytes
//     ^J        a control character: the one 64 below the letter, from ^@ to ^_
//     ^         followed by a blank: the caret itself
//
// Anything else that begins with "\" or "^" is text, an escape that names no character too. There
// is no way to write a text that reads "\U+00E9" itself: it is written as it is and read as one
// character, in UTF-8 as in any other page.
namespace host {

std::wstring decodeDrawingText(std::string_view bytes, const CodePage& page);

// Never holds a control character; what the page lacks is spelled \U+XXXX.
std::string encodeDrawingText(std::wstring_view text, const CodePage& page);

} // namespace host
