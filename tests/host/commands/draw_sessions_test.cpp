#include "host/db/circle.h"
#include "host/db/dictionary.h"
#include "host/db/line.h"
#include "host/db/mleader.h"
#include "host/db/mline.h"
#include "host/db/polyline3d.h"
#include "host/edit/command_call.h"
#include "host/edit/editor_reactor.h"
#include "host/edit/selection_set.h"
#include "tests/support/drawn_entities.h"
#include "tests/support/opened_drawing.h"

// Drawing commands in the course of a session: what they say and take, cancel at each prompt, undo,
// calls from other commands, and drawings that lack what they need.

namespace {

class DrawSessions : public DrawnTest {
protected:
    std::string text(AcDbObjectId id) override
    {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        return entity ? entity->recordName() : "nothing";
    }
    // What a command says until it is cancelled.
    std::wstring asked(std::wstring_view typed)
    {
        const std::wstring end = L"*Cancel*\nCommand: ";
        const std::wstring all = transcript(std::wstring(typed) + L'\x3');
        EXPECT_TRUE(all.ends_with(end)) << host::toUtf8(all);
        return all.substr(0, all.size() - std::min(all.size(), end.size()));
    }
};

class OldDrawing : public DrawingTest {
protected:
    OldDrawing()
    {
        open(DxfDrawing()); // of R2000, without any style of multilines or multileaders
        type(L"");
    }
    std::wstring keyOf(AcDbObjectId style)
    {
        const AcDbObjectPointer<AcDbObject> object(style, AcDb::kForRead);
        if (!object)
            return L"none";
        const AcDbObjectPointer<AcDbDictionary> owner(object->ownerId(), AcDb::kForRead);
        std::wstring key;
        return owner && owner->nameAt(style, key) == Acad::eOk ? key : L"no entry";
    }
};

// Everything that this room draws, each with one object.
constexpr const wchar_t* kEach[] = {
    L"line\n0,0\n1,0\n\n",         L"point\n0,0\n",
    L"circle\n0,0\n1\n",           L"arc\n1,0\n0,1\n-1,0\n",
    L"ellipse\n0,0\n4,0\n1\n",     L"pline\n0,0\n1,0\n\n",
    L"3dpoly\n0,0\n1,0\n\n",       L"3dface\n0,0\n1,0\n1,1\n\n\n",
    L"ray\n0,0\n1,0\n\n",          L"xline\n0,0\n1,0\n\n",
    L"spline\n0,0\n1,0\n\n",       L"mline\n0,0\n1,0\n\n",
    L"wipeout\n0,0\n1,0\n1,1\n\n", L"mpolygon\n0,0\n1,0\n1,1\n\n\n",
    L"mesh\nbox\n0,0\n1,1\n1\n",   L"mleader\n0,0\n1,0\ntext\n",
};

std::vector<int> results; // of calls from the test's own command

} // namespace

