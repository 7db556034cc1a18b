#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/edit/command_call.h"
#include "host/edit/editor_reactor.h"
#include "host/text/encoding.h"
#include "tests/support/opened_drawing.h"

namespace {

std::string definition(const char* handle, const char* tag, const char* prompt, const char* value,
                       int flags)
{
    return std::string("0\nATTDEF\n5\n") + handle +
           "\n100\nAcDbEntity\n8\nTags\n62\n3\n100\nAcDbText\n10\n1.0\n20\n2.0\n30\n0.0\n40\n0."
           "5\n1\n" +
           value + "\n51\n15.0\n100\nAcDbAttributeDefinition\n3\n" + prompt + "\n2\n" + tag +
           "\n70\n" + std::to_string(flags) + "\n";
}

std::string number(double value)
{
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.4g", value + 0.0);
    return digits;
}

class InsertCommand : public DrawingTest {
protected:
    InsertCommand()
    {
        DxfDrawing drawing; // in metres
        drawing.layer("Tags");
        drawing.layer("Plan");
        drawing.block("Tree");
        drawing.block("Lamp", 4); // millimetres
        drawing.block("Post", 0, {}, "280\n1\n281\n1\n");
        drawing.block("Door", 0,
                      definition("E10", "NUMBER", "Door number", "12", 0) +
                          definition("E11", "MAKER", "", "ACME", 4) +
                          definition("E12", "FIXED", "Fixed", "oak", 2) +
                          definition("E13", "HIDDEN", "Hidden", "x y", 8));
        open(drawing);
        type(L"");
        printed();
    }

    // Block, place, factors, degrees; "none" without a reference.
    std::string reference()
    {
        const AcDbObjectPointer<AcDbBlockReference> found(last(), AcDb::kForRead);
        if (!found)
            return "none";
        const AcGePoint3d p = found->position();
        const AcGeScale3d s = found->scaleFactors();
        return host::toUtf8(found->blockName()) + " " + number(p.x) + "," + number(p.y) + " " +
               number(s.sx) + "," + number(s.sy) + "," + number(s.sz) + " " +
               number(found->rotation() * 180.0 / 3.141592653589793);
    }
    std::string attributes()
    {
        const AcDbObjectPointer<AcDbBlockReference> found(last(), AcDb::kForRead);
        std::string values;
        for (const AcDbObjectId id : found->attributes())
            if (const AcDbObjectPointer<AcDbAttribute> one(id, AcDb::kForRead); one)
                values += host::toUtf8(one->tag() + L"=" + one->textString()) + ";";
        return values;
    }
};

} // namespace

TEST_F(InsertCommand, AsksAsThePlatformDoes)
{
    EXPECT_EQ(transcript(L"-insert\ntree\n3,4\n2\n\n30\n"),
              L"-insert\nEnter block name or [?]: tree\n"
              L"Specify insertion point or [Scale/X/Y/Z/Rotate]: 3,4\n"
              L"Enter X scale factor, specify opposite corner, or [Corner/XYZ] <1>: 2\n"
              L"Enter Y scale factor <use X scale factor>: \n"
              L"Specify rotation angle <0>: 30\nCommand: ");
    EXPECT_EQ(reference(), "Tree 3,4 2,2,2 30");
    EXPECT_EQ(transcript(L"-insert\n\n\x3"),
              L"-insert\nEnter block name or [?] <Tree>: \n"
              L"Specify insertion point or [Scale/X/Y/Z/Rotate]: *Cancel*\nCommand: ");
    EXPECT_EQ(transcript(L"-insert\nPost\n0,0\n5\n\n"),
              L"-insert\nEnter block name or [?] <Tree>: Post\n"
              L"Specify insertion point or [Scale/Rotate]: 0,0\n"
              L"Specify scale factor <1>: 5\nSpecify rotation angle <0>: \nCommand: ");
    EXPECT_EQ(reference(), "Post 0,0 5,5,5 0");
}

TEST_F(InsertCommand, ScalesAndAnglesInEveryForm)
{
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"-insert\ntree\n1,1\n\n\n\n", "Tree 1,1 1,1,1 0"},
        {L"-insert\ntree\n1,1\n2\n3\n\n", "Tree 1,1 2,3,2 0"},
        {L"-insert\ntree\n1,1\n_x\n2\n3\n4\n90\n", "Tree 1,1 2,3,4 90"},
        {L"-insert\ntree\n1,1\nXYZ\n2\n\n\n\n", "Tree 1,1 2,2,2 0"},
        {L"-insert\ntree\n1,1\n4,6\n\n", "Tree 1,1 3,5,3 0"},
        {L"-insert\ntree\n1,1\nc\n4,6\n\n", "Tree 1,1 3,5,3 0"},
        {L"-insert\ntree\n1,1\n0\nzero\n-2\n\n\n", "Tree 1,1 -2,-2,-2 0"},
        {L"-insert\ntree\ns\n3\n1,1\n\n", "Tree 1,1 3,3,3 0"},
        {L"-insert\ntree\nx\n3\ny\n2\nr\n45\n1,1\n", "Tree 1,1 3,2,3 45"},
        {L"-insert\npost\nscale\n2\nrotate\n10\n1,1\n", "Post 1,1 2,2,2 10"},
        {L"-insert\nlamp\n1,1\n2\n\n\n", "Lamp 1,1 0.002,0.002,0.002 0"},
    };
    for (const auto& [typed, expected] : cases) {
        SCOPED_TRACE(host::toUtf8(typed));
        type(typed);
        EXPECT_EQ(reference(), expected);
    }
}

