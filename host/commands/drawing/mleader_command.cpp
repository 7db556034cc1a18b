#include "host/commands/drawing/mleader_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/drawing_prompts.h"
#include "host/commands/drawing/leader_styles.h"
#include "host/commands/drawing/new_entity.h"
#include "host/db/database.h"
#include "host/db/mleader.h"
#include "host/db/object_pointer.h"
#include "host/edit/document.h"

#include <algorithm>

// The leader comes into the drawing once its text is typed, one line with format codes ("\P" begins
// a new line); an empty one makes a leader alone. Escape at any of the prompts leaves nothing. What
// is asked for first, and the options, count for one leader: a script finds the same prompts each
// time.

namespace host {

namespace {

enum class Order { arrowFirst, landingFirst, contentFirst };

struct Settings {
    Order order = Order::arrowFirst;
    MLeaderShape shape; // without places and text
    bool hasText = true;
    std::size_t mostPoints = 2;
};

bool askLeaderType(Settings& settings)
{
    struct Type {
        const wchar_t* keyword;
        MLeaderShape::Lines lines;
    };
    static constexpr Type kTypes[] = {{L"Straight", MLeaderShape::Lines::straight},
                                      {L"sPline", MLeaderShape::Lines::spline},
                                      {L"None", MLeaderShape::Lines::none}};
    const Answered<int> answer =
        askOption(L"Select a leader type [Straight/sPline/None]: ", L"Straight sPline None");
    for (const Type& type : kTypes)
        if (answer.chose(type.keyword))
            settings.shape.lines = type.lines;
    return answer.isKeyword();
}

bool askLanding(Settings& settings)
{
    const Answered<int> answer = askOption(L"Use landing [Yes/No] <Yes>: ", L"Yes No", L"Yes");
    if (!answer.isKeyword())
        return false;
    settings.shape.landing = answer.chose(L"Yes");
    if (!settings.shape.landing)
        return true;
    const Answered<double> size = askLength({.text = L"Specify fixed landing distance <style>: ",
                                             .enterCounts = true,
                                             .bits = RSG_NOZERO | RSG_NONEG});
    if (size.given())
        settings.shape.landingSize = size.value;
    return !size.cancelled();
}

bool askContentType(Settings& settings)
{
    const Answered<int> answer =
        askOption(L"Select a content type [Mtext/None] <Mtext>: ", L"Mtext None", L"Mtext");
    settings.hasText = answer.isKeyword() ? answer.chose(L"Mtext") : settings.hasText;
    return answer.isKeyword();
}

bool askMostPoints(Settings& settings)
{
    const Answered<int> answer = askUntil(
        [&] {
            return askCount({.text = L"Enter the maximum points for leader lines <" +
                                     std::to_wstring(settings.mostPoints) + L">: ",
                             .enterCounts = true});
        },
        [](int value) { return value < 2 ? L"Requires an integer of at least 2.\n" : nullptr; });
    if (answer.given())
        settings.mostPoints = static_cast<std::size_t>(answer.value);
    return !answer.cancelled();
}

bool askOptions(Settings& settings)
{
    struct Option {
        const wchar_t* keyword;
        bool (*ask)(Settings&);
    };
    static constexpr Option kOptions[] = {{L"Leader", askLeaderType},
                                          {L"lAnding", askLanding},
                                          {L"Content", askContentType},
                                          {L"Maxpoints", askMostPoints}};
    for (;;) {
        const Answered<int> answer =
            askOption(L"Enter an option [Leader type/leader lAnding/Content type/Maxpoints/eXit "
                      L"options] <eXit options>: ",
                      L"Leader lAnding Content Maxpoints eXit", L"eXit");
        if (!answer.isKeyword())
            return false;
        for (const Option& option : kOptions)
            if (answer.chose(option.keyword) && !option.ask(settings))
                return false;
        if (answer.chose(L"eXit"))
            return true;
    }
}

// The first place; the options and the two other orders are chosen on the way to it.
Answered<AcGePoint3d> askFirst(Settings& settings)
{
    struct Prompt {
        const wchar_t* text;
        const wchar_t* keywords;
    };
    static constexpr Prompt kPrompts[] = {
        {L"Specify leader arrowhead location or [leader Landing first/Content first/Options] "
         L"<Options>: ",
         L"Landing Content Options"},
        {L"Specify leader landing location or [leader arrowHead first/Content first/Options] "
         L"<Options>: ",
         L"Head,H Content Options"},
        {L"Specify first corner of text or [leader arrowHead first/leader Landing first/Options] "
         L"<Options>: ",
         L"Head,H Landing Options"}};
    for (;;) {
        const Prompt& prompt = kPrompts[static_cast<int>(settings.order)];
        Answered<AcGePoint3d> answer =
            askPlace({.text = prompt.text, .keywords = prompt.keywords, .enterCounts = true});
        if (answer.chose(L"Head"))
            settings.order = Order::arrowFirst;
        else if (answer.chose(L"Landing"))
            settings.order = Order::landingFirst;
        else if (answer.chose(L"Content"))
            settings.order = Order::contentFirst;
        else if (answer.enter() || answer.chose(L"Options")) {
            if (!askOptions(settings))
                return {};
        } else {
            return answer;
        }
    }
}

// From one end of the leader to the other, with points between them where more than two are
// allowed. False when cancelled.
bool askLine(const wchar_t* lastPrompt, std::size_t mostPoints, std::vector<AcGePoint3d>& points)
{
    while (points.size() < mostPoints) {
        const bool mayEnd = points.size() > 1;
        const bool last = points.size() + 1 == mostPoints;
        const Answered<AcGePoint3d> next =
            askOtherPlace({.text = last ? lastPrompt : L"Specify next point: ",
                           .base = points.back(),
                           .enterCounts = mayEnd});
        if (next.enter())
            return true;
        if (!next.given())
            return false;
        points.push_back(next.value);
    }
    return true;
}

bool askText(const Settings& settings, MLeaderShape& shape)
{
    return !settings.hasText || acedGetString(1, L"Enter text: ", shape.contents) == RTNORM;
}

std::optional<MLeaderShape> askShape()
{
    Settings settings;
    const Answered<AcGePoint3d> first = askFirst(settings);
    if (!first.given())
        return std::nullopt;
    MLeaderShape shape = settings.shape;
    shape.line.push_back(first.value);
    const bool arrowFirst = settings.order == Order::arrowFirst;
    if (settings.order == Order::contentFirst) {
        const Answered<AcGePoint3d> corner =
            askOtherPlace({.text = L"Specify opposite corner: ", .base = first.value});
        if (!corner.given() || !askText(settings, shape))
            return std::nullopt;
    }
    if (!askLine(arrowFirst ? L"Specify leader landing location: "
                            : L"Specify leader arrowhead location: ",
                 settings.mostPoints, shape.line))
        return std::nullopt;
    if (!arrowFirst)
        std::reverse(shape.line.begin(), shape.line.end());
    if (settings.order != Order::contentFirst && !askText(settings, shape))
        return std::nullopt;
    return shape;
}

} // namespace

void mleaderCommand()
{
    const AcApDocument* const document = documentOfCommand();
    if (!document)
        return;
    const std::optional<MLeaderShape> shape = askShape();
    if (!shape)
        return;
    const AcDbObjectId style = currentLeaderStyle(*document->database());
    const AcDbObjectPointer<AcDbMLeader> leader(appendNew(std::make_unique<AcDbMLeader>()),
                                                AcDb::kForWrite);
    if (!leader)
        return;
    if (!style.isNull())
        leader->setMLeaderStyle(style);
    leader->setShape(*shape);
}

} // namespace host
