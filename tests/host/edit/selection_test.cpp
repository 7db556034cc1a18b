#include "host/db/arc.h"
#include "host/db/block_table.h"
#include "host/db/line.h"
#include "host/db/symbol_tables.h"
#include "host/edit/command_call.h"
#include "host/edit/id_sequence.h"
#include "host/edit/selection.h"
#include "host/edit/selection_set.h"
#include "host/text/encoding.h"
#include "host/text/number_format.h"
#include "tests/support/command_test.h"

#include <numbers>

namespace {

using Ids = std::vector<AcDbObjectId>;

Ids picked;
int result;

// A line from 0,0 to 10,0, an arc over it (centre 0,0, radius 10, the first quarter), and a line
// from 20,0 to 20,10 on the layer "far".
class SelectionTest : public CommandTest {
protected:
    SelectionTest()
    {
        picked.clear();
        result = 0;
        command(L"PICK", [] { result = host::selectObjects(picked); });
        addLayer(L"far");
        flat_ = add(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0)));
        arc_ = add(new AcDbArc(AcGePoint3d(0, 0, 0), 10.0, 0.0, std::numbers::pi / 2));
        far_ = add(new AcDbLine(AcGePoint3d(20, 0, 0), AcGePoint3d(20, 10, 0)), L"far");
        type(L"");
        printed();
    }

    void addLayer(const wchar_t* name)
    {
        AcDbObjectPointer<AcDbLayerTable> table(database().layerTableId(), AcDb::kForWrite);
        AcDbObjectPointer<AcDbLayerTableRecord> layer;
        layer.create();
        layer->setName(name);
        AcDbObjectId id;
        table->add(id, layer.object());
    }
    AcDbObjectId add(AcDbEntity* made, const wchar_t* layer = L"0")
    {
        AcDbObjectPointer<AcDbEntity> entity;
        entity.acquire(made);
        AcDbObjectPointer<AcDbBlockTableRecord> space(database().modelSpaceId(), AcDb::kForWrite);
        AcDbObjectId id;
        space->appendAcDbEntity(id, entity.object());
        entity->setLayer(std::wstring_view(layer));
        return id;
    }
    std::wstring handent(AcDbObjectId id) const
    {
        return L"(handent \"" + host::fromUtf8(host::handleText(id.handle().value())) + L"\")";
    }
    Ids pick(const std::wstring& typed)
    {
        picked.clear();
        shown_ = transcript(L"pick\n" + typed);
        return picked;
    }

    AcDbObjectId flat_;
    AcDbObjectId arc_;
    AcDbObjectId far_;
    std::wstring shown_;
};

} // namespace

TEST_F(SelectionTest, GoesByWhatIsDrawn)
{
    struct Case {
        const wchar_t* typed;
        Ids found;
    };
    const Case cases[] = {
        {L"5,0\n\n", {flat_}},
        // the arc's box holds 3,3, the arc does not come near
        {L"3,3\n\n", {}},
        {L"7.0710678,7.0710678\n\n", {arc_}},
        // inside the arc's box, its corners away from the arc
        {L"c 1,1 4,4\n\n", {}},
        {L"c 6,6 8,8\n\n", {arc_}},
        {L"w 6,6 8,8\n\n", {}},
        {L"w -1,-1 11,11\n\n", {flat_, arc_}},
        {L"w -1,-1 9,11\n\n", {}},
        {L"box 9,11 -1,-1\n\n", {flat_, arc_}}, // right to left crosses
        {L"box -1,-1 9,11\n\n", {}},
        {L"f 5,-1 5,20\n\n\n", {flat_, arc_}},
        {L"f 5,1 5,2\n\n\n", {}},
        {L"wp 15,-5 25,-5 25,15 15,15\n\n\n", {far_}},
        {L"cp 19,4 21,4 20,6\n\n\n", {far_}},
        {L"all\n\n", {flat_, arc_, far_}},
        {L"l\n\n", {far_}},
        {L"\n", {}},
    };
    for (const Case& each : cases)
        EXPECT_EQ(pick(each.typed), each.found) << each.typed;
}

