#pragma once

#include "host/runtime/resbuf.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// System variables by name, without regard to case. RTERROR for a name that is none.
int acedGetVar(const wchar_t* name, resbuf& value);

// RTERROR also for a value of another type (a short passes for a long and for a real), one out of
// range, a name that the drawing lacks (CLAYER and its kin), and a variable that is read-only.
int acedSetVar(const wchar_t* name, const resbuf& value);

namespace host {

bool isSystemVariable(std::wstring_view name);
bool isReadOnlyVariable(std::wstring_view name);
std::vector<std::wstring> systemVariableNames(); // sorted, with those of the current drawing

// A value as SETVAR shows it: texts in double quotes, points with commas.
std::wstring variableText(const resbuf& value);

// Asks "Enter new value for LUPREC <4>: " and sets it; a read-only one is only shown.
void askSystemVariable(std::wstring_view name);

// Short forms for the host's own use. A variable of another type or name gives the fallback.
int integerVariable(const wchar_t* name, int fallback);
double realVariable(const wchar_t* name, double fallback);

} // namespace host
