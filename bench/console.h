#pragma once

#include "host/start/host_session.h"
#include "shell/kelmaro_app.h"

#include <filesystem>
#include <string>
#include <string_view>

// A session as the console has it: the drawing opened, the plug-in and the description loaded. Its
// profile lies beside the drawing.
class Console {
public:
    Console(const std::filesystem::path& drawing, const std::filesystem::path& description)
        : session_({.output = [this](std::wstring_view text) { printed_ += text; },
                    .profile = drawing.parent_path() / "profile"})
    {
        plugin_.dispatch(AcRx::kInitAppMsg, nullptr);
        type(L"OPEN \"" + drawing.wstring() + L"\"\n");
        type(L"KELMARO_LOAD " + description.wstring() + L"\n");
    }
    ~Console() { plugin_.dispatch(AcRx::kUnloadAppMsg, nullptr); }

    void type(const std::wstring& text)
    {
        session_.engine().feed(text);
        session_.engine().run();
    }
    bool saw(std::wstring_view text) const { return printed_.find(text) != std::wstring::npos; }
    const std::wstring& printed() const { return printed_; }

private:
    std::wstring printed_;
    host::HostSession session_;
    CkelmaroApp plugin_;
};
