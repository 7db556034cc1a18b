#include "console/terminal_input.h"

#include "host/edit/command_stack.h"
#include "host/edit/system_variables.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <readline/history.h>
#include <readline/readline.h>
#include <unistd.h>

namespace {

constexpr int kHistoryLines = 1000;
constexpr int kEscape = 27;
constexpr timespec kKeyPause = {0, 100'000'000}; // parts the key Escape from a key that sends more

// What the callbacks of the line editor and the signal handler work on.
host::CommandEngine* theEngine = nullptr;
volatile std::sig_atomic_t interrupted = 0;

enum class LineEnd { open, accepted, endOfInput, cancelled };
LineEnd lineEnd = LineEnd::open;
std::string typedLine;
int lastKey = 0;

int readKey(FILE* stream)
{
    return lastKey = rl_getc(stream);
}

void onInterrupt(int)
{
    interrupted = 1;
    theEngine->requestCancel();
}

// Ctrl+C cancels while this lasts. The signal is held back except while the engine runs and while
// the terminal is waited for, so that none is missed in between.
class InterruptCancels {
public:
    InterruptCancels()
    {
        struct sigaction action = {};
        action.sa_handler = onInterrupt;
        sigemptyset(&action.sa_mask);
        sigaction(SIGINT, &action, &formerAction_);
        sigset_t blocked;
        sigemptyset(&blocked);
        sigaddset(&blocked, SIGINT);
        sigprocmask(SIG_BLOCK, &blocked, &formerMask_);
    }
    ~InterruptCancels()
    {
        sigprocmask(SIG_SETMASK, &formerMask_, nullptr);
        sigaction(SIGINT, &formerAction_, nullptr);
    }
    InterruptCancels(const InterruptCancels&) = delete;
    InterruptCancels& operator=(const InterruptCancels&) = delete;

    const sigset_t& openMask() const { return formerMask_; }
    template <class Call> void whileOpen(Call call) const
    {
        sigset_t held;
        sigprocmask(SIG_SETMASK, &formerMask_, &held);
        call();
        sigprocmask(SIG_SETMASK, &held, nullptr);
    }

private:
    struct sigaction formerAction_ = {};
    sigset_t formerMask_ = {};
};

void onLine(char* line)
{
    lineEnd = line ? LineEnd::accepted : LineEnd::endOfInput;
    typedLine = line ? line : "";
    std::free(line);
    rl_callback_handler_remove();
}

// Escape begins the codes of other keys; alone it cancels. Where the user has chosen the editor's
// other mode it has a meaning of its own.
bool escapeIsOpen()
{
    constexpr int kEmacsMode = 1;
    return rl_editing_mode == kEmacsMode && RL_ISSTATE(RL_STATE_MULTIKEY) && lastKey == kEscape;
}

LineEnd readLine(const std::string& prompt, const InterruptCancels& interrupts)
{
    lineEnd = LineEnd::open;
    rl_callback_handler_install(prompt.c_str(), onLine);
    while (lineEnd == LineEnd::open) {
        pollfd terminal = {STDIN_FILENO, POLLIN, 0};
        const bool escape = escapeIsOpen();
        const int ready =
            ppoll(&terminal, 1, escape ? &kKeyPause : nullptr, &interrupts.openMask());
        if (escape && ready == 0) {
            theEngine->requestCancel();
            interrupted = 1;
        }
        if (std::exchange(interrupted, 0)) {
            lineEnd = LineEnd::cancelled;
            rl_callback_sigcleanup();
            rl_callback_handler_remove();
            std::fputs("\n", rl_outstream);
            std::fflush(rl_outstream);
        } else if (ready > 0) {
            rl_callback_read_char();
        } else if (ready < 0 && errno != EINTR) {
            onLine(nullptr);
        }
    }
    return lineEnd;
}

// What may stand where the engine waits, in the form in which it is typed.
std::vector<std::string> namesFrom(std::wstring_view beginning)
{
    std::vector<std::string> names;
    const auto add = [&](std::wstring_view name) {
        if (name.size() >= beginning.size() &&
            host::equalNoCase(name.substr(0, beginning.size()), beginning))
            names.push_back(host::toUtf8(name));
    };
    const host::Waiting& waiting = theEngine->waiting();
    if (waiting.kind == host::WaitKind::command) {
        for (const std::wstring& name : acedRegCmdsPtr()->namesFrom(beginning))
            names.push_back(host::toUtf8(name));
        for (const std::wstring& name : host::systemVariableNames())
            add(name);
    } else {
        for (const std::wstring& keyword : waiting.keywords)
            add(keyword);
    }
    return names;
}

char* nextName(const char* beginning, int state)
{
    static std::vector<std::string> names;
    static std::size_t next = 0;
    if (state == 0) {
        names = namesFrom(host::fromUtf8(beginning));
        next = 0;
    }
    return next < names.size() ? strdup(names[next++].c_str()) : nullptr;
}

bool asksForPath()
{
    const host::WaitKind kind = theEngine->waiting().kind;
    return kind == host::WaitKind::text || kind == host::WaitKind::dialog;
}

char** complete(const char* beginning, int, int)
{
    if (asksForPath())
        return nullptr; // the line editor completes paths
    rl_attempted_completion_over = 1;
    rl_completion_append_character = '\0'; // a blank would end the answer
    return rl_completion_matches(beginning, nextName);
}

void remember(const std::string& line)
{
    if (line.empty())
        return;
    const HIST_ENTRY* const last =
        history_length > 0 ? history_get(history_base + history_length - 1) : nullptr;
    if (!last || line != last->line)
        add_history(line.c_str());
}

void prepareEditor(const std::filesystem::path& historyFile)
{
    std::setlocale(LC_CTYPE, ""); // how wide characters are; nothing else hangs on it
    rl_readline_name = "kelmaro";
    rl_catch_signals = 0;
    rl_getc_function = readKey;
    rl_attempted_completion_function = complete;
    rl_basic_word_break_characters = " \t";
    rl_variable_bind("enable-bracketed-paste", "off"); // pasted lines are answers one by one
    rl_variable_bind("completion-ignore-case", "on");
    rl_variable_bind("show-all-if-ambiguous", "on");
    using_history();
    stifle_history(kHistoryLines);
    read_history(historyFile.c_str());
}

} // namespace

void typeAtTerminal(host::CommandEngine& engine, ConsoleOutput& output,
                    const std::filesystem::path& historyFile)
{
    theEngine = &engine;
    prepareEditor(historyFile);
    {
        const InterruptCancels interrupts;
        engine.run();
        LineEnd end = LineEnd::open;
        while (!engine.finished() && end != LineEnd::endOfInput) {
            end = readLine(output.takeUnfinished(), interrupts);
            if (end == LineEnd::accepted) {
                remember(typedLine);
                engine.feed(host::fromUtf8(typedLine) + L'\n', host::Origin::terminal);
            }
            interrupts.whileOpen([&] { engine.run(); });
            interrupted = 0;
        }
    }
    write_history(historyFile.c_str());
    theEngine = nullptr;
}
