#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace host {

// Everything that is shown on the command line, in order. It knows at which column the last line
// ends, so that answers stand behind their prompts and prompts begin where they should.
class Transcript {
public:
    using Sink = std::function<void(std::wstring_view)>;

    explicit Transcript(Sink sink) : sink_(std::move(sink)) {}
    void setSink(Sink sink) { sink_ = std::move(sink); }

    void print(std::wstring_view text);
    // An answer that was not typed at the terminal, and its line end.
    void echo(std::wstring_view answer);
    // The terminal has shown the answer and its line end by itself.
    void echoedByTerminal();
    // A line end, unless the last line is empty.
    void freshLine();

private:
    void put(std::wstring_view text);

    Sink sink_;
    bool lineEmpty_ = true;
    // The last line end is that of an answer. Messages that begin with a line end of their own,
    // as the platform's do to leave the prompt's line, then drop it.
    bool answered_ = false;
};

} // namespace host
