#pragma once

namespace host {

void newCommand();
void openCommand();
void qsaveCommand();  // under its name; a drawing without one as SAVEAS
void saveasCommand(); // asks for the path
void closeCommand();  // asks before changes are lost
void quitCommand();   // ends the program once it has asked so

} // namespace host