TEST_F(InsertCommand, AttributesAreAskedForAndThenVerified)
{
    const std::wstring printed = transcript(L"-insert\ndoor\n10,0\n2\n\n90\n17 b\n\nSmith\n");
    EXPECT_TRUE(printed.ends_with(L"Enter attribute values\nDoor number <12>: 17 b\n"
                                  L"MAKER <ACME>: \nVerify attribute values\n"
                                  L"MAKER <ACME>: Smith\nCommand: "))
        << host::toUtf8(printed);
    EXPECT_EQ(attributes(), "NUMBER=17 b;MAKER=Smith;HIDDEN=x y;");

    // from (1, 2) in the block: doubled, a quarter turn, at (10, 0)
    const AcDbObjectPointer<AcDbBlockReference> found(last(), AcDb::kForRead);
    const AcDbObjectPointer<AcDbAttribute> one(found->attributes().front(), AcDb::kForRead);
    ASSERT_TRUE(one);
    EXPECT_TRUE(one->position().isEqualTo({6.0, 2.0, 0.0}));
    EXPECT_DOUBLE_EQ(one->height(), 1.0);
    EXPECT_NEAR(one->rotation(), 1.5707963267948966, 1e-12);
    EXPECT_NEAR(one->oblique(), 0.2617993877991494, 1e-12);
    EXPECT_EQ(one->layer(), L"Tags");
    EXPECT_EQ(one->colorIndex(), 3);
}

TEST_F(InsertCommand, WithoutRequestsAttributesTakeTheirDefaults)
{
    type(L"attreq\n0\n");
    type(L"-insert\ndoor\n0,0\n\n\n\n");
    EXPECT_EQ(attributes(), "NUMBER=12;MAKER=ACME;HIDDEN=x y;");
}

TEST_F(InsertCommand, TakesTheCurrentProperties)
{
    type(L"clayer\nPlan\ncecolor\n2\n-insert\ntree\n0,0\n\n\n\n");
    const AcDbObjectPointer<AcDbBlockReference> found(last(), AcDb::kForRead);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->layer(), L"Plan");
    EXPECT_EQ(found->colorIndex(), 2);
}

TEST_F(InsertCommand, CancelAnywhereMakesNothing)
{
    for (const wchar_t* typed :
         {L"-insert\n\x3", L"-insert\ndoor\n\x3", L"-insert\ndoor\nr\n\x3",
          L"-insert\ndoor\n0,0\n\x3", L"-insert\ndoor\n0,0\nc\n\x3", L"-insert\ndoor\n0,0\n1\n\x3",
          L"-insert\ndoor\n0,0\n1\n1\n\x3", L"-insert\ndoor\n0,0\n1\n1\n0\n\x3",
          L"-insert\ndoor\n0,0\n1\n1\n0\n1\n2\n\x3"}) {
        SCOPED_TRACE(host::toUtf8(typed));
        type(typed);
        EXPECT_EQ(reference(), "none");
    }
}

TEST_F(InsertCommand, ABlockThatIsNoneIsNamed)
{
    EXPECT_NE(transcript(L"-insert\nbush\n").find(L"Cannot find block \"bush\".\n"),
              std::wstring::npos);
    EXPECT_NE(transcript(L"-insert\n*Model_Space\n").find(L"Cannot find block"),
              std::wstring::npos);
    EXPECT_NE(transcript(L"-insert\n?\n*o*\n").find(L"    \"Post\"\n    \"Door\"\n"),
              std::wstring::npos);
}

namespace {

int result;
bool suspended;

void insertWith(int answers)
{
    ResbufChain tokens = {
        host::textToken(L"_.-insert"), host::textToken(L"door"), host::pointToken({1.0, 2.0, 0.0}),
        host::textToken(L"_x"),        host::realToken(2.0),     host::realToken(3.0),
        host::realToken(4.0)};
    tokens.insert(tokens.end(), static_cast<std::size_t>(answers), host::textToken(nullptr));
    result = acedCmd(tokens);
    resbuf names;
    acedGetVar(L"CMDNAMES", names);
    suspended = names.resval.rstring.find(L"INSERT") != std::wstring::npos;
}

} // namespace

TEST_F(InsertCommand, RunsFromInsideACommandAndDropsAnswersThatAreTooMany)
{
    command(L"PLACE", [] { insertWith(7); });
    EXPECT_EQ(transcript(L"cmdecho\n0\nplace\n"),
              L"cmdecho\nEnter new value for CMDECHO <1>: 0\nCommand: place\nCommand: ");
    EXPECT_EQ(result, RTNORM);
    EXPECT_FALSE(suspended);
    EXPECT_EQ(reference(), "Door 1,2 2,3,4 0");
    EXPECT_EQ(attributes(), "NUMBER=12;MAKER=ACME;HIDDEN=x y;");
}

TEST_F(InsertCommand, WithTooFewAnswersItStaysOpen)
{
    command(L"PLACE", [] { insertWith(2); });
    type(L"cmdecho\n0\nplace\n");
    EXPECT_TRUE(suspended);
    type(L"ACME Ltd\n\n");
    EXPECT_EQ(attributes(), "NUMBER=12;MAKER=ACME Ltd;HIDDEN=x y;");
}
