#pragma once

// KELMARO_IMPL_TXT: puts the text of an object at a point; typed by the drawing engine.
void writeObjectText();
