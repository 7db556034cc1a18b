#include "draw/impl_prompts.h"

#include "draw/given_property.h"
#include "frame/prompts.h"
#include "host/db/angle.h"
#include "host/edit/prompts.h"
#include "text/messages.h"

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

bool turnsOnScreen(const GraphicProps& props)
{
    return givenOr<std::uint8_t>(props, &GraphicProps::rotate, 0) == 1;
}

double rotationOf(const GraphicProps& props)
{
    return host::toRadians(givenOr(props, &GraphicProps::angle, 0.0));
}
