#pragma once

#include "host/db/text.h"

namespace host {

inline constexpr short kAttributeOrder[] = {280, 2, 70, 73, 74};
inline constexpr Subclass kAttributePart{"AcDbAttribute", kAttributeOrder};
inline constexpr short kAttributeDefinitionOrder[] = {280, 3, 2, 70, 73, 74};
inline constexpr Subclass kAttributeDefinitionPart{"AcDbAttributeDefinition",
                                                   kAttributeDefinitionOrder};

} // namespace host

// An attribute of a block reference: a text with a tag. Multi-line ones embed a second object,
// whose fields are not theirs.
class AcDbAttribute : public AcDbText {
    ACRX_DECLARE_MEMBERS(AcDbAttribute)
public:
    AcDbAttribute() = default;

    std::wstring tag() const { return text(host::kAttributePart, 2); }
    bool isInvisible() const { return flag(host::kAttributePart, 70, 1); }
    bool isConstant() const { return flag(host::kAttributePart, 70, 2); }
    Acad::ErrorStatus setTag(std::wstring_view tag) // eInvalidInput for an empty one
    {
        return tag.empty() ? Acad::eInvalidInput : setText(host::kAttributePart, 2, tag);
    }
    Acad::ErrorStatus setInvisible(bool on) { return setFlag(host::kAttributePart, 70, 1, on); }

    bool strokes(host::StrokeSink& sink) const override; // nothing while invisible
    std::string recordName() const override { return "ATTRIB"; }
    std::span<const std::string_view> markers() const override;

protected:
    int verticalModeCode() const override { return 74; }
    Acad::ErrorStatus setVerticalMode(int mode) override
    {
        return setInteger(host::kAttributePart, 74, mode, 0);
    }
};

// The model of an attribute in a block; drawn by its tag. A constant one is part of the block and
// shows its value in every reference.
class AcDbAttributeDefinition : public AcDbText {
    ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition)
public:
    AcDbAttributeDefinition() = default;

    std::wstring tag() const { return text(host::kAttributeDefinitionPart, 2); }
    std::wstring prompt() const { return text(host::kAttributeDefinitionPart, 3); }
    bool isInvisible() const { return flag(host::kAttributeDefinitionPart, 70, 1); }
    bool isConstant() const { return flag(host::kAttributeDefinitionPart, 70, 2); }
    bool isVerifiable() const { return flag(host::kAttributeDefinitionPart, 70, 4); }
    bool isPreset() const { return flag(host::kAttributeDefinitionPart, 70, 8); }
    Acad::ErrorStatus setTag(std::wstring_view tag) // eInvalidInput for an empty one
    {
        return tag.empty() ? Acad::eInvalidInput : setText(host::kAttributeDefinitionPart, 2, tag);
    }
    Acad::ErrorStatus setPrompt(std::wstring_view prompt)
    {
        return setText(host::kAttributeDefinitionPart, 3, prompt);
    }
    Acad::ErrorStatus setConstant(bool on)
    {
        return setFlag(host::kAttributeDefinitionPart, 70, 2, on);
    }

    std::string recordName() const override { return "ATTDEF"; }
    std::span<const std::string_view> markers() const override;

protected:
    std::wstring drawnText() const override { return isConstant() ? textString() : tag(); }
    int verticalModeCode() const override { return 74; }
    Acad::ErrorStatus setVerticalMode(int mode) override
    {
        return setInteger(host::kAttributeDefinitionPart, 74, mode, 0);
    }
};
