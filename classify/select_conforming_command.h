#pragma once

// KELMARO_SEL_EXT: of one object, what passes or fails the tests of look and records.
void selectByConformity();

// KELMARO_SEL_ALL: what passes or fails them for any object that its records stand for.
void selectAllByConformity();
