#include "tests/support/command_test.h"

namespace {

resbuf shortOf(short value)
{
    resbuf item{static_cast<short>(RTSHORT), {}};
    item.resval.rint = value;
    return item;
}

resbuf realOf(double value)
{
    resbuf item{static_cast<short>(RTREAL), {}};
    item.resval.rreal = value;
    return item;
}

resbuf textOf(const wchar_t* value)
{
    resbuf item{static_cast<short>(RTSTR), {}};
    item.resval.rstring = value;
    return item;
}

using SystemVariablesTest = CommandTest;

} // namespace

TEST_F(SystemVariablesTest, HaveTheTypesOfTheirHome)
{
    const std::pair<const wchar_t*, int> cases[] = {
        {L"LUPREC", RTSHORT},   {L"luprec", RTSHORT},      {L"LTSCALE", RTREAL},
        {L"CLAYER", RTSTR},     {L"LASTPOINT", RT3DPOINT}, {L"CMDECHO", RTSHORT},
        {L"DWGNAME", RTSTR},    {L"USERR3", RTREAL},       {L"USERS1", RTSTR},
        {L"INSUNITS", RTSHORT}, {L"CDATE", RTREAL},        {L"HANDSEED", RTSTR},
        {L"EXTMIN", RT3DPOINT}, {L"LIMMIN", RTPOINT},
    };
    for (const auto& [name, type] : cases) {
        resbuf value;
        ASSERT_EQ(acedGetVar(name, value), RTNORM) << name;
        EXPECT_EQ(value.restype, type) << name;
    }
    resbuf value;
    EXPECT_EQ(acedGetVar(L"NOSUCHVARIABLE", value), RTERROR);
    EXPECT_EQ(acedGetVar(L"", value), RTERROR);
}

TEST_F(SystemVariablesTest, TakeTheirOwnTypeAndShortsForWiderNumbers)
{
    struct Case {
        const wchar_t* name;
        resbuf value;
        int result;
    };
    const Case cases[] = {
        {L"LUPREC", shortOf(6), RTNORM},          {L"LUPREC", realOf(6), RTERROR},
        {L"LUPREC", textOf(L"6"), RTERROR},       {L"LUPREC", shortOf(9), RTERROR},
        {L"LUPREC", shortOf(-1), RTERROR},        {L"LTSCALE", realOf(2.5), RTNORM},
        {L"LTSCALE", shortOf(3), RTNORM},         {L"LTSCALE", realOf(0.0), RTERROR},
        {L"ELEVATION", textOf(L"2"), RTERROR},    {L"CLAYER", textOf(L"0"), RTNORM},
        {L"CLAYER", textOf(L"nowhere"), RTERROR}, {L"CLAYER", shortOf(0), RTERROR},
        {L"USERS1", textOf(L"a b"), RTNORM},      {L"CMDNAMES", textOf(L"x"), RTERROR},
        {L"HANDSEED", textOf(L"1"), RTERROR},     {L"NOSUCHVARIABLE", shortOf(1), RTERROR},
    };
    for (const Case& each : cases)
        EXPECT_EQ(acedSetVar(each.name, each.value), each.result) << each.name;
    resbuf value;
    acedGetVar(L"LTSCALE", value);
    EXPECT_EQ(value.restype, RTREAL);
    EXPECT_EQ(value.resval.rreal, 3.0);
    EXPECT_EQ(database().luprec(), 6);
}

TEST_F(SystemVariablesTest, AreTypedAsCommands)
{
    type(L"");
    printed();
    EXPECT_EQ(transcript(L"luprec 3\n"), L"luprec\nEnter new value for LUPREC <4>: 3\nCommand: ");
    EXPECT_EQ(database().luprec(), 3);
    EXPECT_EQ(transcript(L"LUPREC\n\n"), L"LUPREC\nEnter new value for LUPREC <3>: \nCommand: ");
    EXPECT_EQ(transcript(L"luprec 9 x 2\n"),
              L"luprec\nEnter new value for LUPREC <3>: 9\nRequires an integer between 0 and 8.\n"
              L"Enter new value for LUPREC <3>: x\nRequires an integer value.\n"
              L"Enter new value for LUPREC <3>: 2\nCommand: ");
    EXPECT_EQ(transcript(L"users1 two words\n"),
              L"users1\nEnter new value for USERS1, or . for none <\"\">: two words\nCommand: ");
    EXPECT_EQ(transcript(L"dwgtitled\n"), L"dwgtitled\nDWGTITLED = 0 (read only)\nCommand: ");
}

TEST_F(SystemVariablesTest, OfTheDrawingAreTakenBack)
{
    type(L"luprec 7\n");
    AcDbDatabase& db = database();
    EXPECT_EQ(session().engine().steps().undo(db.drawing()), L"SETVAR");
    EXPECT_EQ(db.luprec(), 4);
    session().engine().steps().redo(db.drawing());
    EXPECT_EQ(db.luprec(), 7);
}

TEST_F(SystemVariablesTest, AScriptIsOneStep)
{
    AcDbDatabase& db = database();
    host::UndoSteps& steps = session().engine().steps();
    type(L"luprec 5\n");
    session().engine().beginStep();
    type(L"luprec 6\nltscale 2\nluprec 7");
    session().engine().endStep(); // ends the open line, too
    EXPECT_EQ(db.luprec(), 7);
    steps.undo(db.drawing());
    EXPECT_EQ(db.luprec(), 5);
    steps.redo(db.drawing());
    EXPECT_EQ(db.luprec(), 7);
    steps.undo(db.drawing());
    steps.undo(db.drawing());
    EXPECT_EQ(db.luprec(), 4);
    EXPECT_EQ(steps.undo(db.drawing()), L"");
}

TEST_F(SystemVariablesTest, EachStepBeginsALineOfItsOwn)
{
    type(L"luprec 5 luprec ");
    session().engine().endStep();
    session().engine().beginStep();
    type(L"^C\n");
    session().engine().endStep();
    EXPECT_EQ(session().engine().waiting().kind, host::WaitKind::command);
    EXPECT_EQ(database().luprec(), 5);
}

TEST_F(SystemVariablesTest, AFailedCommandGoesBackToItsStart)
{
    command(L"FAILS", [] {
        resbuf value = shortOf(8);
        acedSetVar(L"LUPREC", value);
        throw 0;
    });
    type(L"luprec 5\nfails\n");
    EXPECT_EQ(database().luprec(), 5);
    session().engine().steps().undo(database().drawing());
    EXPECT_EQ(database().luprec(), 4);
}
