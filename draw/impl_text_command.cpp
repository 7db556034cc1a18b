#include "draw/impl_text_command.h"

#include "draw/given_property.h"
#include "draw/impl_prompts.h"
#include "draw/model_space.h"
#include "draw/named_styles.h"
#include "draw/property_writers.h"
#include "host/db/text.h"

namespace {

using Props = GraphicProps;

AcDbObjectId writeText(const Props& props, const AcGePoint3d& point, const std::wstring& words)
{
    AcDbObjectPointer<AcDbText> text;
    text.create();
    text->setPosition(point);
    text->setTextString(words);
    const AcDbObjectId id = appendToModelSpace(*text);
    if (id.isNull())
        return id;
    if (!turnsOnScreen(props))
        text->setRotation(rotationOf(props));
    if (isGiven(props, &Props::textHeight))
        text->setHeight(props.textHeight.value);
    if (isGiven(props, &Props::textJustification)) {
        text->setJustification(props.textJustification.value);
        alignAt(*text, point);
    }
    if (isGiven(props, &Props::textStyle))
        setTextStyleNamed(*text, props.textStyle.value);
    return id;
}

} // namespace

void writeObjectText()
{
    writeWords(writeText);
}
