#pragma once

#include "host/commands/drawing/drawing_prompts.h"
#include "host/db/dimension.h"
#include "host/db/dimension_style.h"
#include "host/geom/nearest_stroke.h"

#include <functional>
#include <memory>

namespace host {

// What all dimension commands share: the text's options, the place of the dimension line, and how
// a dimension comes into the drawing.

// DIM's sub-commands offer the text at a prompt of its own, the other commands as an option.
enum class TextPrompt { option, always };

class DimensionDraft {
public:
    explicit DimensionDraft(TextPrompt prompt);

    const DimensionStyle& style() const { return style_; }
    // The measured text as the prompts show it.
    std::wstring measured(const AcDbDimension& dimension) const;

    // Asks for a place. Mtext, Text and Angle are taken here, other options handed on; nothing when
    // cancelled, also by an option that answers false.
    using OptionTaker = std::function<bool(const std::wstring& keyword)>;
    std::optional<AcGePoint3d> askPlace(const PromptForm& form, const AcDbDimension& dimension,
                                        const OptionTaker& other = {});
    // The text's own prompt where there is one. False when cancelled.
    bool askTextIfAlways(const AcDbDimension& dimension);

    void tell(const AcDbDimension& dimension) const; // the measured text
    // Puts the dimension into the drawing, drawn in the current style. `textPlace`: where the user
    // put the text. Null, and told, when it measures nothing.
    AcDbObjectId append(std::unique_ptr<AcDbDimension> dimension,
                        std::optional<AcGePoint3d> textPlace = {}) const;

private:
    bool askText(const AcDbDimension& dimension);
    bool askTextAngle();

    TextPrompt prompt_;
    std::wstring styleName_;
    DimensionStyle style_;
    std::wstring text_;
    double textRotation_ = 0.0;
};

// The straight or circular stroke of a picked entity, and where it was picked; refused with this
// text where `isFit` says no. Nothing when cancelled.
struct PickedStroke {
    NearestStrokeSink::Stroke stroke;
    AcGePoint3d place;

    const Segment3d* segment() const { return std::get_if<Segment3d>(&stroke); }
    const Arc3d* arc() const { return std::get_if<Arc3d>(&stroke); }
};
using StrokeTest = bool (*)(const PickedStroke&);
std::optional<PickedStroke> pickStroke(const wchar_t* prompt, StrokeTest isFit,
                                       const wchar_t* refusal);
// The same where Enter is an answer, too.
Answered<PickedStroke> pickStrokeOrEnter(const wchar_t* prompt, StrokeTest isFit,
                                         const wchar_t* refusal);

bool isAnyStroke(const PickedStroke& picked);
bool isRoundStroke(const PickedStroke& picked);
bool isOpenArcStroke(const PickedStroke& picked);

} // namespace host
