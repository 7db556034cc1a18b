#include "bench/look_drawing.h"

#include "bench/drawing_file.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace {

constexpr const char* kTypes[] = {"Line", "Circle", "Polyline", "Text", "BlockReference"};
constexpr std::size_t kTypeCount = std::size(kTypes);
constexpr std::size_t kColors = kLooks / kTypeCount / DrawingFile::kLayers; // 1 to 50
constexpr std::size_t kDescribedColors = kColors * 9 / 10;                  // the others are none's
constexpr std::size_t kColorGroups = 5; // into which objects by layer divide the colours
constexpr std::size_t kPriorities = 97;

void addEntity(DrawingFile& file, std::size_t i, Classified classified)
{
    const std::size_t look = i * 7919 % kLooks; // neighbours look different
    const std::size_t layer = look / kTypeCount % DrawingFile::kLayers;
    const std::size_t color = look / kTypeCount / DrawingFile::kLayers + 1;
    const double x = static_cast<double>(i % 1000) * 12.5 + 3512345.25;
    const double y = static_cast<double>(i / 1000) * 9.75 + 5812345.75;
    const auto begin = [&](const char* type, const char* subclass) {
        std::optional<ParcelRecord> record;
        if (classified == Classified::yes && i % 10 != 0)
            record = {"Object" + std::to_string(i % kObjects), i,
                      static_cast<double>(i % 2000 == 1 ? 501 : i % 500)};
        file.begin(type, layer, record);
        file.entities().add(" 62\n%zu\n100\n%s\n", color, subclass);
    };
    const auto at = [&](int code, double px, double py) {
        file.entities().add("%d\n%.2f\n%d\n%.2f\n%d\n0.0\n", code, px, code + 10, py, code + 20);
    };
    switch (look % kTypeCount) {
    case 0:
        begin("LINE", "AcDbLine");
        at(10, x, y);
        at(11, x + 5, y + 7);
        break;
    case 1:
        begin("CIRCLE", "AcDbCircle");
        at(10, x, y);
        file.entities().add(" 40\n%.2f\n", 1.0 + static_cast<double>(i % 70));
        break;
    case 2:
        begin("LWPOLYLINE", "AcDbPolyline");
        file.entities().add(" 90\n3\n 70\n1\n 43\n0.0\n");
        for (int v = 0; v < 3; ++v)
            file.entities().add(" 10\n%.2f\n 20\n%.2f\n", x + v * 1.25, y + v % 2 * 3.5);
        break;
    case 3:
        begin("TEXT", "AcDbText");
        at(10, x, y);
        file.entities().add(" 40\n2.5\n  1\nParcel %zu\n100\nAcDbText\n", i);
        break;
    default:
        begin("INSERT", "AcDbBlockReference");
        file.entities().add("  2\nmark\n");
        at(10, x, y);
    }
}

std::string colorAndScale(std::size_t at)
{
    return "obj_prop\tcolor\t" + std::to_string(at % kDescribedColors + 1) +
           "\nobj_prop\tlinetypescale\t" + std::to_string(at / kDescribedColors + 1) + "\n";
}

std::string layerAndColors(std::size_t at)
{
    std::string text = "obj_prop\tlayer\tlayer" + std::to_string(at % DrawingFile::kLayers) +
                       "\nobj_prop\tcolor\t";
    constexpr std::size_t kColorsEach = kDescribedColors / kColorGroups;
    const std::size_t first = at / DrawingFile::kLayers % kColorGroups * kColorsEach + 1;
    for (std::size_t color = first; color < first + kColorsEach; ++color)
        text += (color == first ? "" : ",") + std::to_string(color);
    return text + "\n";
}

std::string objectText(std::size_t at, ObjectsBy by)
{
    std::string text = "obj_name\tObject" + std::to_string(at) + "\t1\t" +
                       std::to_string(at % kPriorities) + "\nobj_type\t";
    if (by == ObjectsBy::layerOrColor) {
        const std::size_t ofType = at / kTypeCount;
        text += std::string(kTypes[at % kTypeCount]) + "\n" +
                (ofType % 2 ? colorAndScale(ofType / 2) : layerAndColors(ofType / 2));
    } else {
        for (const char* const type : kTypes)
            text += (type == kTypes[0] ? "" : ",") + std::string(type);
        text += "\n" + colorAndScale(at);
    }
    return text + "od_name\tparcel\n"
                  "od_key\tobject\n"
                  "od_fld\tnumber\tNumber\tinteger\t1\n"
                  "od_fld\tarea\tArea\trequired real\t1\t0:500\n";
}

} // namespace

void writeLookDrawing(const std::filesystem::path& path, std::size_t entities,
                      Classified classified)
{
    DrawingFile file(path);
    for (std::size_t i = 0; i < entities; ++i)
        addEntity(file, i, classified);
    file.finish();
}

void writeLookDescription(const std::filesystem::path& path, ObjectsBy by)
{
    std::ofstream out(path, std::ios::binary);
    out << "class\tAll\t1\n";
    for (std::size_t at = 0; at < kObjects; ++at)
        out << objectText(at, by);
    out << "/class\n";
    if (!out.flush())
        throw std::runtime_error("cannot write " + path.string());
}
