#include "host/commands/drawing/copy_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/changed_entities.h"
#include "host/commands/drawing/displacement.h"
#include "host/commands/drawing/drawing_prompts.h"
#include "host/commands/drawing/new_entity.h"
#include "host/edit/command_engine.h"
#include "host/edit/system_variables.h"

// Each copy is in the drawing as soon as its place is given. Escape leaves those, as Exit does.

namespace host {

namespace {

constexpr const wchar_t* kMode = L"COPYMODE"; // 1: the command ends with the first copy

class Copying {
public:
    explicit Copying(std::vector<AcDbObjectId> entities) : entities_(std::move(entities)) {}

    void run()
    {
        Answered<AcGePoint3d> base = askBase();
        while (base.chose(L"mOde")) {
            if (!askMode())
                return;
            base = askBase();
        }
        if (base.cancelled())
            return;
        if (!base.given()) {
            if (const std::optional<AcGeVector3d> by = askDisplacement())
                copyBy({*by});
            return;
        }
        base_ = base.value;
        while (askNext())
            ;
    }

private:
    static bool isSingle() { return integerVariable(kMode, 0) == 1; }

    static Answered<AcGePoint3d> askBase()
    {
        return askPlace({.text = L"Specify base point or [Displacement/mOde] <Displacement>: ",
                         .keywords = L"Displacement mOde",
                         .enterCounts = true});
    }
    static bool askMode()
    {
        const wchar_t* const now = isSingle() ? L"Single" : L"Multiple";
        const Answered<int> mode =
            askOption(std::wstring(L"Enter a copy mode option [Single/Multiple] <") + now + L">: ",
                      L"Single Multiple", now);
        if (mode.isKeyword())
            setInteger(kMode, mode.chose(L"Single"));
        return mode.isKeyword();
    }
    // False at the end.
    bool askNext()
    {
        const bool first = steps_.empty();
        const Answered<AcGePoint3d> to =
            askPlace({.text = first ? L"Specify second point or [Array] <use first point as "
                                      L"displacement>: "
                                    : L"Specify second point or [Array/Exit/Undo] <Exit>: ",
                      .keywords = first ? L"Array" : L"Array Exit Undo",
                      .base = base_,
                      .enterCounts = true});
        if (to.given())
            copyBy({to.value - base_});
        else if (to.chose(L"Array"))
            return askArray() && !isSingle();
        else if (to.chose(L"Undo"))
            undo();
        else if (to.enter() && first)
            copyBy({base_.asVector()});
        return (to.given() || to.chose(L"Undo")) && !isSingle();
    }
    bool askArray()
    {
        const Answered<int> count =
            askUntil([] { return askCount({.text = L"Enter number of items to array: "}); },
                     [](int items) {
                         return items < 2 || items > 32767
                                    ? L"Requires an integer from 2 to 32767.\n"
                                    : nullptr;
                     });
        if (!count.given())
            return false;
        bool fits = false;
        Answered<AcGePoint3d> to;
        do {
            fits = to.chose(L"Fit");
            to = askPlace({.text = fits ? L"Specify second point or [Array]: "
                                        : L"Specify second point or [Fit]: ",
                           .keywords = fits ? L"Array" : L"Fit",
                           .base = base_});
        } while (to.isKeyword());
        if (!to.given())
            return false;
        const AcGeVector3d step = (to.value - base_) / (fits ? count.value - 1 : 1);
        std::vector<AcGeVector3d> steps;
        for (int i = 1; i < count.value; ++i)
            steps.push_back(step * i);
        copyBy(steps);
        return true;
    }
    void copyBy(const std::vector<AcGeVector3d>& displacements)
    {
        std::vector<AcDbObjectId>& step = steps_.emplace_back();
        for (const AcGeVector3d& by : displacements) {
            const std::vector<AcDbObjectId> copies =
                transformCopies(entities_, AcGeMatrix3d::translation(by));
            step.insert(step.end(), copies.begin(), copies.end());
        }
    }
    void undo()
    {
        for (const AcDbObjectId copy : steps_.back())
            eraseEntity(copy);
        steps_.pop_back();
        if (steps_.empty())
            refuse(L"Everything has been undone.\n");
    }

    std::vector<AcDbObjectId> entities_;
    AcGePoint3d base_;
    std::vector<std::vector<AcDbObjectId>> steps_; // what each answer made
};

} // namespace

void copyCommand()
{
    if (!documentOfCommand())
        return;
    auto entities = entitiesToChange();
    if (!entities)
        return;
    engine().printForPrompt(integerVariable(kMode, 0) == 1
                                ? L"Current settings:  Copy mode = Single\n"
                                : L"Current settings:  Copy mode = Multiple\n");
    Copying(std::move(*entities)).run();
}

} // namespace host