TEST_F(SelectionTest, TellsWhatWasFound)
{
    EXPECT_EQ(pick(L"l\nall\n" + handent(flat_) + L"\nzz\nr\n5,0\na\np\n\n"), (Ids{far_, arc_}));
    EXPECT_EQ(shown_,
              L"pick\nSelect objects: l\n1 found\nSelect objects: all\n3 found (1 duplicate), 3 "
              L"total\nSelect objects: " +
                  handent(flat_) +
                  L"\n1 found (1 duplicate), 3 total\nSelect objects: zz\n*Invalid selection*\n"
                  L"Expects a point or\nWindow/Last/Crossing/BOX/ALL/Fence/WPolygon/CPolygon/Add/"
                  L"Remove/Multiple/Previous/Undo/AUto/SIngle\nSelect objects: r\nRemove objects: "
                  L"5,0\n1 found, 1 removed, 2 total\nRemove objects: a\nSelect objects: p\n"
                  L"No previous selection set.\nSelect objects: \nCommand: ");
    EXPECT_EQ(pick(L"p\n\n"), (Ids{far_, arc_}));
}

TEST_F(SelectionTest, StepsAreTakenBack)
{
    EXPECT_EQ(pick(L"5,0\nl\nu\n\n"), Ids{flat_});
    EXPECT_EQ(pick(L"all\nr\nl\nu\nu\nu\n\n"), Ids{});
    EXPECT_NE(shown_.find(L"Nothing to undo."), std::wstring::npos);
}

TEST_F(SelectionTest, EndsWithCancelOrOneObject)
{
    pick(L"all\n\x1b");
    EXPECT_EQ(result, RTCAN);
    EXPECT_TRUE(picked.empty());
    pick(L"w 0,0\n^C\n");
    EXPECT_EQ(result, RTCAN);
    EXPECT_EQ(pick(L"si 5,0\n"), Ids{flat_});
    EXPECT_EQ(result, RTNORM);
}

TEST_F(SelectionTest, SkipsFrozenLayersAndTakesLockedOnes)
{
    const auto setFar = [&](bool frozen, bool locked) {
        AcDbObjectPointer<AcDbLayerTable> table(database().layerTableId(), AcDb::kForRead);
        AcDbObjectId id;
        table->getAt(L"far", id);
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        layer->setIsFrozen(frozen);
        layer->setIsLocked(locked);
    };
    setFar(true, false);
    EXPECT_EQ(pick(L"all\n\n"), (Ids{flat_, arc_}));
    EXPECT_EQ(pick(L"20,5\n\n"), Ids{});
    setFar(false, true);
    EXPECT_EQ(pick(L"20,5\n\n"), Ids{far_});
    EXPECT_EQ(pick(L"all\n\n").size(), 3u);
}

TEST_F(SelectionTest, ByHandentRefusesWhatIsNoLivingEntity)
{
    const std::wstring layer = handent(database().layerZero());
    EXPECT_EQ(pick(layer + L"\n(handent \"FFFFFF\")\n(HANDENT \"" +
                   host::fromUtf8(host::handleText(arc_.handle().value())) + L"\" )\n\n"),
              Ids{arc_});
    const host::Drawing& drawing = database().drawing();
    const host::BlockPlace& space = drawing.blocks.at(drawing.modelSpace);
    EXPECT_EQ(pick(handent(drawing.id(space.begin)) + L"\n\n"), Ids{});
    EXPECT_EQ(pick(handent(drawing.id(space.end)) + L"\n\n"), Ids{});
    AcDbObjectPointer<AcDbEntity>(arc_, AcDb::kForWrite)->erase();
    EXPECT_EQ(pick(handent(arc_) + L"\n\n"), Ids{});
}

TEST_F(SelectionTest, APauseLastsForTheWholeSelection)
{
    static Ids atReturn;
    command(L"CALLS", [] {
        acedCommand({host::textToken(L"PICK"), host::textToken(L"\\")});
        atReturn = picked;
    });
    type(L"calls\nl\nw -1,-1\n11,1\n\n");
    EXPECT_EQ(atReturn, (Ids{far_, flat_}));
}

TEST_F(SelectionTest, TakesEntitiesAndSetsFromACaller)
{
    static ResbufChain chain;
    ads_name arc{};
    acdbGetAdsName(arc, arc_);
    chain = {host::textToken(L"PICK"), host::entityToken(arc),
             host::selectionToken(host::makeSelectionSet({far_, flat_})), host::textToken(L"")};
    command(L"CALLS", [] { acedCommand(chain); });
    resbuf off{static_cast<short>(RTSHORT), {}};
    acedSetVar(L"CMDECHO", off);
    EXPECT_EQ(transcript(L"calls\n"), L"calls\nCommand: "); // not even "1 found"
    EXPECT_EQ(picked, (Ids{arc_, far_, flat_}));
}

