#pragma once

// KELMARO_RESTORE: gives entities that have records the look of their object again.
void restoreObjects();
