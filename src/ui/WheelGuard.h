#pragma once

class QWidget;

/// Lets a combo or spin box inside a scrolling page take the mouse wheel only while it has the
/// focus. Without it, scrolling a form changes whatever value passes below the pointer, unseen.
void guardFromWheel(QWidget *box);
