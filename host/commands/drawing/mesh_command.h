#pragma once

namespace host {

// MESH: boxes, cones, cylinders, pyramids, spheres, wedges and tori as meshes.
void meshCommand();

} // namespace host
