#include "classify/objects_by_look.h"

#include "objects/conformity.h"
#include "tests/support/dice.h"
#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

#include <limits>

namespace {

constexpr const wchar_t* kTypes[] = {L"Line", L"Circle", L"BlockReference", L"Text"};

template <class T> PropConstraint<T> one(Dice& dice, const T& any, const std::vector<T>& values)
{
    const auto value = [&] { return dice.oneIn(8) ? any : dice.of(values); };
    switch (dice.below(6)) {
    case 0:
        return openConstraint(any);
    case 1:
        return {kValueAndRange, value(), {dice.of(values), dice.of(values)}};
    case 2:
    case 3:
        return {kValueAndList, value(), {value(), value()}};
    default:
        return {kOneValue, value(), {}};
    }
}

// Each states one property, with values that entities have or all but have.
using Statement = void (*)(GraphicProps& props, Dice& dice);

const Statement kStatements[] = {
    [](GraphicProps& p, Dice& dice) {
        p.layer = one<std::wstring>(dice, anyText, {L"walls", L"roofs", L"S", L"z"});
    },
    [](GraphicProps& p, Dice& dice) {
        p.color = {{dice.of({0, 1, 5})}};
        if (dice.oneIn(2))
            p.color.push_back({0, 0, 255});
    },
    [](GraphicProps& p, Dice& dice) {
        p.linetypeScale = one(dice, kAnyReal, {0.5, 1.00004, 1.0, 2.0});
    },
    [](GraphicProps& p, Dice& dice) {
        p.lineWeight = one(dice, kAnyLineWeight, {-1, 25});
    },
    [](GraphicProps& p, Dice& dice) {
        p.circleRadius = one(dice, kAnyReal, {1.0, 2.0, 3.0});
    },
    [](GraphicProps& p, Dice& dice) {
        p.text = one<std::wstring>(dice, anyText, {L"North", L"north", L"South"});
    },
    [](GraphicProps& p, Dice& dice) {
        p.textStyle = one<std::wstring>(dice, anyText, {L"notes", L"standard"});
    },
    [](GraphicProps& p, Dice& dice) {
        p.textJustification = one(dice, kAnyCode, {0, 1});
    },
    [](GraphicProps& p, Dice& dice) {
        p.blockName = one<std::wstring>(dice, anyText, {L"door", L"window"});
    },
    [](GraphicProps& p, Dice& dice) {
        p.blockScale = one(dice, anyScale, {{1.0, 1.0, 1.0}, {2.0, 2.0, 1.0}});
    },
};

Description randomDescription(Dice& dice)
{
    Description description;
    for (int i = 0; i < 20; ++i) {
        ObjectDef object;
        object.props.name = L"Object" + std::to_wstring(i);
        object.drawable = !dice.oneIn(4);
        object.priority =
            dice.oneIn(15) ? std::numeric_limits<std::int32_t>::min() : dice.below(6) - 2;
        object.props.types = {dice.of(kTypes)};
        if (dice.oneIn(3))
            object.props.types.push_back(dice.of(kTypes));
        for (int stated = dice.below(4); stated > 0; --stated)
            dice.of(kStatements)(object.props, dice);
        description.objects[L"object" + std::to_wstring(i)] = object;
    }
    return description;
}

std::vector<std::string> randomEntities(Dice& dice, DxfDrawing& drawing)
{
    const std::string origin = "10\n0.0\n20\n0.0\n30\n0.0\n";
    std::vector<std::string> handles;
    for (int i = 0; i < 12; ++i) {
        const std::string common =
            std::string(dice.of({"", "62\n1\n", "62\n5\n", "420\n255\n", "420\n254\n"})) +
            dice.of({"", "48\n2.0\n"}) + dice.of({"", "370\n25\n"});
        const char* const layer = dice.of({"Walls", "ROOFS", "Trees", "0"});
        switch (dice.below(5)) {
        case 0:
            handles.push_back(drawing.line(layer, common));
            break;
        case 1:
            handles.push_back(drawing.entity("CIRCLE", "AcDbCircle",
                                             origin + "40\n" + dice.of({"1.0", "2.5"}) + "\n",
                                             layer, common));
            break;
        case 2:
            handles.push_back(drawing.entity("INSERT", "AcDbBlockReference",
                                             std::string("2\n") + dice.of({"Door", "Window"}) +
                                                 "\n" + origin +
                                                 dice.of({"", "41\n2.0\n42\n2.0\n"}),
                                             layer, common));
            break;
        case 3:
            handles.push_back(drawing.entity("TEXT", "AcDbText",
                                             origin + "40\n2.5\n1\n" + dice.of({"North", "South"}) +
                                                 "\n7\n" + dice.of({"Notes", "Standard"}) +
                                                 "\n72\n" + dice.of({"0", "1"}) +
                                                 "\n11\n0.0\n21\n0.0\n31\n0.0\n100\nAcDbText\n",
                                             layer, common));
            break;
        default:
            handles.push_back(drawing.entity(
                "RAY", "AcDbRay", origin + "11\n1.0\n21\n0.0\n31\n0.0\n", layer, common));
        }
    }
    return handles;
}

// Every object tried, in the order of names.
const ObjectDef* plainBest(const Description& description, AcDbObjectId entity, bool undrawable)
{
    std::int64_t priority = std::numeric_limits<std::int32_t>::min();
    const ObjectDef* best = nullptr;
    for (const auto& [name, object] : description.objects) {
        if ((!object.drawable && !undrawable) || object.priority <= priority ||
            !conforms(description, entity, name))
            continue;
        priority = object.priority;
        best = &object;
    }
    return best;
}

} // namespace

