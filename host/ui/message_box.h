#pragma once

inline constexpr unsigned MB_OK = 0x0;
inline constexpr unsigned MB_OKCANCEL = 0x1;
inline constexpr unsigned MB_YESNOCANCEL = 0x3;
inline constexpr unsigned MB_YESNO = 0x4;
inline constexpr unsigned MB_ICONERROR = 0x10;
inline constexpr unsigned MB_ICONWARNING = 0x30;
inline constexpr unsigned MB_ICONINFORMATION = 0x40;

inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

// Prints title and text, each on a line of its own. A box with a choice asks for it, the first
// button being the answer of Enter alone; a cancel is IDCANCEL, or IDNO where there is no such
// button.
int MessageBoxW(void* owner, const wchar_t* text, const wchar_t* caption, unsigned type);
