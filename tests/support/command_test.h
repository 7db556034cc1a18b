#pragma once

#include "host/edit/command_line.h"
#include "host/edit/pick_first.h"
#include "host/edit/prompts.h"
#include "host/edit/system_variables.h"
#include "host/start/host_session.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

// A session with an empty drawing and a profile of its own, for tests that type and read what is
// printed.
class CommandTest : public ::testing::Test {
protected:
    CommandTest() : session_(options(*this)) {}
    ~CommandTest() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    // As a script would: every blank and line end counts, and answers are echoed.
    const host::Waiting& type(std::wstring_view text)
    {
        session_.engine().feed(text);
        return session_.engine().run();
    }
    const host::Waiting& typeAtTerminal(std::wstring_view text)
    {
        session_.engine().feed(text, host::Origin::terminal);
        return session_.engine().run();
    }
    const host::Waiting& endInput()
    {
        session_.engine().feedEnd();
        return session_.engine().run();
    }

    // Everything since the last call.
    std::wstring printed() { return std::exchange(printed_, {}); }
    // Everything since the last call that was printed by this text.
    std::wstring transcript(std::wstring_view text)
    {
        printed_.clear();
        type(text);
        return printed();
    }

    void command(const wchar_t* name, void (*function)(), int flags = ACRX_CMD_MODAL)
    {
        session_.commands().addCommand(L"TEST", name, name, flags, function);
    }

    host::HostSession& session() { return session_; }
    AcDbDatabase& database() { return *session_.documents().curDocument()->database(); }
    const std::filesystem::path& folder() const { return folder_; } // empty, gone after the test

private:
    static std::filesystem::path makeFolder()
    {
        std::string name =
            (std::filesystem::temp_directory_path() / "command-test-XXXXXX").string();
        return mkdtemp(name.data()) ? std::filesystem::path(name) : std::filesystem::path();
    }
    static host::SessionOptions options(CommandTest& test)
    {
        host::SessionOptions options;
        options.output = [&test](std::wstring_view text) { test.printed_ += text; };
        options.profile = test.folder_ / "profile";
        return options;
    }

    std::filesystem::path folder_ = makeFolder();
    std::wstring printed_;
    host::HostSession session_;
};
