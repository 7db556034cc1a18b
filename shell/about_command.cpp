#include "shell/about_command.h"

#include "dialogs/gui_text_box.h"
#include "frame/command_frame.h"

namespace {

constexpr int kWidth = 500;
constexpr int kHeight = 400;

constexpr const wchar_t* kAbout =
    L"KELMARO\n"
    L"Classifies the entities of a drawing by a description: what they are, how they look and\n"
    L"which attributes they carry.\n"
    L"\n"
    L"Author: the KELMARO project\n"
    L"Contact: where the source of KELMARO is kept\n";

} // namespace

void showAbout()
{
    const ResourceScope resources;
    GUITextBox box;
    box.title = L"About";
    box.SetText(kAbout);
    box.width = kWidth;
    box.height = kHeight;
    box.DoModal();
}
