#pragma once

#include "description/graphic_props.h"
#include "host/db/entity.h"

#include <string>

class AcDbHatch;
class AcDbText;

// Brings the properties of an entity into line with a description: of every property that is given,
// a value that is accepted stays and any other becomes the one to draw with. The entity is open for
// write; what a setter refuses stays as it was.
struct WantedLook {
    const GraphicProps& props;
    bool force = false; // accepted values become the one to draw with, too
};

// Whether the entity's value of a property is to be written over.
template <class T>
bool callsForWrite(const WantedLook& look, const AcDbEntity& entity,
                   PropConstraint<T> GraphicProps::*property);
bool callsForWrite(const WantedLook& look, const AcDbEntity& entity,
                   ColorList GraphicProps::*property);

// The properties of the entity's exact class (of dimensions: of their kind) that a setter of the
// entity can write. What takes another entity, a reference's block and a multiline's style, and the
// reference's scale are left to the caller.
void assignClassProperties(const WantedLook& look, AcDbEntity& entity);

// Colour, layer, linetype, linetype scale and line weight, in that order.
void assignCommonProperties(const WantedLook& look, AcDbEntity& entity);

// One of them alone: a hatch's background, which may be none.
void assignBackgroundColor(const WantedLook& look, AcDbHatch& hatch);

// A predefined pattern, else one with a file of its own; the hatch stays as it is when neither is
// found.
void setPattern(AcDbHatch& hatch, const std::wstring& name);

// Puts a text that stands by its alignment point there; others stay where their position is.
void alignAt(AcDbText& text, const AcGePoint3d& place);
