#pragma once

// KELMARO_IMPL_MTXT: puts the multiline text of an object at a point; typed by the drawing engine.
void writeObjectMText();
