#pragma once

#include "host/runtime/resbuf.h"

#include <limits>
#include <span>
#include <string_view>

namespace host {

enum class VariableHome {
    drawing,  // the drawing's header, under `code`
    program,  // the running program, unless the drawing's header holds it, as older ones do
    computed, // told by `compute`
};

// One system variable. The header of a drawing may hold others; those are variables too, typed by
// their group codes.
struct VariableRow {
    const wchar_t* name;
    VariableHome home = VariableHome::program;
    int type = RTSHORT; // where the header holds the variable its code decides
    int code = 0;
    bool readOnly = false;
    double number = 0.0; // the default, of a point all its coordinates
    const wchar_t* text = L"";
    double least = std::numeric_limits<double>::lowest();
    double greatest = std::numeric_limits<double>::max();
    void (*compute)(resbuf& value) = nullptr;
};

const VariableRow* findVariableRow(std::wstring_view name); // without regard to case; or null
std::span<const VariableRow> variableRows();

// Variables that the header holds and nobody sets.
bool isReadOnlyHeaderVariable(std::wstring_view name);

} // namespace host
