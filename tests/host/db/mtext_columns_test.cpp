#include "host/db/block_table.h"
#include "host/db/database_defaults.h"
#include "host/db/mtext.h"
#include "host/db/text.h"
#include "host/edit/system_variables.h"
#include "host/text/encoding.h"
#include "tests/support/opened_drawing.h"

#include <fstream>
#include <sstream>

namespace {

class MTextColumns : public DrawingTest {
protected:
    AcDbObjectPointer<AcDbMText> paragraph()
    {
        AcDbObjectPointer<AcDbMText> text;
        text.create();
        const AcDbObjectPointer<AcDbBlockTableRecord> space(database().modelSpaceId(),
                                                            AcDb::kForWrite);
        space->appendAcDbEntity(text.object());
        text->setLocation({3, 4, 0});
        text->setTextHeight(2.5);
        text->setContents(L"Oak");
        return text;
    }
    // The record as the file has it, from the contents on; lines apart by blanks.
    std::string saved()
    {
        const std::filesystem::path path = folder() / "saved.dxf";
        EXPECT_EQ(database().saveAs(path), Acad::eOk);
        std::stringstream all;
        all << std::ifstream(path).rdbuf();
        std::string text = all.str();
        std::erase(text, '\r');
        text = text.substr(text.find("\nOak\n") + 5);
        text = text.substr(0, text.find("ENDSEC"));
        std::string flat;
        for (std::istringstream lines(text); std::getline(lines, text);)
            flat += text.substr(std::min(text.find_first_not_of(' '), text.size())) + " ";
        return flat;
    }
};

} // namespace

TEST_F(MTextColumns, StandInAnEmbeddedObjectInNewDrawings)
{
    AcDbObjectPointer<AcDbMText> text = paragraph();
    EXPECT_EQ(text->setDynamicColumns(2.5, 0.5, true), Acad::eOk);
    EXPECT_EQ(text->setDynamicColumns(5.0, 1.5, true), Acad::eOk); // in the place of the others
    double gutter = 0.0;
    EXPECT_EQ(text->getColumnGutterWidth(gutter), Acad::eOk);
    EXPECT_EQ(gutter, 1.5);
    text->setLocation({7, 8, 0}); // the columns follow
    text->setRotation(0.0);
    text.close();
    const std::string record = saved();
    EXPECT_NE(record.find("101 Embedded Object 70 1 10 1.0 20 0.0 30 0.0 11 7.0 21 8.0 31 0.0 "
                          "40 0.0 41 0.0 42 5.0 43 2.5 71 2 72 0 44 5.0 45 1.5 73 1 74 0 "),
              std::string::npos)
        << record;
    EXPECT_EQ(record.find("Embedded", record.find("Embedded") + 1), std::string::npos);
}

TEST_F(MTextColumns, StandInExtendedDataInOlderOnes)
{
    DxfDrawing drawing;
    open(drawing);
    AcDbObjectPointer<AcDbMText> text = paragraph();
    EXPECT_EQ(text->setDynamicColumns(2.5, 0.5, true), Acad::eOk);
    EXPECT_EQ(text->setDynamicColumns(5.0, 1.5, false), Acad::eOk);
    double gutter = 0.0;
    EXPECT_EQ(text->getColumnGutterWidth(gutter), Acad::eOk);
    EXPECT_EQ(gutter, 1.5);
    text.close();
    const std::string record = saved();
    EXPECT_NE(record.find("1001 ACAD 1000 ACAD_MTEXT_COLUMN_INFO_BEGIN 1070 75 1070 2 1070 79 "
                          "1070 0 1070 76 1070 1 1070 78 1070 0 1070 48 1040 5.0 1070 49 1040 1.5 "
                          "1070 50 1070 1 1040 0.0 1000 ACAD_MTEXT_COLUMN_INFO_END"),
              std::string::npos)
        << record;
    EXPECT_EQ(record.find("BEGIN", record.find("BEGIN") + 1), std::string::npos);
}

TEST_F(MTextColumns, ATextWithoutThemHasNoGutter)
{
    const AcDbObjectPointer<AcDbMText> text = paragraph();
    double gutter = 7.0;
    EXPECT_EQ(text->getColumnGutterWidth(gutter), Acad::eOk);
    EXPECT_EQ(gutter, 0.0);
    EXPECT_EQ(text->setDynamicColumns(-1.0, 0.0, true), Acad::eInvalidInput);
}

TEST_F(MTextColumns, DefaultsComeFromTheHeader)
{
    DxfDrawing drawing;
    drawing.layer("Walls");
    drawing.textStyle("Labels");
    open(drawing);
    type(L"clayer Walls\ncecolor 3\nceltscale 2\ntextsize 4\ntextstyle Labels\n");
    {
        AcDbObjectPointer<AcDbMText> text = paragraph();
        host::setDatabaseDefaults(*text);
        EXPECT_EQ(text->layer(), L"Walls");
        EXPECT_EQ(text->colorIndex(), 3);
        EXPECT_EQ(text->linetypeScale(), 2.0);
        EXPECT_EQ(text->textStyleName(), L"Labels");
        EXPECT_EQ(text->textHeight(), 2.5); // it has one
    }
    AcDbObjectPointer<AcDbText> line;
    line.create();
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(database().modelSpaceId(),
                                                            AcDb::kForWrite);
        space->appendAcDbEntity(line.object());
    }
    host::setDatabaseDefaults(*line);
    EXPECT_EQ(line->height(), 4.0);
    EXPECT_EQ(line->textStyleName(), L"Labels");
}
