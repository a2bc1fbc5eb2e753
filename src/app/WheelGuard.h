#pragma once

class QComboBox;

/// Lets a combo box inside a scrolling page take the mouse wheel only while it has the focus.
/// Without it, scrolling a form changes whatever value passes below the pointer, unseen.
void guardFromWheel(QComboBox *box);
