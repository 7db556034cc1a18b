#pragma once

#include "tests/support/dxf_drawing.h"

#include <random>
#include <string>

// Bodies of entities in the places where templates look.
namespace look {

inline const std::string origin = "10\n0.0\n20\n0.0\n30\n0.0\n";

inline std::string text(const char* height, const char* rotation)
{
    return origin + "40\n" + height + "\n1\nHello\n50\n" + rotation +
           "\n7\nNotes\n72\n1\n11\n0.0\n21\n0.0\n31\n0.0\n100\nAcDbText\n73\n3\n";
}

inline std::string reference(const char* block, const char* x, const char* z, const char* rotation)
{
    return std::string("2\n") + block + "\n" + origin + "41\n" + x + "\n42\n" + x + "\n43\n" + z +
           "\n50\n" + rotation + "\n";
}

inline std::string hatch(const char* pattern, const char* angle)
{
    return origin + "210\n0.0\n220\n0.0\n230\n1.0\n2\n" + pattern +
           "\n70\n0\n71\n0\n91\n0\n75\n0\n76\n1\n52\n" + angle + "\n41\n2.0\n77\n0\n78\n0\n98\n0\n";
}

inline std::string path(const char* closed, const char* widths)
{
    return std::string("90\n2\n70\n") + closed + "\n" + widths + "38\n3.0\n";
}

// Layers, styles and blocks that the bodies name.
inline void addResources(DxfDrawing& drawing)
{
    drawing.layer("Walls");
    drawing.layer("Roofs");
    drawing.linetype("Dashed");
    drawing.textStyle("Notes");
    drawing.dimensionStyle("Survey");
    drawing.block("Door", 4); // millimetres
    drawing.block("*U1");
    drawing.rootEntry("ACAD_MLINESTYLE", "F17");
    drawing.object("0\nDICTIONARY\n5\nF17\n330\nC\n100\nAcDbDictionary\n281\n1\n3\nStandard\n350\n"
                   "F18\n0\nMLINESTYLE\n5\nF18\n330\nF17\n100\nAcDbMlineStyle\n2\nStandard\n70\n0\n"
                   "3\n\n62\n256\n51\n90.0\n52\n90.0\n71\n2\n49\n0.5\n62\n256\n6\nBYLAYER\n49\n"
                   "-0.5\n62\n256\n6\nBYLAYER\n");
}

// Looks from few values each, so that many entities look alike.
inline void addRandomEntities(DxfDrawing& drawing, std::mt19937& random, int count)
{
    const auto one = [&](auto... choices) {
        const char* const all[] = {choices...};
        return all[random() % sizeof...(choices)];
    };
    for (int at = 0; at < count; ++at) {
        const char* const layer = one("0", "Walls");
        const std::string common =
            one("", "6\nDashed\n", "62\n1\n", "420\n255\n", "48\n2.5\n", "48\n2.50001\n");
        switch (random() % 6) {
        case 0:
            drawing.line(layer, common);
            break;
        case 1:
            drawing.entity("TEXT", "AcDbText",
                           text(one("2.5", "3.0"), one("0.0", "-0.0", "0.000001", "30.0")), layer,
                           common);
            break;
        case 2:
            drawing.entity("INSERT", "AcDbBlockReference",
                           reference(one("Door", "*U1", "Nothing"), one("1.0", "-1.0"),
                                     one("1.0", "2.0"), one("0.0", "45.0")),
                           layer, common);
            break;
        case 3:
            drawing.entity("HATCH", "AcDbHatch", hatch(one("ANSI31", "ansi31"), one("0.0", "-0.0")),
                           layer, common);
            break;
        case 4:
            drawing.entity("LWPOLYLINE", "AcDbPolyline",
                           path(one("0", "1"), one("43\n0.5\n", "")) +
                               "10\n0.0\n20\n0.0\n10\n1.0\n20\n0.0\n",
                           layer, common);
            break;
        default:
            drawing.entity("CIRCLE", "AcDbCircle", origin + "40\n" + one("1.0", "2.0") + "\n",
                           layer, common);
        }
    }
}

} // namespace look
