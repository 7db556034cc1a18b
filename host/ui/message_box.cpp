#include "host/ui/message_box.h"

#include "host/edit/command_engine.h"
#include "host/edit/prompts.h"
#include "host/ui/file_dialog.h"

#include <span>
#include <string>

namespace {

constexpr unsigned kButtons = 0xF;

struct Button {
    const wchar_t* keyword;
    int id;
};

constexpr Button kOk[] = {{L"Ok", IDOK}};
constexpr Button kOkCancel[] = {{L"Ok", IDOK}, {L"Cancel", IDCANCEL}};
constexpr Button kYesNoCancel[] = {{L"Yes", IDYES}, {L"No", IDNO}, {L"Cancel", IDCANCEL}};
constexpr Button kYesNo[] = {{L"Yes", IDYES}, {L"No", IDNO}};

std::span<const Button> buttonsOf(unsigned type)
{
    switch (type & kButtons) {
    case MB_OKCANCEL:
        return kOkCancel;
    case MB_YESNOCANCEL:
        return kYesNoCancel;
    case MB_YESNO:
        return kYesNo;
    default:
        return kOk;
    }
}

int choose(std::span<const Button> buttons)
{
    std::wstring keywords;
    std::wstring choices;
    for (const Button& button : buttons) {
        keywords += (keywords.empty() ? L"" : L" ") + std::wstring(button.keyword);
        choices += (choices.empty() ? L"[" : L"/") + std::wstring(button.keyword);
    }
    acedInitGet(0, keywords.c_str());
    std::wstring answer;
    const int result =
        acedGetKword((choices + L"]<" + buttons.front().keyword + L">: ").c_str(), answer);
    if (result == RTNONE)
        return buttons.front().id;
    for (const Button& button : buttons)
        if (result == RTNORM && answer == button.keyword)
            return button.id;
    return buttons.back().id;
}

} // namespace

int MessageBoxW(void*, const wchar_t* text, const wchar_t* caption, unsigned type)
{
    const std::span<const Button> buttons = buttonsOf(type);
    if (!host::engineExists())
        return buttons.back().id;
    host::Transcript& transcript = host::engine().transcript();
    transcript.freshLine();
    if (caption && *caption)
        transcript.print(std::wstring(caption) + L"\n");
    transcript.print(text ? text : L"");
    transcript.freshLine();
    return buttons.size() == 1 ? buttons.front().id : choose(buttons);
}
