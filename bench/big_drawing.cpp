#include "bench/big_drawing.h"

#include "bench/drawing_file.h"

#include <fstream>

namespace {

class Entities {
public:
    explicit Entities(DrawingFile& file) : file_(file), entities_(file.entities()) {}

    void addOne(std::size_t i)
    {
        const double x = static_cast<double>(i % 1000) * 12.345678 + 3512345.25;
        const double y = static_cast<double>(i / 1000) * 9.8765432 + 5812345.75;
        switch (i % 10) {
        case 0:
        case 1:
        case 2:
        case 3:
            begin("LINE", i);
            entities_.add(
                "100\nAcDbLine\n 10\n%.6f\n 20\n%.6f\n 30\n0.0\n 11\n%.6f\n 21\n%.6f\n 31\n0.0\n",
                x, y, x + 5, y + 7);
            break;
        case 4:
        case 5:
            begin("LWPOLYLINE", i);
            entities_.add("100\nAcDbPolyline\n 90\n        8\n 70\n     1\n 43\n0.0\n");
            for (int v = 0; v < 8; ++v)
                entities_.add(" 10\n%.6f\n 20\n%.6f\n", x + v * 1.25, y + (v % 2) * 3.5);
            break;
        case 6:
            addInsert(i, x, y);
            break;
        case 7:
        case 8:
            begin("TEXT", i);
            entities_.add("100\nAcDbText\n 10\n%.6f\n 20\n%.6f\n 30\n0.0\n 40\n2.5\n  1\nParcel "
                          "%zu\n100\nAcDbText\n",
                          x, y, i);
            break;
        default:
            begin("HATCH", i);
            entities_.add(
                "100\nAcDbHatch\n 10\n0.0\n 20\n0.0\n 30\n0.0\n210\n0.0\n220\n0.0\n230\n1.0\n  "
                "2\nSOLID\n 70\n     1\n 71\n     0\n"
                " 91\n        1\n 92\n        2\n 72\n     0\n 73\n     1\n 93\n        4\n");
            for (int v = 0; v < 4; ++v)
                entities_.add(" 10\n%.6f\n 20\n%.6f\n", x + (v == 1 || v == 2) * 6.5,
                              y + (v >= 2) * 4.5);
            entities_.add(" 97\n        0\n 75\n     0\n 76\n     1\n 98\n        0\n");
        }
    }

private:
    unsigned long long begin(const char* type, std::size_t i)
    {
        std::optional<ParcelRecord> record;
        if ((i / 10 + i) % 10 < 3) // every type gets its share
            record = {"Wall", i, static_cast<double>(i % 977)};
        return file_.begin(type, i % DrawingFile::kLayers, record);
    }

    void addInsert(std::size_t i, double x, double y)
    {
        const unsigned long long insert = begin("INSERT", i);
        entities_.add(
            "100\nAcDbBlockReference\n 66\n     1\n  2\nmark\n 10\n%.6f\n 20\n%.6f\n 30\n0.0\n", x,
            y);
        entities_.add("  0\nATTRIB\n  5\n%llX\n330\n%llX\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n "
                      "10\n%.6f\n 20\n%.6f\n 30\n0.0\n 40\n1.5\n"
                      "  1\n%zu\n100\nAcDbAttribute\n  2\nNUMBER\n 70\n     0\n",
                      file_.takeHandle(), insert, x + 1, y + 1, i);
        entities_.add("  0\nSEQEND\n  5\n%llX\n330\n%llX\n100\nAcDbEntity\n  8\n0\n",
                      file_.takeHandle(), insert);
    }

    DrawingFile& file_;
    FormattedText& entities_;
};

} // namespace

void writeBigDrawing(const std::filesystem::path& path, std::size_t count)
{
    DrawingFile file(path);
    Entities entities(file);
    for (std::size_t i = 0; i < count; ++i)
        entities.addOne(i);
    file.finish();
}

void writeBigDescription(const std::filesystem::path& path)
{
    std::ofstream out(path, std::ios::binary);
    out << "class\tParcels\t1\n"
           "obj_name\tWall\t1\t1\n"
           "obj_type\tLine,Polyline,Text,Hatch,BlockReference\n"
           "obj_prop\tlayer\tlayer0\tlayer0,layer1,layer2,layer10,layer11\n"
           "obj_prop\tcolor\tbylayer\n"
           "od_name\tparcel\n"
           "od_key\tobject\n"
           "od_fld\tnumber\tNumber\tinteger\t1\n"
           "od_fld\tarea\tArea\treal\t1\t0:500\n"
           "/class\n";
}
