#pragma once

#include <cstdarg>
#include <string>

namespace host {

// printf for wide text, independent of the locale: %d %i %u %x %X %o %c %s %f %e %g (and %E %G %F)
// with the flags
// "-", "+", " ", "0" and "#" (for %x and %o), width, precision, "*", and the sizes hh, h, l, ll, z,
// j, I64. %s takes const wchar_t*, %c a wide character. Anything else behind "%" is copied as it
// stands.
std::wstring format(const wchar_t* pattern, ...);
std::wstring formatList(const wchar_t* pattern, std::va_list arguments);

} // namespace host
