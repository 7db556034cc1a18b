#pragma once

#include "description/description.h"
#include "host/db/object_id.h"
#include "host/geom/point.h"

#include <optional>
#include <string>

// What the commands ask that the drawing engine types. They read the stored definition: an answer
// to a property's prompt does not reach them.

// The properties of the object that the user names; null when there is none or he cancelled.
const GraphicProps* askProps(const Description& description);

std::optional<AcGePoint3d> askPoint();

// Whether the user turns the entity on the screen, and else its angle, in radians.
bool turnsOnScreen(const GraphicProps& props);
double rotationOf(const GraphicProps& props);

// Asks for an object, a point and the words (the object's own are the default), has an entity made
// of them, and lets the user turn it. Without words in the end nothing is made.
using WordsWriter = AcDbObjectId (*)(const GraphicProps& props, const AcGePoint3d& point,
                                     const std::wstring& words);
void writeWords(WordsWriter write);
