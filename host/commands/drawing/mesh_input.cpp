#include "host/commands/drawing/mesh_input.h"

#include "host/commands/drawing/circle_input.h"

#include <cmath>
#include <numbers>

namespace host {

namespace {

std::optional<double> askPositive(const wchar_t* text, const AcGePoint3d& base)
{
    const Answered<double> length =
        askLength({.text = text, .base = base, .bits = RSG_NOZERO | RSG_NONEG});
    return length.given() ? std::optional(length.value) : std::nullopt;
}

std::optional<double> askTwoPoints()
{
    const Answered<AcGePoint3d> first = askPlace({.text = L"Specify first point: "});
    if (!first.given())
        return std::nullopt;
    const Answered<AcGePoint3d> second =
        askOtherPlace({.text = L"Specify second point: ", .base = first.value});
    return second.given() ? std::optional(first.value.distanceTo(second.value)) : std::nullopt;
}

MeshShape standing(MeshShape shape, const AcGePoint3d& base, const Rise& rise)
{
    AcGeMatrix3d map = AcGeMatrix3d::arbitraryAxes(rise.axis);
    map = AcGeMatrix3d::translation(base.asVector()) * map;
    shape.transformBy(map);
    return shape;
}

// The base circle, at a centre or by the options of a circle.
std::optional<GivenCircle> askBase(const wchar_t* text, const std::wstring& radius,
                                   const std::wstring& diameter)
{
    const Answered<AcGePoint3d> centre = askPlace({.text = text, .keywords = L"3P 2P Ttr"});
    if (centre.isKeyword())
        return circleByKeyword(centre.keyword);
    if (!centre.given())
        return std::nullopt;
    const std::optional<double> given = askRadius(radius, diameter, centre.value);
    return given ? std::optional(GivenCircle{centre.value, *given}) : std::nullopt;
}

// The rectangle and height of a box or wedge.
struct Block {
    AcGePoint3d corner;
    double length = 0.0;
    double width = 0.0;
    double height = 0.0; // 0: not known yet
};

std::optional<Block> askSides(const AcGePoint3d& from, bool isCube)
{
    Block block{from};
    const std::optional<double> length = askPositive(L"Specify length: ", from);
    if (!length)
        return std::nullopt;
    block.length = block.width = *length;
    if (isCube) {
        block.height = *length;
        return block;
    }
    const std::optional<double> width = askPositive(L"Specify width: ", from);
    if (!width)
        return std::nullopt;
    block.width = *width;
    return block;
}

std::optional<Block> askRectangle(const AcGePoint3d& from, bool centred)
{
    const Answered<AcGePoint3d> corner = askUntil(
        [&] {
            return askPlace({.text = centred ? L"Specify corner or [Cube/Length]: "
                                             : L"Specify other corner or [Cube/Length]: ",
                             .keywords = L"Cube Length",
                             .base = from});
        },
        [&](const AcGePoint3d& p) {
            return std::abs(p.x - from.x) < 1e-10 || std::abs(p.y - from.y) < 1e-10 ? kOnALine
                                                                                    : nullptr;
        });
    if (corner.isKeyword())
        return askSides(from, corner.chose(L"Cube"));
    if (!corner.given())
        return std::nullopt;
    const AcGeVector3d size = (corner.value - from) * (centred ? 2.0 : 1.0);
    return Block{from, size.x, size.y, size.z};
}

std::optional<Block> askBlock()
{
    Answered<AcGePoint3d> first =
        askPlace({.text = L"Specify first corner or [Center]: ", .keywords = L"Center"});
    const bool centred = first.chose(L"Center");
    if (centred)
        first = askPlace({.text = L"Specify center: "});
    if (!first.given())
        return std::nullopt;
    std::optional<Block> block = askRectangle(first.value, centred);
    if (!block)
        return std::nullopt;
    if (block->height == 0.0) {
        const std::optional<Rise> rise =
            askRise(first.value, L"Specify height or [2Point]: ", L"2Point");
        if (!rise)
            return std::nullopt;
        block->height = rise->height;
    }
    if (centred)
        block->corner -= AcGeVector3d(block->length, block->width, block->height) / 2.0;
    return block;
}

struct PyramidBase {
    AcGePoint3d centre;
    double radius = 0.0; // of the corners
    double turn = 0.0;   // of the first corner
};

struct PyramidForm {
    int sides = 4;
    bool inscribed = false; // the base in its circle, else about it
};

std::optional<PyramidBase> askBaseByEdge(int sides)
{
    const Answered<AcGePoint3d> first = askPlace({.text = L"Specify first endpoint of edge: "});
    if (!first.given())
        return std::nullopt;
    const Answered<AcGePoint3d> second =
        askOtherPlaceInPlane({.text = L"Specify second endpoint of edge: ", .base = first.value});
    if (!second.given())
        return std::nullopt;
    const double half = std::numbers::pi / sides;
    AcGeVector3d edge = second.value - first.value;
    edge.z = 0.0;
    const AcGeVector3d in = AcGeVector3d::kZAxis.crossProduct(edge) / (2.0 * std::tan(half));
    const AcGePoint3d centre = first.value + edge * 0.5 + in;
    const AcGeVector3d out = first.value - centre;
    return PyramidBase{centre, out.length(), std::atan2(out.y, out.x)};
}

std::optional<PyramidBase> askBaseByRadius(const AcGePoint3d& centre, PyramidForm& form)
{
    for (;;) {
        const bool inscribed = form.inscribed;
        const Answered<double> radius =
            askLength({.text = inscribed ? L"Specify base radius or [Circumscribed]: "
                                         : L"Specify base radius or [Inscribed]: ",
                       .keywords = inscribed ? L"Circumscribed" : L"Inscribed",
                       .base = centre,
                       .bits = RSG_NOZERO | RSG_NONEG});
        if (radius.isKeyword()) {
            form.inscribed = !inscribed;
            continue;
        }
        if (!radius.given())
            return std::nullopt;
        const double half = std::numbers::pi / form.sides;
        // one edge lies along the x axis
        return PyramidBase{centre, inscribed ? radius.value : radius.value / std::cos(half),
                           half - std::numbers::pi / 2.0};
    }
}

bool askSides(PyramidForm& form)
{
    const Answered<int> sides = askUntil(
        [&] {
            return askCount(
                {.text = L"Enter number of sides <" + std::to_wstring(form.sides) + L">: ",
                 .enterCounts = true});
        },
        [](int value) {
            return value < 3 || value > 32 ? L"Requires an integer between 3 and 32.\n" : nullptr;
        });
    if (sides.given())
        form.sides = sides.value;
    return !sides.cancelled();
}

std::optional<PyramidBase> askPyramidBase(PyramidForm& form)
{
    for (;;) {
        const Answered<AcGePoint3d> centre = askPlace(
            {.text = L"Specify center point of base or [Edge/Sides]: ", .keywords = L"Edge Sides"});
        if (centre.given())
            return askBaseByRadius(centre.value, form);
        if (centre.chose(L"Edge"))
            return askBaseByEdge(form.sides);
        if (!centre.isKeyword() || !askSides(form))
            return std::nullopt;
    }
}

} // namespace

std::optional<Rise> askRise(const AcGePoint3d& base, const std::wstring& text,
                            const wchar_t* keywords)
{
    Rise rise;
    for (;;) {
        const Answered<double> height =
            askLength({.text = text, .keywords = keywords, .base = base, .bits = RSG_NOZERO});
        if (height.given()) {
            rise.height = height.value;
            return rise;
        }
        if (height.chose(L"Top")) {
            const Answered<double> top = askLength({.text = L"Specify top radius <0.0000>: ",
                                                    .base = base,
                                                    .enterCounts = true,
                                                    .bits = RSG_NONEG});
            if (top.cancelled())
                return std::nullopt;
            rise.topRadius = top.value;
        } else if (height.chose(L"Axis")) {
            const Answered<AcGePoint3d> end =
                askOtherPlace({.text = L"Specify axis endpoint: ", .base = base});
            if (!end.given())
                return std::nullopt;
            rise.height = base.distanceTo(end.value);
            rise.axis = (end.value - base).normal();
            return rise;
        } else {
            const std::optional<double> shown =
                height.chose(L"2Point") ? askTwoPoints() : std::nullopt;
            rise.height = shown.value_or(0.0);
            return shown ? std::optional(rise) : std::nullopt;
        }
    }
}

std::optional<MeshShape> askBoxMesh()
{
    const std::optional<Block> block = askBlock();
    return block ? std::optional(standing(boxMesh(block->length, block->width, block->height),
                                          block->corner, {}))
                 : std::nullopt;
}

std::optional<MeshShape> askWedgeMesh()
{
    const std::optional<Block> block = askBlock();
    return block ? std::optional(standing(wedgeMesh(block->length, block->width, block->height),
                                          block->corner, {}))
                 : std::nullopt;
}

std::optional<MeshShape> askConeMesh()
{
    const std::optional<GivenCircle> base =
        askBase(L"Specify center point of base or [3P/2P/Ttr]: ", L"Specify base radius",
                L"Specify base diameter");
    if (!base)
        return std::nullopt;
    const std::optional<Rise> rise = askRise(
        base->centre, L"Specify height or [2Point/Axis endpoint/Top radius]: ", L"2Point Axis Top");
    return rise ? std::optional(standing(coneMesh(base->radius, rise->topRadius, rise->height),
                                         base->centre, *rise))
                : std::nullopt;
}

std::optional<MeshShape> askCylinderMesh()
{
    const std::optional<GivenCircle> base =
        askBase(L"Specify center point of base or [3P/2P/Ttr]: ", L"Specify base radius",
                L"Specify base diameter");
    if (!base)
        return std::nullopt;
    const std::optional<Rise> rise =
        askRise(base->centre, L"Specify height or [2Point/Axis endpoint]: ", L"2Point Axis");
    return rise ? std::optional(standing(coneMesh(base->radius, base->radius, rise->height),
                                         base->centre, *rise))
                : std::nullopt;
}

std::optional<MeshShape> askPyramidMesh()
{
    PyramidForm form;
    const std::optional<PyramidBase> base = askPyramidBase(form);
    if (!base)
        return std::nullopt;
    const std::optional<Rise> rise = askRise(
        base->centre, L"Specify height or [2Point/Axis endpoint/Top radius]: ", L"2Point Axis Top");
    if (!rise)
        return std::nullopt;
    // the top's radius is stated as the base's is
    const double toCorner = form.inscribed ? 1.0 : 1.0 / std::cos(std::numbers::pi / form.sides);
    return standing(
        pyramidMesh(form.sides, base->radius, rise->topRadius * toCorner, rise->height, base->turn),
        base->centre, *rise);
}

std::optional<MeshShape> askSphereMesh()
{
    const std::optional<GivenCircle> base =
        askBase(L"Specify center point or [3P/2P/Ttr]: ", L"Specify radius", L"Specify diameter");
    return base ? std::optional(standing(sphereMesh(base->radius), base->centre, {}))
                : std::nullopt;
}

std::optional<MeshShape> askTorusMesh()
{
    const std::optional<GivenCircle> base =
        askBase(L"Specify center point or [3P/2P/Ttr]: ", L"Specify radius", L"Specify diameter");
    if (!base)
        return std::nullopt;
    const Answered<double> tube = askLength({.text = L"Specify tube radius or [2Point/Diameter]: ",
                                             .keywords = L"2Point Diameter",
                                             .base = base->centre,
                                             .bits = RSG_NOZERO | RSG_NONEG});
    std::optional<double> radius;
    if (tube.given())
        radius = tube.value;
    else if (tube.chose(L"2Point"))
        radius = askTwoPoints();
    else if (tube.isKeyword())
        radius = askPositive(L"Specify tube diameter: ", base->centre);
    if (!radius)
        return std::nullopt;
    const double share = tube.given() ? 1.0 : 0.5; // the options state the diameter
    return standing(torusMesh(base->radius, *radius * share), base->centre, {});
}

} // namespace host
