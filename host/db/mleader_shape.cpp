#include "host/db/database.h"
#include "host/db/mleader.h"
#include "host/db/object_pointer.h"
#include "host/db/style_objects.h"

// A multileader record as the platform writes it: the context (scale, text, leader lines), then
// the leader's own fields, which repeat what the style says.

using host::MLeaderShape;
using host::TagList;

namespace {

constexpr host::Subclass kPart{"AcDbMLeader"};
constexpr host::Subclass kStylePart{"AcDbMLeaderStyle"};

// Colours are one number here: the kind in the top byte.
constexpr std::int64_t kByBlock = -1056964608;
constexpr std::int64_t kNoBackground = -939524096;

struct StyleSizes {
    double scale = 1.0;
    double gap = 2.0;
    double dogleg = 8.0;
    double arrow = 4.0;
    double text = 4.0;
    int leftAttachment = 1; // middle of the top line
    int rightAttachment = 1;
    std::int64_t textColor = kByBlock;
    std::uint64_t textStyle = 0;
    std::uint64_t linetype = 0;
    std::uint64_t arrowBlock = 0;
};

StyleSizes sizesOf(AcDbObjectId style)
{
    StyleSizes sizes;
    const AcDbObjectPointer<AcDbMLeaderStyle> record(style, AcDb::kForRead);
    if (!record)
        return sizes;
    const TagList& tags = record->tags();
    const auto real = [&](int code, double fallback) {
        return host::realField(tags, kStylePart, code, fallback);
    };
    const double scale = real(142, 1.0);
    sizes.scale = scale > 0.0 ? scale : 1.0; // zero: fitted to the layout
    sizes.gap = real(42, sizes.gap) * sizes.scale;
    sizes.dogleg = real(43, sizes.dogleg) * sizes.scale;
    sizes.arrow = real(44, sizes.arrow) * sizes.scale;
    sizes.text = real(45, sizes.text) * sizes.scale;
    sizes.leftAttachment =
        static_cast<int>(host::integerField(tags, kStylePart, 174, sizes.leftAttachment));
    sizes.rightAttachment =
        static_cast<int>(host::integerField(tags, kStylePart, 178, sizes.rightAttachment));
    sizes.textColor = host::integerField(tags, kStylePart, 93, sizes.textColor);
    sizes.linetype = host::handleField(tags, kStylePart, 340);
    sizes.arrowBlock = host::handleField(tags, kStylePart, 341);
    sizes.textStyle = host::handleField(tags, kStylePart, 342);
    return sizes;
}

class RecordWriter {
public:
    RecordWriter(TagList& tags, std::size_t at, host::DxfVersion version)
        : tags_(tags), at_(at), version_(version)
    {
    }

    void write(const MLeaderShape& shape, const StyleSizes& sizes, std::uint64_t style);

private:
    void integer(int code, std::int64_t value) { tags_.insertInteger(at_++, code, value); }
    void real(int code, double value) { tags_.insertReal(at_++, code, value); }
    void handle(int code, std::uint64_t value) { tags_.insertHandle(at_++, code, value); }
    void text(int code, std::wstring_view value) { tags_.insertText(at_++, code, value); }
    void point(int code, const AcGePoint3d& p)
    {
        for (const unsigned axis : {0u, 1u, 2u})
            real(code + 10 * static_cast<int>(axis), p[axis]);
    }
    bool since(host::DxfVersion version) const { return version_ >= version; }

    void context(const MLeaderShape& shape, const StyleSizes& sizes);
    void textOf(const MLeaderShape& shape, const StyleSizes& sizes);
    void leaderOf(const MLeaderShape& shape, const StyleSizes& sizes);
    void ownFields(const MLeaderShape& shape, const StyleSizes& sizes, std::uint64_t style);

