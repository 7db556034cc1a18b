#pragma once

#include <string>
#include <string_view>

// Standard output in UTF-8. Whole lines appear soon, an unfinished one (a prompt) with flush().
// Once nobody reads any more, the rest is dropped and the program goes on; also, and told, when it
// cannot be written.
class ConsoleOutput {
public:
    ConsoleOutput() = default;
    ~ConsoleOutput() { flush(); }
    ConsoleOutput(const ConsoleOutput&) = delete;
    ConsoleOutput& operator=(const ConsoleOutput&) = delete;

    void write(std::wstring_view text);
    void flush();
    void flushLines(); // not an unfinished one
    // Shows the whole lines and gives the unfinished one, which somebody else shows.
    std::string takeUnfinished();

private:
    void put(std::string_view bytes);

    std::string pending_;
    bool broken_ = false;
};

// "kelmaro: " and the text, as a line on standard error.
void reportTrouble(std::string_view text);
void reportTrouble(std::wstring_view text);
