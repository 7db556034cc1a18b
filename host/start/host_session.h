#pragma once

#include "host/db/drawing_format.h"
#include "host/edit/command_engine.h"
#include "host/edit/command_stack.h"
#include "host/edit/document.h"
#include "host/edit/editor_reactor.h"
#include "host/files/user_profile.h"

#include <filesystem>
#include <memory>
#include <string>

namespace host {

struct SessionOptions {
    Transcript::Sink output;       // null: nothing is shown
    std::filesystem::path profile; // folder of the user's profile; empty: the usual one
    std::wstring supportFolder;    // stands before the profile's own
    bool newDrawing = true;        // begins with an empty metric drawing
};

// The host while a program uses it: file formats, system variables, commands, the editor and its
// documents come up in order and go down in reverse. One at a time.
class HostSession {
public:
    explicit HostSession(SessionOptions options = {});
    ~HostSession();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    CommandEngine& engine() { return *engine_; }
    AcEdCommandStack& commands() { return commands_; }
    AcEditor& editor() { return editor_; }
    AcApDocManager& documents() { return *acDocManagerPtr(); }
    UserProfile& profile() { return profile_; }
    Transcript& output() { return engine_->transcript(); }

private:
    UserProfile profile_;
    std::unique_ptr<DrawingFormat> format_;
    AcEdCommandStack commands_;
    AcEditor editor_;
    std::unique_ptr<CommandEngine> engine_;
};

} // namespace host
