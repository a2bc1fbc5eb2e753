#pragma once

/// Lets every message box of the application show its text as it stands and stay within the
/// screen.
///
/// What a box quotes comes from files, from people and from other programs. Of itself Qt would read
/// a trip number such as "<b>7" as markup, and a driver could not tell which trip is about to be
/// deleted; and it would make a box as high as its text, with the buttons below the screen. A text
/// that is too large scrolls in the box. QMessageBox::text() gives the whole of it either way.
void setUpMessageBoxes();
