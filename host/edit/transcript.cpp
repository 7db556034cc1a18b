#include "host/edit/transcript.h"

namespace host {

void Transcript::put(std::wstring_view text)
{
    if (text.empty())
        return;
    lineEmpty_ = text.back() == L'\n';
    if (sink_)
        sink_(text);
}

void Transcript::print(std::wstring_view text)
{
    if (text.empty())
        return;
    if (answered_ && text.front() == L'\n')
        text.remove_prefix(1);
    answered_ = false;
    put(text);
}

void Transcript::echo(std::wstring_view answer)
{
    put(std::wstring(answer) + L'\n');
    answered_ = true;
}

void Transcript::echoedByTerminal()
{
    lineEmpty_ = true;
    answered_ = true;
}

void Transcript::freshLine()
{
    if (!lineEmpty_)
        put(L"\n");
    answered_ = false;
}

} // namespace host
