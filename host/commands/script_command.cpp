#include "host/commands/script_command.h"

#include "host/edit/command_engine.h"
#include "host/edit/command_line.h"
#include "host/edit/typed_input.h"
#include "host/files/open_file.h"
#include "host/files/paths.h"
#include "host/text/encoding.h"
#include "host/ui/file_dialog.h"

namespace host {

void scriptCommand()
{
    CAcUiFileDialog dialog(true, L"scr", {}, 0, L"Script (*.scr)|*.scr||", nullptr);
    if (dialog.DoModal() != IDOK)
        return;
    std::string error;
    const std::string bytes = readWholeFile(toPath(dialog.GetPathName()), error);
    if (!error.empty()) {
        print(fromUtf8(error) + L"\n");
        return;
    }
    std::wstring text = fromUtf8(bytes);
    if (text.starts_with(L'\uFEFF'))
        text.erase(0, 1);
    text = withoutComments(text);
    if (!text.empty() && text.back() != L'\n' && text.back() != L'\r')
        text += L'\n'; // its last line must not run into what is typed next
    engine().runScript(text);
}

} // namespace host
