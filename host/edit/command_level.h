#pragma once

#include "host/edit/command_engine.h"

#include <deque>

namespace host {

// One running command: typed, called by another, or typed inside another with "'".
struct CommandEngine::Level {
    enum class Kind { typed, called, transparent };
    enum class Needs { nothing, tokens, driver };

    Level(Kind kindOf, std::shared_ptr<const AcEdCommand> commandOf)
        : kind(kindOf), command(std::move(commandOf))
    {
    }

    const Kind kind;
    const std::shared_ptr<const AcEdCommand> command;
    std::unique_ptr<Fiber> fiber;
    std::unique_ptr<Level> inner; // called by this one, and suspended or running
    Needs needs = Needs::nothing; // why the fiber yielded

    // Of a called one.
    std::deque<resbuf> tokens;
    int questions = 0;         // open OneQuestion scopes
    bool paused = false;       // the driver answers this prompt
    bool leftToDriver = false; // the caller has returned
    bool cancelAsked = false;  // by a call without tokens

    bool cancelAtOnce = false;  // the command itself does not run
    bool lastCancelled = false; // the last prompt answered RTCAN
    bool cancelledByUser = false;
    bool failed = false;
    bool returned = false; // the command itself and what it called
};

} // namespace host