TEST_F(DrawSessions, OtherPromptsAreThePlatformsToo)
{
    type(L"");
    EXPECT_EQ(asked(L"ellipse\na\nc\n0,0\n4,0\n2\n0\n"),
              L"ellipse\nSpecify axis endpoint of ellipse or [Arc/Center]: a\n"
              L"Specify axis endpoint of elliptical arc or [Center]: c\n"
              L"Specify center of ellipse: 0,0\nSpecify endpoint of axis: 4,0\n"
              L"Specify distance to other axis or [Rotation]: 2\n"
              L"Specify start angle or [Parameter]: 0\n"
              L"Specify end angle or [Parameter/Included angle]: ");
    EXPECT_EQ(asked(L"3dpoly\n0,0\n1,0\n1,1\n"),
              L"3dpoly\nSpecify start point of polyline: 0,0\n"
              L"Specify endpoint of line or [Undo]: 1,0\nSpecify endpoint of line or [Undo]: 1,1\n"
              L"Specify endpoint of line or [Close/Undo]: ");
    EXPECT_EQ(asked(L"3dface\n0,0\n1,0\n1,1\n\n"),
              L"3dface\nSpecify first point or [Invisible]: 0,0\n"
              L"Specify second point or [Invisible]: 1,0\n"
              L"Specify third point or [Invisible] <exit>: 1,1\n"
              L"Specify fourth point or [Invisible] <create three-sided face>: \n"
              L"Specify third point or [Invisible] <exit>: ");
    EXPECT_EQ(asked(L"mline\ns\n2.5\n0,0\n1,0\n"),
              L"mline\nCurrent settings: Justification = Top, Scale = 20.00, Style = STANDARD\n"
              L"Specify start point or [Justification/Scale/STyle]: s\n"
              L"Enter mline scale <20.00>: 2.5\n"
              L"Current settings: Justification = Top, Scale = 2.50, Style = STANDARD\n"
              L"Specify start point or [Justification/Scale/STyle]: 0,0\nSpecify next point: 1,0\n"
              L"Specify next point or [Undo]: ");
    EXPECT_EQ(asked(L"spline\n0,0\n1,0\n1,1\n"),
              L"spline\nCurrent settings: Method=Fit   Knots=Chord\n"
              L"Specify first point or [Method]: 0,0\n"
              L"Enter next point or [start Tangency/toLerance]: 1,0\n"
              L"Enter next point or [end Tangency/toLerance/Undo]: 1,1\n"
              L"Enter next point or [end Tangency/toLerance/Undo/Close]: ");
    EXPECT_EQ(asked(L"wipeout\n\n"),
              L"wipeout\nSpecify first point or [Frames/Polyline] <Polyline>: \n"
              L"Select a closed polyline: ");
    EXPECT_EQ(asked(L"mesh\ncy\n0,0\n2\n"),
              L"mesh\nCurrent smoothness level is set to: 0\n"
              L"Enter an option [Box/Cone/CYlinder/Pyramid/Sphere/Wedge/Torus] <Box>: cy\n"
              L"Specify center point of base or [3P/2P/Ttr]: 0,0\n"
              L"Specify base radius or [Diameter]: 2\n"
              L"Specify height or [2Point/Axis endpoint]: ");
    EXPECT_EQ(asked(L"mleader\n0,0\n5,5\n"),
              L"mleader\nSpecify leader arrowhead location or [leader Landing first/Content "
              L"first/Options] <Options>: 0,0\nSpecify leader landing location: 5,5\n"
              L"Enter text: ");
}

TEST_F(DrawSessions, CancelIsTakenAtEveryPrompt)
{
    // Each command with the answers to all of its prompts; cancelled after none, one, two ...
    const std::vector<std::vector<const wchar_t*>> answers = {
        {L"circle", L"d", L"0,0", L"d"},
        {L"circle", L"3p", L"0,0", L"1,0"},
        {L"circle", L"2p", L"0,0"},
        {L"circle", L"t", L"0,0"},
        {L"arc", L"c", L"0,0", L"1,0", L"a"},
        {L"arc", L"0,0", L"e", L"1,0", L"d"},
        {L"ellipse", L"a", L"0,0", L"4,0", L"r", L"30", L"p", L"0", L"i"},
        {L"xline", L"o", L"t", L"0,0"},
        {L"xline", L"b", L"0,0", L"1,0"},
        {L"xline", L"a", L"r"},
        {L"spline", L"m", L"cv", L"d", L"2", L"0,0", L"1,0"},
        {L"spline", L"m", L"f", L"0,0", L"t", L"1,0", L"2,0", L"l", L"1", L"t"},
        {L"mline", L"j", L"t", L"s", L"1", L"st", L"standard", L"0,0"},
        {L"wipeout", L"f"},
        {L"wipeout", L"0,0", L"1,0", L"1,1"},
        {L"mpolygon", L"0,0", L"1,0", L"1,1", L"c", L"s"},
        {L"mesh", L"p", L"s", L"4", L"e", L"0,0", L"1,0", L"t", L"1", L"2p", L"0,0"},
        {L"mesh", L"b", L"c", L"0,0", L"l", L"1", L"1"},
        {L"mesh", L"t", L"2p", L"0,0", L"4,0", L"2p", L"0,0"},
        {L"mleader", L"o", L"l", L"s", L"a", L"y", L"1", L"m", L"3", L"x", L"0,0", L"1,1", L"2,2"},
    };
    for (const std::vector<const wchar_t*>& steps : answers) {
        for (std::size_t count = 1; count <= steps.size(); ++count) {
            std::wstring typed;
            for (std::size_t i = 0; i < count; ++i)
                typed += std::wstring(steps[i]) + L"\n";
            SCOPED_TRACE(host::toUtf8(typed));
            const std::wstring printed = transcript(typed + L'\x3');
            EXPECT_NE(printed.find(L"*Cancel*"), std::wstring::npos);
            EXPECT_EQ(session().engine().waiting().command, L"");
            EXPECT_TRUE(drawn().empty());
        }
    }
}

