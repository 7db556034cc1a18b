#include "text/message_sink.h"

std::wstring messageText(std::optional<int> line, Message id, std::wstring_view item)
{
    const std::wstring named(item);
    return line ? filledIn(id, *line, named) : filledIn(id, named);
}

void CommandLineSink::message(std::optional<int> line, Message id, std::wstring_view item)
{
    host::print(messageText(line, id, item));
}
