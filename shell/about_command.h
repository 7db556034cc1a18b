#pragma once

// KELMARO_ABOUT: shows what the plug-in is, who makes it and where to ask.
void showAbout();
