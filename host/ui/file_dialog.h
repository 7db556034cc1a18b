#pragma once

#include <string>

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;

inline constexpr unsigned OFN_OVERWRITEPROMPT = 0x2;
inline constexpr unsigned OFN_HIDEREADONLY = 0x4;
inline constexpr unsigned OFN_PATHMUSTEXIST = 0x800;
inline constexpr unsigned OFN_FILEMUSTEXIST = 0x1000;
inline constexpr unsigned OFN_CREATEPROMPT = 0x2000;

// Asks for the path of a file on the command line. An empty answer takes the name offered; with
// none offered, and with a cancel, the dialog is cancelled. The answer stands in double quotes
// where it has blanks. A dialog for saving adds the extension where the answer has none, and asks
// before a file is replaced.
class CAcUiFileDialog {
public:
    CAcUiFileDialog(bool openFileDialog, const wchar_t* defaultExtension,
                    const std::wstring& fileName, unsigned flags, const wchar_t* filter,
                    void* parent);

    int DoModal();                                     // IDOK or IDCANCEL
    std::wstring GetPathName() const { return path_; } // absolute, with "/"; empty before IDOK

private:
    bool opens_;
    std::wstring extension_;
    std::wstring offered_;
    unsigned flags_;
    std::wstring path_;
};
