#include "host/commands/drawing/displacement.h"

#include "host/commands/drawing/drawing_prompts.h"

namespace host {

std::optional<AcGeVector3d> askDisplacement()
{
    const std::wstring zero = lengthText(0.0);
    const Answered<AcGePoint3d> answer =
        askPlace({.text = L"Specify displacement <" + zero + L", " + zero + L", " + zero + L">: ",
                  .enterCounts = true});
    if (answer.cancelled())
        return std::nullopt;
    return answer.value.asVector(); // Enter: none
}

} // namespace host