TEST(ObjectsByLook, FindsWhatTryingEveryObjectFinds)
{
    int found = 0;
    for (unsigned seed = 0; seed < 1000; ++seed) {
        Dice dice(seed);
        DxfDrawing drawing;
        for (const char* const layer : {"Walls", "ROOFS", "Trees"})
            drawing.layer(layer);
        drawing.textStyle("Notes");
        drawing.block("Door");
        drawing.block("Window");
        const std::vector<std::string> handles = randomEntities(dice, drawing);
        ReadDrawing read(drawing.text());
        acdbHostApplicationServices()->setWorkingDatabase(&read.database());
        const Description description = randomDescription(dice);
        for (const Undrawable undrawable : {Undrawable::leftOut, Undrawable::takesPart}) {
            ObjectsByLook objects(description, undrawable);
            for (const std::string& handle : handles) {
                const AcDbObjectId id = read.idOf(handle);
                const ObjectDef* const expected =
                    plainBest(description, id, undrawable == Undrawable::takesPart);
                const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
                ASSERT_TRUE(entity);
                ASSERT_EQ(objects.bestFor(*entity), expected) << seed << " " << handle;
                found += expected != nullptr;
            }
        }
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    EXPECT_GT(found, 5000); // the drawings are not beside the descriptions
}

// More values of a property than are worth keeping: the late ones are found all the same, and so
// are those that come again.
TEST(ObjectsByLook, RadiiWithoutEnd)
{
    constexpr int kCircles = 5000;
    DxfDrawing drawing;
    std::vector<std::string> handles;
    for (int i = 0; i < kCircles; ++i)
        handles.push_back(drawing.circle(1.0 + i));
    ReadDrawing read(drawing.text());
    acdbHostApplicationServices()->setWorkingDatabase(&read.database());
    Description description;
    for (const double end : {100.0, 4500.0}) {
        ObjectDef& object = description.objects[std::to_wstring(end)];
        object.priority = end < 1000.0 ? 2 : 1;
        object.props.types = {L"Circle"};
        object.props.circleRadius = {kValueAndRange, -1.0, {1.0, end}};
    }
    ObjectsByLook objects(description, Undrawable::takesPart);
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < kCircles; ++i) {
            const AcDbObjectPointer<AcDbEntity> circle(
                read.idOf(handles[static_cast<std::size_t>(i)]), AcDb::kForRead);
            const ObjectDef* const found = objects.bestFor(*circle);
            ASSERT_EQ(found ? found->priority : 0, i < 100 ? 2 : i < 4500 ? 1 : 0) << i;
        }
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}
