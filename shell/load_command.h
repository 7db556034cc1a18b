#pragma once

// KELMARO_LOAD: the user chooses a file; cancelled, everything stays as it was.
void loadDescription();

// KELMARO_RELOAD: reads the file chosen last once more; before any was chosen nothing happens.
void reloadDescription();
