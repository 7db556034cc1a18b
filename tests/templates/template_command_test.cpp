#include "tests/templates/template_test.h"

#include "store/od_tables.h"

using Lines = std::vector<std::wstring>;

TEST_F(TemplateTest, TheWholeFile)
{
    DxfDrawing drawing;
    look::addResources(drawing);
    drawing.line("Walls", "62\n1\n");
    drawing.circle(5.0);
    drawing.line("Walls", "62\n1\n");
    drawing.circle(9.0);
    drawing.line("Walls", "62\n1\n6\nDashed\n");
    open(drawing, "town.dxf");
    const std::vector<OdField> fields = {
        OdField(L"NAME", OdType::character), OdField(L"FLOORS", OdType::integer),
        OdField(L"AREA", OdType::real), OdField(L"PLACE", OdType::point)};
    for (const wchar_t* const table : {L"WALLS", L"TPMID_1", L"CNTR_X", L"cntr_y", L"X_CNTR_"})
        ASSERT_EQ(createTable(storeId(), table, std::span(fields).first(table[0] == L'W' ? 4 : 1)),
                  AcMap::kOk);

    EXPECT_TRUE(tells(generate(), L"Completed: 3/5\n"));
    const std::wstring name = (folder() / "town.dxf").wstring();
    EXPECT_EQ(written(), L"#BlockReference|" + name + L"\n#BlockReferenceFile|" + name +
                             L"\n#Dimension|" + name + L"\n#Layer|" + name + L"\n#Layout|" + name +
                             L"\n#Linetype|" + name + L"\n#MLeader|" + name + L"\n#Mline|" + name +
                             L"\n#Pattern|" + name + L"\n#Textstyle|" + name +
                             L"\n\n"
                             L"Variable|INSUNITS|6\n"
                             L"Variable|LUPREC|4\n"
                             L"\n"
                             L"Class|Circle|1\n"
                             L"\n"
                             L"obj_name|circle_1_0|1|5000|Icons/Circle.png\n"
                             L"|obj_type|Circle\n"
                             L"||obj_prop|color|ByLayer\n"
                             L"||obj_prop|layer|0\n"
                             L"||obj_prop|linetype|ByLayer\n"
                             L"||obj_prop|linetypeScale|1.0000\n"
                             L"||obj_prop|lineWeight|ByLayer\n"
                             L"||obj_prop|circleMode|Center\n"
                             L"|od_name|OD_NAME\n"
                             L"||od_key|OD_KEY\n"
                             L"\n"
                             L"/Class\n"
                             L"\n"
                             L"Class|Line|1\n"
                             L"\n"
                             L"obj_name|line_1_Walls|1|5000|Icons/Line.png\n"
                             L"|obj_type|Line\n"
                             L"||obj_prop|color|1\n"
                             L"||obj_prop|layer|Walls\n"
                             L"||obj_prop|linetype|ByLayer\n"
                             L"||obj_prop|linetypeScale|1.0000\n"
                             L"||obj_prop|lineWeight|ByLayer\n"
                             L"|od_name|OD_NAME\n"
                             L"||od_key|OD_KEY\n"
                             L"\n"
                             L"obj_name|line_2_Walls|1|5000|Icons/Line.png\n"
                             L"|obj_type|Line\n"
                             L"||obj_prop|color|1\n"
                             L"||obj_prop|layer|Walls\n"
                             L"||obj_prop|linetype|Dashed\n"
                             L"||obj_prop|linetypeScale|1.0000\n"
                             L"||obj_prop|lineWeight|ByLayer\n"
                             L"|od_name|OD_NAME\n"
                             L"||od_key|OD_KEY\n"
                             L"\n"
                             L"/Class\n"
                             L"\n"
                             L"\n"
                             L"#od_name|WALLS\n"
                             L"#|od_fld|NAME|description|Character\n"
                             L"#|od_fld|FLOORS|description|Integer\n"
                             L"#|od_fld|AREA|description|Real\n"
                             L"#|od_fld|PLACE|description|Point\n"
                             L"\n"
                             L"#od_name|cntr_y\n"
                             L"#|od_fld|NAME|description|Character\n"
                             L"\n"
                             L"#od_name|X_CNTR_\n"
                             L"#|od_fld|NAME|description|Character\n");
}

