#include "host/commands/drawing/dimension_input.h"

#include "host/commands/drawing/new_entity.h"
#include "host/commands/drawing/picked_curve.h"
#include "host/db/database.h"
#include "host/db/dimension_measure.h"
#include "host/db/mtext_contents.h"
#include "host/db/symbol_names.h"
#include "host/edit/command_engine.h"
#include "host/edit/document.h"
#include "host/edit/entity_search.h"
#include "host/edit/system_variables.h"
#include "host/edit/typed_values.h"

namespace host {

namespace {

std::wstring currentStyleName()
{
    resbuf value;
    return acedGetVar(L"DIMSTYLE", value) == RTNORM ? value.resval.rstring : L"Standard";
}

AcGePoint3d lastPoint()
{
    resbuf value;
    return acedGetVar(L"LASTPOINT", value) == RTNORM ? AcGePoint3d(value.resval.rpoint)
                                                     : AcGePoint3d();
}

// What an answer to a prompt for one entity names, and the place at which it was picked.
PickedEntity entityOf(const Answer& answer, AcDbDatabase& database)
{
    PickedEntity picked{{}, lastPoint()};
    if (answer.kind == Answer::Kind::entities) {
        if (!answer.entities.empty())
            picked.id = answer.entities.front();
        return picked;
    }
    if (answer.kind == Answer::Kind::text) {
        if (const auto named = entityByHandent(database, answer.text)) {
            picked.id = *named;
            return picked;
        }
        if (const std::vector<Keyword> last = parseKeywords(L"Last");
            matchKeyword(last, answer.text)) {
            picked.id = lastEntity(database);
            return picked;
        }
        const std::optional<AcGePoint3d> typed =
            typedPoint(answer.text, picked.place, realVariable(L"ELEVATION", 0.0));
        if (!typed)
            return picked;
        picked.place = *typed;
    } else {
        picked.place = answer.point;
    }
    picked.id = entityAt(database, picked.place);
    return picked;
}

Answered<PickedStroke> askStroke(const wchar_t* prompt, bool enterCounts, StrokeTest isFit,
                                 const wchar_t* refusal)
{
    AcDbDatabase& database = *curDoc()->database();
    Question question;
    question.kind = WaitKind::entity;
    question.prompt = prompt;
    Answered<PickedStroke> answered;
    bool enter = false;
    const int outcome =
        engine().ask(question, [&](const Answer& answer) -> std::optional<std::wstring> {
            if (enterCounts && answer.kind == Answer::Kind::text && answer.text.empty()) {
                enter = true;
                return std::nullopt;
            }
            const PickedEntity picked = entityOf(answer, database);
            if (picked.id.isNull())
                return L"Nothing is there.\n";
            const auto stroke = strokeNear(picked.id, picked.place);
            if (!stroke || !isFit({*stroke, picked.place}))
                return refusal;
            answered.value = {*stroke, picked.place};
            setLastPoint(picked.place);
            return std::nullopt;
        });
    answered.outcome = outcome == RTNORM && enter ? RTNONE : outcome;
    return answered;
}

} // namespace

std::optional<PickedStroke> pickStroke(const wchar_t* prompt, StrokeTest isFit,
                                       const wchar_t* refusal)
{
    const Answered<PickedStroke> answered = askStroke(prompt, false, isFit, refusal);
    return answered.given() ? std::optional(answered.value) : std::nullopt;
}

Answered<PickedStroke> pickStrokeOrEnter(const wchar_t* prompt, StrokeTest isFit,
                                         const wchar_t* refusal)
{
    return askStroke(prompt, true, isFit, refusal);
}

bool isAnyStroke(const PickedStroke&)
{
    return true;
}

bool isRoundStroke(const PickedStroke& picked)
{
    return picked.arc() != nullptr;
}

bool isOpenArcStroke(const PickedStroke& picked)
{
    return picked.arc() && !picked.arc()->isClosed();
}

DimensionDraft::DimensionDraft(TextPrompt prompt)
    : prompt_(prompt), styleName_(currentStyleName()),
      style_(currentDimensionStyle(*curDoc()->database(), styleName_))
{
}

std::wstring DimensionDraft::measured(const AcDbDimension& dimension) const
{
    return plainText(measuredText(dimension, style_, KindMark::leftOut));
}

bool DimensionDraft::askText(const AcDbDimension& dimension)
{
    const std::wstring prompt = L"Enter dimension text <" + measured(dimension) + L">: ";
    std::wstring written;
    if (acedGetString(1, prompt.c_str(), written) != RTNORM)
        return false;
    text_ = written;
    return true;
}

bool DimensionDraft::askTextIfAlways(const AcDbDimension& dimension)
{
    return prompt_ == TextPrompt::option || !text_.empty() || askText(dimension);
}

bool DimensionDraft::askTextAngle()
{
    const Answered<double> turn =
        askTurn({.text = L"Specify angle of dimension text: ", .enterCounts = true});
    if (turn.given())
        textRotation_ = turn.value;
    return !turn.cancelled();
}

std::optional<AcGePoint3d> DimensionDraft::askPlace(const PromptForm& form,
                                                    const AcDbDimension& dimension,
                                                    const OptionTaker& other)
{
    for (;;) {
        const Answered<AcGePoint3d> place = host::askPlace(form);
        if (place.given())
            return place.value;
        if (!place.isKeyword())
            return std::nullopt;
        const bool goesOn = place.chose(L"Mtext") || place.chose(L"Text") ? askText(dimension)
                            : place.chose(L"Angle")                       ? askTextAngle()
                            : other                                       ? other(place.keyword)
                                                                          : true;
        if (!goesOn)
            return std::nullopt;
    }
}

void DimensionDraft::tell(const AcDbDimension& dimension) const
{
    engine().printForPrompt(L"Dimension text = " + measured(dimension) + L"\n");
}

AcDbObjectId DimensionDraft::append(std::unique_ptr<AcDbDimension> dimension,
                                    std::optional<AcGePoint3d> textPlace) const
{
    if (!host::measured(*dimension)) {
        refuse(L"There is nothing to measure.\n");
        return {};
    }
    dimension->setDimensionStyle(
        findSymbol(curDoc()->database()->drawing(), "DIMSTYLE", styleName_));
    const AcDbObjectId id = appendNew(std::move(dimension));
    const AcDbObjectPointer<AcDbDimension> drawn(id, AcDb::kForWrite);
    if (!drawn)
        return {};
    DimensionStyle wanted = style_;
    ensureArrowBlocks(*drawn->database(), wanted);
    writeOverrides(*drawn, wanted);
    if (!text_.empty())
        drawn->setDimensionText(text_);
    if (textRotation_ != 0.0)
        drawn->setTextRotation(textRotation_);
    if (textPlace) {
        drawn->useSetTextPosition();
        drawn->setTextPosition(*textPlace);
    }
    drawn->recomputeDimBlock();
    return id;
}

} // namespace host
