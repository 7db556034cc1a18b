#include "host/commands/drawing/vertex_path.h"

namespace host {

namespace {

PromptForm nextForm(const VertexPath& path, const PathPrompts& prompts)
{
    const std::size_t count = path.points.size();
    PromptForm form{.text = prompts.next, .base = path.points.back(), .enterCounts = true};
    if (count > 2) {
        form.keywords = L"Close Undo";
        form.text += L" or [Close/Undo]";
    } else if (count > 1 || prompts.undoAtFirst) {
        form.keywords = L"Undo";
        form.text += L" or [Undo]";
    }
    form.text += L": ";
    return form;
}

} // namespace

VertexPath askPath(const AcGePoint3d& first, const PathPrompts& prompts)
{
    VertexPath path{{first}};
    for (;;) {
        const Answered<AcGePoint3d> answer = askOtherPlace(nextForm(path, prompts));
        if (answer.given()) {
            path.points.push_back(answer.value);
        } else if (answer.chose(L"Undo")) {
            if (path.points.size() > 1)
                path.points.pop_back();
            else
                refuse(L"All segments already undone.\n");
            setLastPoint(path.points.back());
        } else {
            path.end = answer.enter()       ? VertexPath::End::enter
                       : answer.isKeyword() ? VertexPath::End::closed
                                            : VertexPath::End::cancelled;
            return path;
        }
    }
}

} // namespace host
