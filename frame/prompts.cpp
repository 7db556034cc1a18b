#include "frame/prompts.h"

#include "host/edit/prompts.h"
#include "host/runtime/resbuf.h"
#include "text/number_text.h"

#include <algorithm>

std::optional<std::wstring> askObjectName()
{
    std::wstring name;
    if (acedGetString(1, filledIn(Message::objectPrompt).c_str(), name) != RTNORM)
        return std::nullopt;
    return name;
}

bool askZeroOne(Message question, int& kept)
{
    std::wstring answer;
    if (acedGetString(0, filledIn(question, kept).c_str(), answer) != RTNORM)
        return false;
    if (!answer.empty())
        kept = std::clamp(leadingInteger(answer), 0, 1);
    return true;
}
