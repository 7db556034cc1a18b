#pragma once

// KELMARO_CLASSIFY_AUTO: finds the object of each entity by its look, and gives it the records; or
// by its records, and gives it the look.
void classifyAutomatically();
