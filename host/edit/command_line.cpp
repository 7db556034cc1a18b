#include "host/edit/command_line.h"

#include "host/edit/command_engine.h"
#include "host/text/wide_format.h"

#include <cstdarg>

int acutPrintf(const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    host::print(host::formatList(format, arguments));
    va_end(arguments);
    return RTNORM;
}

int acedAlert(const wchar_t* text)
{
    if (host::engineExists())
        host::engine().transcript().freshLine();
    host::print(std::wstring(text) + L'\n');
    return RTNORM;
}

void host::print(std::wstring_view text)
{
    if (engineExists())
        engine().print(text);
}
