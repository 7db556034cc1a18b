#pragma once

// KELMARO_IMPL_INSRT: inserts the block of an object at a point; typed by the drawing engine.
void insertObjectBlock();
