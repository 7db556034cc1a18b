#pragma once

// KELMARO_STAT: shows in a text box what the selection or model space consists of: entities, the
// objects they are, and how many hold illegal values.
void showStatistics();
