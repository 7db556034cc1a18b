#pragma once

// KELMARO_CLASSIFY: makes the selected entities into objects of one name.
void classifyEntities();
