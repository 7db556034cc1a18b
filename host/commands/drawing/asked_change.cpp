#include "host/commands/drawing/asked_change.h"

#include "host/commands/drawing/changed_entities.h"

namespace host {

void askChange(const AskedChange& change)
{
    const auto entities = entitiesToChange();
    if (!entities)
        return;
    const Answered<AcGePoint3d> base = askPlace({.text = L"Specify base point: "});
    if (!base.given())
        return;
    bool copies = false;
    std::optional<double> amount;
    while (!amount) {
        const Answered<double> answer = change.ask({.text = change.prompt,
                                                    .keywords = L"Copy Reference",
                                                    .base = base.value,
                                                    .enterCounts = change.enterCounts,
                                                    .bits = change.bits});
        if (answer.cancelled())
            return;
        if (answer.chose(L"Copy")) {
            copies = true;
            refuse(change.copying);
            continue;
        }
        amount = answer.isKeyword() ? change.askReference(base.value) : answer.value;
        if (!amount)
            return;
    }
    const AcGeMatrix3d map = change.map(*amount, base.value);
    if (copies)
        transformCopies(*entities, map);
    else
        transformAll(*entities, map);
}

} // namespace host
