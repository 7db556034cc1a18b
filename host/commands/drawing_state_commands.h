#pragma once

namespace host {

void regenCommand();
void auditCommand(); // what was wrong in the file and was kept

} // namespace host