TEST_F(TemplateTest, TheFormatIsKeptOnceItIsAccepted)
{
    DxfDrawing drawing;
    drawing.line();
    open(drawing);
    const wchar_t* const refusal = L"Error: invalid format (%T/%t, %i are required).\n";
    const auto names = [this] { return rest(L"obj_name|"); };

    EXPECT_TRUE(tells(generate(), L"Format<%t_%i_%L>: "));
    EXPECT_EQ(names(), Lines{L"line_1_0|1|5000|Icons/Line.png"});
    EXPECT_TRUE(tells(transcript(L"kelmaro_template\n\n%t %L\n"), refusal));
    EXPECT_TRUE(tells(transcript(L"kelmaro_template\n\n%i\n"), refusal));
    std::filesystem::remove(target());

    const std::wstring printed = generate(L"%T no %i");
    EXPECT_TRUE(tells(printed, L"Format<%t_%i_%L>: ")); // what was refused left it alone
    EXPECT_TRUE(tells(printed, L"Completed: 1/1\n"));
    EXPECT_EQ(names(), Lines{L"Line no 1|1|5000|Icons/Line.png"});
    std::filesystem::remove(target());
    EXPECT_TRUE(tells(generate(), L"Format<%T no %i>: "));
    EXPECT_EQ(names(), Lines{L"Line no 1|1|5000|Icons/Line.png"});
}

// Also when the dialog is cancelled behind it, and for the next drawing.
TEST_F(TemplateTest, TheFormatOutlivesTheDialogAndTheDrawing)
{
    DxfDrawing drawing;
    drawing.line();
    open(drawing);
    type(L"kelmaro_template\n\n%i%T\n\x1b");
    EXPECT_FALSE(std::filesystem::exists(target()));
    open(drawing, "other.dxf");
    EXPECT_TRUE(tells(generate(), L"Format<%i%T>: "));
}

TEST_F(TemplateTest, WhatIsSelectedIsTaken)
{
    DxfDrawing drawing;
    drawing.layer("Locked", 4);
    const std::string first = drawing.line();
    const std::string second = drawing.circle(1.0);
    const std::string locked = drawing.line("Locked");
    drawing.entity("POINT", "AcDbPoint", look::origin);
    open(drawing);

    EXPECT_TRUE(tells(generate(), L"Completed: 3/3\n")); // without the locked one
    EXPECT_EQ(rest(L"Class|"), (Lines{L"Circle|1", L"Line|1", L"Point|1"}));

    std::filesystem::remove(target());
    host::setPickFirst({idOf(second), idOf(locked), idOf(first)});
    EXPECT_TRUE(tells(transcript(L"kelmaro_template\n\n" + quoted(target())), L"Completed: 2/2\n"));
    EXPECT_EQ(rest(L"Class|"), (Lines{L"Circle|1", L"Line|1"}));

    std::filesystem::remove(target());
    host::setPickFirst({});
    EXPECT_TRUE(
        tells(transcript(L"kelmaro_template\nlast\n\n\n" + quoted(target())), L"Completed: 1/1\n"));
    EXPECT_EQ(rest(L"Class|"), Lines{L"Point|1"});
}

TEST_F(TemplateTest, EndsWithoutAWordWhereNothingIsLeft)
{
    DxfDrawing drawing;
    drawing.layer("Locked", 4);
    const std::string locked = drawing.line("Locked");
    open(drawing);
    EXPECT_FALSE(tells(transcript(L"kelmaro_template\n\n"), L"Format"));
    host::setPickFirst({idOf(locked)});
    const std::wstring printed = transcript(L"kelmaro_template\n");
    EXPECT_FALSE(tells(printed, L"Format") || tells(printed, L"rror"));
    open(DxfDrawing(), "empty.dxf");
    EXPECT_FALSE(tells(transcript(L"kelmaro_template\n\n"), L"rror"));
}

TEST_F(TemplateTest, ACancelAnywhereWritesNothing)
{
    DxfDrawing drawing;
    drawing.line();
    open(drawing);
    for (const wchar_t* const typed :
         {L"kelmaro_template\n\x1b", L"kelmaro_template\n\n\x1b", L"kelmaro_template\n\n\n\x1b",
          L"kelmaro_template\n\n\n\n"}) {
        const std::wstring printed = transcript(typed);
        EXPECT_FALSE(tells(printed, L"Completed") || tells(printed, L"rror"));
        EXPECT_EQ(type(L"").kind, host::WaitKind::command);
    }
}

