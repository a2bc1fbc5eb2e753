#pragma once

/// Gives the application its locale, its names, the font of the saved scale, its icon, and message
/// boxes that show markup as it stands. Call it once, before the window is built. Unlike a change
/// of the scale, the start does not clamp what was saved.
void setUpApplication();
