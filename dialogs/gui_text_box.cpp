#include "dialogs/gui_text_box.h"

void GUITextBox::SetText(std::wstring_view lines)
{
    text.clear();
    std::size_t begin = 0;
    for (std::size_t at = 0; (at = lines.find(L'\n', at)) != std::wstring_view::npos;
         begin = at++) {
        text += lines.substr(begin, at - begin);
        text += L'\r';
    }
}

int GUITextBox::DoModal()
{
    // a model's lines are apart by line feeds alone
    box_.text = text;
    std::erase(box_.text, L'\r');
    return ModalDialog::DoModal();
}