TEST_F(TemplateTest, TheFileIsReplacedOnlyIfTheUserSaysSo)
{
    DxfDrawing drawing;
    drawing.line();
    open(drawing);
    // the dialog adds the extension
    EXPECT_TRUE(tells(transcript(L"kelmaro_template\n\n\n" + quoted(folder() / "made")),
                      L"Completed: 1/1"));
    EXPECT_EQ(rest(L"Class|"), Lines{L"Line|1"});

    std::ofstream(target()) << "mine";
    EXPECT_FALSE(tells(replace(L"N\n"), L"Completed"));
    EXPECT_EQ(written(), L"mine");
    EXPECT_TRUE(tells(replace(L"Y\n"), L"Completed: 1/1\n"));
    EXPECT_EQ(rest(L"Class|"), Lines{L"Line|1"});
}

TEST_F(TemplateTest, AFileThatCannotBeWrittenIsTold)
{
    DxfDrawing drawing;
    drawing.line();
    open(drawing);
    std::filesystem::create_directory(target());
    const std::wstring printed = replace(L"Y\n");
    EXPECT_TRUE(tells(printed, L"Error\nError: unable to open '%s'.\n"));
    EXPECT_FALSE(tells(printed, L"Completed"));
    EXPECT_TRUE(std::filesystem::is_directory(target()));

    std::filesystem::remove(target());
    std::ofstream(target()) << "mine";
    std::filesystem::permissions(target(), std::filesystem::perms::owner_read);
    EXPECT_TRUE(tells(replace(L"Y\n"), L"Error: unable to open '%s'.\n"));
    EXPECT_EQ(written(), L"mine");
}

// A dynamic block's reference is named after its definition, though it shows an anonymous block.
TEST_F(TemplateTest, AnonymousAndLostBlocksAreNoObjects)
{
    DxfDrawing drawing;
    look::addResources(drawing);
    const std::string gate = drawing.block("Gate");
    drawing.block("*U2", 0, {}, "1001\nAcDbBlockRepBTag\n1070\n1\n1005\n" + gate + "\n");
    for (const char* const block : {"Door", "*U1", "Nothing", "*U2", "Door"})
        drawing.entity("INSERT", "AcDbBlockReference",
                       look::reference(block, "0.001", "0.001", "0.0"));
    open(drawing);
    EXPECT_TRUE(tells(generate(), L"Completed: 2/5\n"));
    EXPECT_EQ(rest(L"||obj_prop|blockName|"), (Lines{L"Door", L"Gate"}));
}

// Upper-case letters come before lower-case ones; numbers count within a type, in the order of the
// drawing.
TEST_F(TemplateTest, TypesInPlainOrder)
{
    DxfDrawing drawing;
    look::addResources(drawing);
    drawing.entity("MLINE", "AcDbMline",
                   "2\nSTANDARD\n340\nF18\n40\n20.0\n70\n0\n71\n3\n72\n2\n73\n2\n" + look::origin +
                       "210\n0.0\n220\n0.0\n230\n1.0\n");
    drawing.line("Walls");
    drawing.entity("MTEXT", "AcDbMText",
                   look::origin + "40\n3.0\n41\n0.0\n71\n5\n72\n1\n1\nNorth\n7\nNotes\n");
    drawing.line("0");
    drawing.entity("3DFACE", "AcDbFace", look::origin);
    drawing.line("Roofs");
    open(drawing);
    generate(L"%T%i%l");
    EXPECT_EQ(rest(L"Class|"), (Lines{L"3DFace|1", L"Line|1", L"MText|1", L"Mline|1"}));
    EXPECT_EQ(rest(L"obj_name|Line"),
              (Lines{L"1walls|1|5000|Icons/Line.png", L"20|1|5000|Icons/Line.png",
                     L"3roofs|1|5000|Icons/Line.png"}));
}

TEST_F(TemplateTest, ADrawingWithoutAStoreGetsNone)
{
    DxfDrawing drawing;
    drawing.line();
    open(drawing);
    EXPECT_TRUE(tells(generate(), L"Completed: 1/1\n"));
    EXPECT_TRUE(existingStoreId(database()).isNull());
    EXPECT_TRUE(written().ends_with(L"/Class\n\n")); // no tables are listed
}

TEST_F(TemplateTest, NeedsNoDescriptionAndLeavesOneAlone)
{
    DxfDrawing drawing;
    drawing.line();
    open(drawing);
    load("obj_name|Wall|1|5\nobj_type|Line\n");
    const std::shared_ptr<Description> before = ::session().description;
    EXPECT_TRUE(tells(generate(), L"Completed: 1/1\n"));
    EXPECT_EQ(::session().description, before);
    EXPECT_TRUE(before->findObject(L"wall"));
}
