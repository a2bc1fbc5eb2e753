#pragma once

/// Lets every message box of the application show its text as it stands. What a box quotes comes
/// from files and from people; of itself Qt would read a trip number such as "<b>7" as markup, and
/// a driver could not tell which trip is about to be deleted.
void keepMessageBoxesPlain();
