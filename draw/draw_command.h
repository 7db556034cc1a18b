#pragma once

// KELMARO_DRAW: draws an object by its name, again and again until the user cancels.
void drawNamedObject();
