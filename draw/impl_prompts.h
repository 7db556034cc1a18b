#pragma once

#include "description/description.h"
#include "host/geom/point.h"

#include <optional>
#include <string>

// What the commands ask that the drawing engine types. They read the stored definition: an answer
// to a property's prompt does not reach them.

// The properties of the object that the user names; null when there is none or he cancelled.
const GraphicProps* askProps(const Description& description);

std::optional<AcGePoint3d> askPoint();

// The text to write, the object's own being the default; nothing when there is none in the end.
std::optional<std::wstring> askText(const GraphicProps& props);

// Whether the user turns the entity on the screen, and else its angle, in radians.
bool turnsOnScreen(const GraphicProps& props);
double rotationOf(const GraphicProps& props);