TEST_F(DrawSessions, EverythingTakesTheCurrentPropertiesAndIsOneStepOfUndo)
{
    type(L"-layer\nnew\nWalls\nset\nWalls\n\ncecolor\n3\nceltscale\n2\ncelweight\n50\n");
    for (const wchar_t* const typed : kEach) {
        SCOPED_TRACE(host::toUtf8(typed));
        type(typed);
        ASSERT_EQ(drawn().size(), 1u);
        {
            const AcDbObjectPointer<AcDbEntity> entity = last<AcDbEntity>();
            EXPECT_EQ(entity->layer(), L"Walls");
            EXPECT_EQ(entity->colorIndex(), 3);
            EXPECT_EQ(entity->linetypeScale(), 2.0);
            EXPECT_EQ(entity->lineWeight(), 50);
            for (const AcDbObjectId child : host::childrenOf(*entity)) {
                const AcDbObjectPointer<AcDbEntity> vertex(child, AcDb::kForRead);
                EXPECT_EQ(vertex->layer(), L"Walls");
            }
        }
        type(L"u\n");
        EXPECT_TRUE(drawn().empty());
        type(L"redo\n");
        EXPECT_EQ(drawn().size(), 1u);
        type(L"u\n");
    }
}

TEST_F(DrawSessions, ACommandMayDrawByCallingOthers)
{
    results.clear();
    command(L"CALLS", [] {
        using host::pointToken;
        using host::textToken;
        results.push_back(acedCommand(
            {textToken(L"_.LINE"), pointToken({0, 0, 0}), pointToken({9, 0, 0}), textToken(L"")}));
        ads_name line{};
        acdbEntLast(line);
        // a pause leaves the second point to the user
        results.push_back(acedCommand(
            {textToken(L"_.circle"), textToken(L"_2p"), pointToken({1, 1, 0}), textToken(L"\\")}));
        results.push_back(
            acedCommand({textToken(L"_.line"), pointToken({0, 0, 0}), textToken(L"\\")}));
    });
    type(L"calls\n4,5\n");
    const AcDbObjectPointer<AcDbCircle> circle(drawn().at(1), AcDb::kForRead);
    ASSERT_TRUE(circle);
    EXPECT_EQ(space(circle->center()), "2.5,3,0");
    EXPECT_EQ(number(circle->radius()), "2.5");
    EXPECT_EQ(session().engine().commandNames(), L"CALLS'LINE"); // asks the user

    type(L"3,3\n\x3");
    EXPECT_EQ(results.size(), 3u);
    EXPECT_EQ(drawn().size(), 3u); // the segment stays
    EXPECT_EQ(session().engine().waiting().command, L"");
}

TEST_F(DrawSessions, WhatIsTakenBackInsideACommandIsErased)
{
    struct Listener : AcDbDatabaseReactor {
        std::vector<AcDbObjectId> appended;
        void objectAppended(const AcDbDatabase*, const AcDbObject* object) override
        {
            appended.push_back(object->objectId());
        }
    } listener;
    database().addReactor(&listener);
    type(L"line\n0,0\n1,0\n2,0\nu\n5,5\n\n");
    database().removeReactor(&listener);
    ASSERT_EQ(listener.appended.size(), 3u);
    EXPECT_FALSE(listener.appended[0].isErased());
    EXPECT_TRUE(listener.appended[1].isErased());
    EXPECT_EQ(drawn(), (std::vector<AcDbObjectId>{listener.appended[0], listener.appended[2]}));
}

TEST_F(OldDrawing, StylesAreMadeWithTheFirstObjectThatNeedsThem)
{
    type(L"mline\n0,0\n9,0\n\n");
    {
        const AcDbObjectPointer<AcDbMline> lines(last(), AcDb::kForRead);
        ASSERT_TRUE(lines);
        EXPECT_EQ(keyOf(lines->style()), L"STANDARD");
    }
    type(L"mleader\n0,0\n5,5\nOld\n");
    AcDbObjectId style;
    {
        const AcDbObjectPointer<AcDbMLeader> leader(last(), AcDb::kForRead);
        ASSERT_TRUE(leader);
        style = leader->MLeaderStyle();
        EXPECT_EQ(keyOf(style), L"Standard");
    }
    type(L"mleader\n0,0\n5,5\nAgain\n");
    const AcDbObjectPointer<AcDbMLeader> leader(last(), AcDb::kForRead);
    ASSERT_TRUE(leader);
    EXPECT_EQ(leader->MLeaderStyle(), style);
}
