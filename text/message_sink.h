#pragma once

#include "text/messages.h"

#include <optional>
#include <string>
#include <string_view>

// Where the messages of a reader go: the command line when a user loads a file, a list when a test
// does.
class MessageSink {
public:
    virtual ~MessageSink() = default;

    // `line` counts from 1 and is given for the messages that begin with one; `item` is empty for
    // those that name nothing.
    virtual void message(std::optional<int> line, Message id, std::wstring_view item) = 0;
};

// What a sink's message reads like.
std::wstring messageText(std::optional<int> line, Message id, std::wstring_view item);

// Prints on the command line.
class CommandLineSink final : public MessageSink {
public:
    void message(std::optional<int> line, Message id, std::wstring_view item) override;
};
