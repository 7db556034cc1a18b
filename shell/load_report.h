#pragma once

#include "host/runtime/load_outcome.h"

// How the last load ended, for the program that asks; kept by the session.
class LoadReport : public host::LoadOutcome {
public:
    State state() const override { return state_; }
    void set(State state) { state_ = state; }

private:
    State state_ = State::notLoaded;
};

inline constexpr const wchar_t* kLoadReportKey = L"KELMARO";
