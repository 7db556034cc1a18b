#include "draw/impl_mtext_command.h"

#include "draw/given_property.h"
#include "draw/impl_prompts.h"
#include "draw/model_space.h"
#include "draw/named_styles.h"
#include "host/db/mtext.h"

namespace {

using Props = GraphicProps;

AcDbObjectId writeMText(const Props& props, const AcGePoint3d& point, const std::wstring& words)
{
    AcDbObjectPointer<AcDbMText> text;
    text.create();
    const AcDbObjectId id = appendToModelSpace(*text);
    if (id.isNull())
        return id;
    text->setLocation(point);
    if (!turnsOnScreen(props))
        text->setRotation(rotationOf(props));
    if (isGiven(props, &Props::mtextAttachmentPoint))
        text->setAttachment(
            static_cast<AcDbMText::AttachmentPoint>(props.mtextAttachmentPoint.value));
    if (isGiven(props, &Props::textHeight))
        text->setTextHeight(props.textHeight.value);
    if (isGiven(props, &Props::textStyle))
        setTextStyleNamed(*text, props.textStyle.value);
    double gutter = 0.0;
    text->getColumnGutterWidth(gutter);
    // a column as wide as its letters are high: the lines are not wrapped by it
    text->setDynamicColumns(text->textHeight(), gutter, true);
    text->setContents(words);
    return id;
}

} // namespace

void writeObjectMText()
{
    writeWords(writeMText);
}
