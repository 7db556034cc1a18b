#pragma once

#include "host/commands/drawing/drawing_prompts.h"
#include "host/geom/matrix.h"

namespace host {

// What ROTATE and SCALE ask: the entities, a base point, and by how much, with the options Copy
// and Reference; then the entities or copies of them are changed. Cancelled anywhere, or without
// entities, all stays as it was.
struct AskedChange {
    std::wstring prompt; // for the amount, with its options
    Answered<double> (*ask)(const PromptForm& form);
    bool enterCounts = false; // as the amount 0
    int bits = 0;             // of InitGetBits, for the amount
    std::optional<double> (*askReference)(const AcGePoint3d& base); // nothing when cancelled
    const wchar_t* copying;                                         // told at the option Copy
    AcGeMatrix3d (*map)(double amount, const AcGePoint3d& base);
};
void askChange(const AskedChange& change);

} // namespace host
