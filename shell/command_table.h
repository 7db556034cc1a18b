#pragma once

#include "host/edit/command_stack.h"

#include <span>

// The plug-in's commands, in the order in which they are added; global and local names are the
// same.
struct CommandRow {
    const wchar_t* name;
    void (*run)();
};

inline constexpr const wchar_t* kCommandGroup = L"KELMARO";
inline constexpr int kCommandFlags = ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW | ACRX_CMD_NOPAPERSPACE;

std::span<const CommandRow> commandTable();
