#include "host/commands/drawing/dimension_commands.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/dimension_angles.h"
#include "host/commands/drawing/dimension_circles.h"
#include "host/commands/drawing/dimension_lengths.h"
#include "host/commands/drawing/new_entity.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace host {

namespace {

struct SubCommand {
    const wchar_t* keyword;
    AcDbObjectId (*draw)();
};

template <AcDbObjectId (*Draw)(TextPrompt)> AcDbObjectId withText()
{
    return Draw(TextPrompt::always);
}

template <Measures measures> AcDbObjectId linearWithText()
{
    return drawLinearDimension(measures, TextPrompt::always);
}

constexpr SubCommand kSubCommands[] = {
    {L"ALigned", withText<drawAlignedDimension>},
    {L"ANgular", withText<drawAngularDimension>},
    {L"ARc", withText<drawArcDimension>},
    {L"Diameter", withText<drawDiameterDimension>},
    {L"HORizontal", linearWithText<Measures::horizontally>},
    {L"Jogged", withText<drawJoggedDimension>},
    {L"LInear", linearWithText<Measures::byPlace>},
    {L"ORdinate", withText<drawOrdinateDimension>},
    {L"RAdius", withText<drawRadiusDimension>},
    {L"ROtated", linearWithText<Measures::atAngle>},
    {L"VErtical", linearWithText<Measures::vertically>},
};

std::wstring allKeywords()
{
    std::wstring all;
    for (const SubCommand& command : kSubCommands)
        all += std::wstring(command.keyword) + L' ';
    return all + L"Undo Exit";
}

void drawOne(AcDbObjectId (*draw)(TextPrompt))
{
    if (documentOfCommand())
        draw(TextPrompt::option);
}

} // namespace

void dimalignedCommand()
{
    drawOne(drawAlignedDimension);
}

void dimangularCommand()
{
    drawOne(drawAngularDimension);
}

void dimarcCommand()
{
    drawOne(drawArcDimension);
}

void dimdiameterCommand()
{
    drawOne(drawDiameterDimension);
}

void dimjoggedCommand()
{
    drawOne(drawJoggedDimension);
}

void dimlinearCommand()
{
    drawOne([](TextPrompt prompt) { return drawLinearDimension(Measures::byPlace, prompt); });
}

void dimordinateCommand()
{
    drawOne(drawOrdinateDimension);
}

void dimradiusCommand()
{
    drawOne(drawRadiusDimension);
}

void dimCommand()
{
    if (!documentOfCommand())
        return;
    const std::wstring keywords = allKeywords();
    std::vector<AcDbObjectId> drawn;
    for (;;) {
        const Answered<int> answer = askOption(L"Dim: ", keywords.c_str(), L"Exit");
        if (answer.cancelled() || answer.keyword == L"Exit")
            return;
        if (answer.keyword == L"Undo") {
            if (drawn.empty()) {
                refuse(L"Nothing to undo.\n");
                continue;
            }
            eraseEntity(drawn.back());
            drawn.pop_back();
            continue;
        }
        const auto found = std::find_if(
            std::begin(kSubCommands), std::end(kSubCommands),
            [&](const SubCommand& command) { return answer.keyword == command.keyword; });
        if (found == std::end(kSubCommands))
            continue;
        if (const AcDbObjectId id = found->draw(); !id.isNull())
            drawn.push_back(id);
    }
}

} // namespace host
