#pragma once

// KELMARO_SEL: the objects of one name, or of a class of that name.
void selectByObject();

// KELMARO_SEL_CLASS: the objects of one class and of the classes below it.
void selectByClass();
