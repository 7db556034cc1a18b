#include "host/db/mleader.h"

#include "host/db/mtext_contents.h"
#include "host/geom/stroke_sink.h"
#include "host/geom/text_strokes.h"

using host::TagList;

ACRX_DXF_DEFINE_MEMBERS(AcDbMLeader, AcDbEntity, "MULTILEADER")

namespace {

constexpr host::Subclass kMLeaderPart{"AcDbMLeader"};

// Brackets of the record: the code and the text that begin and end each.
constexpr int kContextBegin = 300;
constexpr int kContextEnd = 301;
constexpr int kLeaderBegin = 302;
constexpr int kLeaderEnd = 303;
constexpr int kLineBegin = 304;
constexpr int kLineEnd = 305;
constexpr std::string_view kLineName = "LEADER_LINE{";

host::TagRange rangeOf(const TagList& tags)
{
    return host::subclassRange(tags, kMLeaderPart.marker).value_or(host::TagRange());
}

} // namespace

host::TagRange AcDbMLeader::context() const
{
    const TagList& own = tags();
    const host::TagRange all = rangeOf(own);
    const std::size_t first = own.find(kContextBegin, "CONTEXT_DATA{", all.first, all.last);
    if (first == TagList::npos)
        return {all.first, all.first};
    const std::size_t last = own.find(kContextEnd, "}", first, all.last);
    return {first, last == TagList::npos ? all.last : last + 1};
}

std::size_t AcDbMLeader::styleTag() const
{
    return tags().find(340, context().last, rangeOf(tags()).last);
}

AcDbObjectId AcDbMLeader::MLeaderStyle() const
{
    const std::size_t at = styleTag();
    return at == TagList::npos ? AcDbObjectId() : idOfHandle(tags().handle(at));
}

Acad::ErrorStatus AcDbMLeader::setMLeaderStyle(AcDbObjectId style)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (style.isNull())
        return Acad::eInvalidInput;
    if (style == MLeaderStyle())
        return Acad::eOk;
    const std::size_t at = styleTag();
    const std::size_t behind = context().last;
    if (at != TagList::npos)
        tagsForWrite().setHandle(at, style.handle().value());
    else
        tagsForWrite().insertHandle(behind, 340, style.handle().value());
    return Acad::eOk;
}

std::wstring AcDbMLeader::contents() const
{
    const TagList& own = tags();
    const host::TagRange inside = context();
    const std::size_t end =
        std::min(own.find(kLeaderBegin, inside.first, inside.last), inside.last);
    const std::size_t at = own.find(kLineBegin, inside.first, end);
    return at == TagList::npos ? std::wstring() : own.text(at);
}

bool AcDbMLeader::strokes(host::StrokeSink& sink) const
{
    const TagList& own = tags();
    const host::TagRange inside = context();
    AcGePoint3d textPlace;
    AcGeVector3d textDirection = AcGeVector3d::kXAxis;
    double textHeight = 0.0;

    AcGePoint3d landing; // where the lines of one leader end
    AcGeVector3d dogleg;
    std::vector<AcGePoint3d> line;
    bool inLeader = false;
    bool inLine = false;
    bool drawn = false;
    for (std::size_t i = inside.first; i < inside.last; ++i) {
        const int code = own[i].code;
        if (code == kLeaderBegin) {
            inLeader = true;
        } else if (code == kLeaderEnd) {
            inLeader = false;
        } else if (inLeader && code == kLineBegin && own[i].bytes() == kLineName) {
            inLine = true;
            line.clear();
        } else if (inLine && code == kLineEnd) {
            inLine = false;
            line.push_back(landing);
            sink.polyline(line, false);
            drawn = true;
        } else if (inLine && code == 10) {
            line.push_back(host::pointAt(own, i));
        } else if (inLeader && !inLine && code == 10) {
            landing = host::pointAt(own, i);
        } else if (inLeader && !inLine && code == 11) {
            dogleg = host::pointAt(own, i).asVector();
        } else if (inLeader && !inLine && code == 40) {
            sink.segment(landing, landing + dogleg * own.real(i));
        } else if (!inLeader && code == 12) {
            textPlace = host::pointAt(own, i);
        } else if (!inLeader && code == 13) {
            textDirection = host::pointAt(own, i).asVector();
        } else if (!inLeader && code == 41) {
            textHeight = own.real(i);
        }
    }
    const std::wstring plain = host::plainText(contents());
    if (plain.empty() || !(textHeight > 0.0))
        return drawn;
    const AcGeVector3d along = textDirection.normal();
    const AcGeVector3d up = AcGeVector3d::kZAxis.crossProduct(along);
    AcGePoint3d corner = textPlace - up * textHeight;
    for (std::size_t from = 0; from <= plain.size();) {
        const std::size_t end = std::min(plain.find(L'\n', from), plain.size());
        const std::wstring_view row = std::wstring_view(plain).substr(from, end - from);
        const double width = host::textWidth(row, textHeight, 1.0);
        if (width > 0.0)
            sink.textBox({corner, along * width, up * textHeight, row, {}});
        corner -= up * (textHeight * host::kTextLineAdvance);
        from = end + 1;
    }
    return true;
}

std::span<const std::string_view> AcDbMLeader::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbMLeader"};
    return kMarkers;
}
