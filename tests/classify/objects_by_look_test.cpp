#include "classify/objects_by_look.h"

#include "objects/conformity.h"
#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

#include <limits>
#include <random>

namespace {

constexpr const wchar_t* kLayers[] = {L"walls", L"roofs", L"trees", L"0"};
constexpr const char* kDrawnLayers[] = {"Walls", "ROOFS", "Trees", "0"};
constexpr const wchar_t* kTypes[] = {L"Line", L"Circle", L"Point", L"Text"};

class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    int below(int end) { return std::uniform_int_distribution(0, end - 1)(engine_); }
    bool oneIn(int count) { return below(count) == 0; }

private:
    std::mt19937 engine_;
};

PropConstraint<std::wstring> randomLayer(Dice& dice)
{
    const auto layer = [&] { return std::wstring(kLayers[dice.below(4)]); };
    switch (dice.below(6)) {
    case 0:
        return openConstraint(anyText);
    case 1:
        return {kOneValue, anyText, {}};
    case 2:
        return {kValueAndList, layer(), {layer(), dice.oneIn(4) ? anyText : layer()}};
    case 3:
        return {kValueAndRange, layer(), {L"S", L"z"}};
    default:
        return {kOneValue, layer(), {}};
    }
}

Description randomDescription(Dice& dice)
{
    Description description;
    for (int i = 0; i < 20; ++i) {
        ObjectDef object;
        object.props.name = L"Object" + std::to_wstring(i);
        object.drawable = !dice.oneIn(4);
        object.priority =
            dice.oneIn(15) ? std::numeric_limits<std::int32_t>::min() : dice.below(6) - 2;
        object.props.types = {kTypes[dice.below(4)]};
        if (dice.oneIn(3))
            object.props.types.push_back(kTypes[dice.below(4)]);
        object.props.layer = randomLayer(dice);
        if (dice.oneIn(2))
            object.props.color = {{dice.below(3)}};
        description.objects[L"object" + std::to_wstring(i)] = object;
    }
    return description;
}

std::vector<std::string> randomEntities(Dice& dice, DxfDrawing& drawing)
{
    std::vector<std::string> handles;
    for (int i = 0; i < 12; ++i) {
        const std::string color = "62\n" + std::to_string(dice.below(3)) + "\n";
        const char* const layer = kDrawnLayers[dice.below(4)];
        const std::string origin = "10\n0.0\n20\n0.0\n30\n0.0\n";
        switch (dice.below(4)) {
        case 0:
            handles.push_back(drawing.line(layer, color));
            break;
        case 1:
            handles.push_back(
                drawing.entity("CIRCLE", "AcDbCircle", origin + "40\n1.0\n", layer, color));
            break;
        case 2:
            handles.push_back(drawing.entity("POINT", "AcDbPoint", origin, layer, color));
            break;
        default:
            handles.push_back(drawing.entity("RAY", "AcDbRay",
                                             origin + "11\n1.0\n21\n0.0\n31\n0.0\n", layer, color));
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
        const std::vector<std::string> handles = randomEntities(dice, drawing);
        ReadDrawing read(drawing.text());
        acdbHostApplicationServices()->setWorkingDatabase(&read.database());
        const Description description = randomDescription(dice);
        for (const Undrawable undrawable : {Undrawable::leftOut, Undrawable::takesPart}) {
            const ObjectsByLook objects(description, undrawable);
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