TEST_F(SelectionTest, SetsAreAskedForByMode)
{
    const auto get = [&](const wchar_t* mode, const void* p1 = nullptr, const void* p2 = nullptr,
                         const ResbufChain* filter = nullptr) {
        ads_name set{};
        Ids ids;
        if (acedSSGet(mode, p1, p2, filter, set) == RTNORM)
            ids = *host::selectionSetMembers(set);
        acedSSFree(set);
        return ids;
    };
    const ads_point low{-1, -1, 0};
    const ads_point high{9, 11, 0};
    EXPECT_EQ(get(L"_I"), Ids{});
    host::setPickFirst({arc_, far_});
    EXPECT_EQ(get(L"_I"), (Ids{arc_, far_}));
    EXPECT_EQ(get(L"_W", &low, &high), Ids{});
    EXPECT_EQ(get(L"_C", &low, &high), (Ids{flat_, arc_}));
    EXPECT_EQ(get(L"_L"), Ids{far_});
    EXPECT_EQ(get(L"_A").size(), 3u);

    resbuf kind{0, {}};
    kind.resval.rstring = L"LINE";
    resbuf layer{8, {}};
    layer.resval.rstring = L"x,F*";
    const ResbufChain lines{kind};
    const ResbufChain farLines{kind, layer};
    EXPECT_EQ(get(L"_X", nullptr, nullptr, &lines), (Ids{flat_, far_}));
    EXPECT_EQ(get(L"_X", nullptr, nullptr, &farLines), Ids{far_});
}

TEST_F(SelectionTest, SetsKeepOrderAndHoldEachOnce)
{
    ads_name set{};
    ads_name name{};
    ads_name same{};
    std::int32_t length = -1;
    acedSSAdd(nullptr, nullptr, set);
    for (const AcDbObjectId id : {far_, flat_, far_}) {
        acdbGetAdsName(name, id);
        EXPECT_EQ(acedSSAdd(&name, &set, same), RTNORM);
        EXPECT_EQ(same, set);
    }
    acedSSLength(set, length);
    EXPECT_EQ(length, 2);
    acedSSName(set, 1, name);
    AcDbObjectId id;
    acdbGetObjectId(id, name);
    EXPECT_EQ(id, flat_);
    EXPECT_EQ(acedSSName(set, 2, name), RTERROR);
    acdbGetAdsName(name, far_);
    EXPECT_EQ(acedSSDel(name, set), RTNORM);
    EXPECT_EQ(acedSSMemb(name, set), RTERROR);
    EXPECT_EQ(acdbGetObjectId(id, set), Acad::eInvalidInput); // a set is no entity
    EXPECT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(acedSSFree(set), RTERROR);
}

TEST(IdSequence, NumbersItsMembersAsAPlainListDoes)
{
    std::uint32_t random = 1;
    const auto next = [&](std::size_t below) {
        return (random = random * 48271u % 2147483647u) % below;
    };
    host::IdSequence sequence;
    Ids plain;
    for (int round = 0; round < 3000; ++round) {
        const AcDbObjectId id(7, static_cast<std::uint32_t>(next(300) + 1));
        const bool isMember = std::ranges::find(plain, id) != plain.end();
        ASSERT_EQ(sequence.has(id), isMember);
        if (next(2)) {
            sequence.add(id);
            if (!isMember)
                plain.push_back(id);
        } else {
            EXPECT_EQ(sequence.remove(id), isMember);
            std::erase(plain, id);
        }
        ASSERT_EQ(sequence.size(), plain.size());
        for (std::size_t number = 0; number < plain.size(); number += 1 + next(40))
            ASSERT_EQ(sequence[number], plain[number]);
        if (next(50) == 0) {
            ASSERT_EQ(sequence.ids(), plain);
        }
    }
}

TEST_F(SelectionTest, EntSelTellsEntityAndPoint)
{
    static ads_name name;
    static ads_point at;
    command(L"ONE", [] { result = acedEntSel(L"Which? ", name, at); });
    type(L"one 5,0.1\n");
    AcDbObjectId id;
    acdbGetObjectId(id, name);
    EXPECT_EQ(id, flat_);
    EXPECT_EQ(at, (ads_point{5, 0.1, 0}));
    type(L"one " + handent(far_) + L"\n");
    acdbGetObjectId(id, name);
    EXPECT_EQ(id, far_);
    type(L"one 100,100\n");
    EXPECT_EQ(result, RTERROR);
    type(L"one\n^C\n");
    EXPECT_EQ(result, RTCAN);
}
