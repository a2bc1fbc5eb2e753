#pragma once

/// Gives the application its names, the font of the saved scale and its icon. Call it once, before
/// the window is built. Unlike a change of the scale, the start does not clamp what was saved.
void setUpApplication();
