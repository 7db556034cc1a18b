#include "draw/impl_prompts.h"

#include "draw/given_property.h"
#include "draw/object_rotation.h"
#include "frame/command_frame.h"
#include "frame/prompts.h"
#include "host/db/angle.h"
#include "host/edit/prompts.h"
#include "text/messages.h"

namespace {

// The object's own text is the default; nothing when there is none in the end.
std::optional<std::wstring> askText(const GraphicProps& props)
{
    const std::wstring own = givenOr(props, &GraphicProps::text, std::wstring());
    const std::wstring prompt = isGiven(props, &GraphicProps::text)
                                    ? filledIn(Message::textPromptWithDefault, own)
                                    : filledIn(Message::textPrompt);
    std::wstring text;
    if (acedGetString(1, prompt.c_str(), text) != RTNORM)
        return std::nullopt;
    if (text.empty())
        text = own;
    return text.empty() ? std::nullopt : std::optional(text);
}

} // namespace

const GraphicProps* askProps(const Description& description)
{
    const std::optional<std::wstring> name = askObjectName();
    return name ? description.findProps(*name) : nullptr;
}

std::optional<AcGePoint3d> askPoint()
{
    ads_point point{};
    if (acedGetPoint(nullptr, filledIn(Message::pointPrompt).c_str(), point) != RTNORM)
        return std::nullopt;
    return AcGePoint3d(point);
}

bool turnsOnScreen(const GraphicProps& props)
{
    return givenOr<std::uint8_t>(props, &GraphicProps::rotate, 0) == 1;
}

double rotationOf(const GraphicProps& props)
{
    return host::toRadians(givenOr(props, &GraphicProps::angle, 0.0));
}

void writeWords(WordsWriter write)
{
    const CommandFrame frame;
    if (!frame)
        return;
    const GraphicProps* const props = askProps(frame.description());
    if (!props)
        return;
    const std::optional<AcGePoint3d> point = askPoint();
    const std::optional<std::wstring> words = point ? askText(*props) : std::nullopt;
    if (!words)
        return;
    const AcDbObjectId id = write(*props, *point, *words);
    if (turnsOnScreen(*props))
        rotateByUser(id, *point);
}