    TagList& tags_;
    std::size_t at_;
    host::DxfVersion version_;
};

// The text stands on the side of the landing that is away from the arrow.
double sideOf(const MLeaderShape& shape)
{
    return shape.line.back().x < shape.line.front().x ? -1.0 : 1.0;
}

double doglegOf(const MLeaderShape& shape, const StyleSizes& sizes)
{
    return shape.landing ? shape.landingSize.value_or(sizes.dogleg) : 0.0;
}

void RecordWriter::textOf(const MLeaderShape& shape, const StyleSizes& sizes)
{
    const double side = sideOf(shape);
    const AcGePoint3d landing = shape.line.back();
    const AcGeVector3d away((doglegOf(shape, sizes) + sizes.gap) * side, sizes.text / 2.0, 0.0);
    text(304, shape.contents);
    point(11, {0.0, 0.0, 1.0});
    handle(340, sizes.textStyle);
    point(12, landing + away);
    point(13, {1.0, 0.0, 0.0});
    real(42, 0.0); // rotation
    real(43, 0.0); // width and height: not wrapped
    real(44, 0.0);
    real(45, 1.0); // line spacing
    integer(170, 1);
    integer(90, sizes.textColor);
    integer(171, side < 0.0 ? 3 : 1); // right or left aligned
    integer(172, 1);
    integer(91, kNoBackground);
    real(141, 1.5);
    integer(92, 0);
    integer(291, 0);
    integer(292, 0);
    integer(173, 0); // no columns
    integer(293, 0);
    real(142, 0.0);
    real(143, 0.0);
    integer(294, 0);
    integer(295, 0);
}

void RecordWriter::leaderOf(const MLeaderShape& shape, const StyleSizes& sizes)
{
    text(302, L"LEADER{");
    integer(290, 1);
    integer(291, 1);
    point(10, shape.line.back());
    point(11, {sideOf(shape), 0.0, 0.0});
    integer(90, 0);
    real(40, doglegOf(shape, sizes));
    text(304, L"LEADER_LINE{");
    for (std::size_t i = 0; i + 1 < shape.line.size(); ++i)
        point(10, shape.line[i]);
    integer(91, 0);
    text(305, L"}");
    if (since(host::DxfVersion::r2010))
        integer(271, 0);
    text(303, L"}");
}

void RecordWriter::context(const MLeaderShape& shape, const StyleSizes& sizes)
{
    const bool hasText = !shape.contents.empty();
    text(300, L"CONTEXT_DATA{");
    real(40, sizes.scale);
    point(10, shape.line.back());
    real(41, sizes.text);
    real(140, sizes.arrow);
    real(145, sizes.gap);
    integer(174, sizes.leftAttachment);
    integer(175, sizes.rightAttachment);
    integer(176, 0);
    integer(177, 0);
    integer(290, hasText);
    if (hasText)
        textOf(shape, sizes);
    integer(296, 0); // no block
    point(110, shape.line.back());
    point(111, {1.0, 0.0, 0.0});
    point(112, {0.0, 1.0, 0.0});
    integer(297, 0);
    leaderOf(shape, sizes);
    if (since(host::DxfVersion::r2010)) {
        integer(272, 9);
        integer(273, 9);
    }
    text(301, L"}");
}

void RecordWriter::ownFields(const MLeaderShape& shape, const StyleSizes& sizes,
                             std::uint64_t style)
{
    enum Override { kLeaderType = 1, kLanding = 0x20 };
    const int overrides = (shape.lines != MLeaderShape::Lines::straight ? kLeaderType : 0) |
                          (shape.landing && !shape.landingSize ? 0 : kLanding);
    handle(340, style);
    integer(90, overrides);
    integer(170, static_cast<int>(shape.lines));
    integer(91, kByBlock);
    handle(341, sizes.linetype);
    integer(171, -2); // line weight by block
    integer(290, shape.landing);
    integer(291, shape.landing);
    real(41, doglegOf(shape, sizes));
    handle(342, sizes.arrowBlock);
    real(42, sizes.arrow);
    integer(172, shape.contents.empty() ? 0 : 2); // the content is nothing or a text
    handle(343, sizes.textStyle);
    integer(173, sizes.leftAttachment);
    integer(95, sizes.rightAttachment);
    integer(174, 1); // the text is level
    integer(175, 0);
    integer(92, sizes.textColor);
    integer(292, 0); // no frame
    handle(344, 0);
    integer(93, kByBlock);
    point(10, {1.0, 1.0, 1.0});
    real(43, 0.0);
    integer(176, 0);
    integer(293, 0); // not annotative
    integer(294, 0);
    integer(178, 0);
    integer(179, 1);
    real(45, sizes.scale);
    if (since(host::DxfVersion::r2010)) {
        integer(271, 0);
        integer(272, 9);
        integer(273, 9);
    }
    if (since(host::DxfVersion::r2013))
        integer(295, 0);
}

void RecordWriter::write(const MLeaderShape& shape, const StyleSizes& sizes, std::uint64_t style)
{
    if (since(host::DxfVersion::r2010))
        integer(270, 2);
    context(shape, sizes);
    ownFields(shape, sizes, style);
}

} // namespace

Acad::ErrorStatus AcDbMLeader::setShape(const MLeaderShape& shape)
{
    if (shape.line.size() < 2)
        return Acad::eInvalidInput;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (!drawing())
        return Acad::eNoDatabase;
    const AcDbObjectId style = MLeaderStyle();
    TagList& own = tagsForWrite();
    const host::TagRange range = host::subclassRange(own, kPart.marker).value_or(host::TagRange());
    own.erase(range.first, range.last);
    RecordWriter writer(own, range.first, drawing()->version);
    writer.write(shape, sizesOf(style), style.handle().value());
    return Acad::eOk;
}
