#pragma once

#include "hands/Desk.h"

#include <array>

/// The trip that the main road enters, with its settlement item, and what the files and the payweek
/// hold of it afterwards.
namespace EnteredTrip {

/// Files with longer, older names of the same beginning.
void makeFiles(Workspace &workspace);

struct Field
{
    const char *name;
    const char *typed;
};

/// The form from top to bottom.
inline constexpr std::array<Field, 7> form = {{{"tripNoField", "4471203"},
                                               {"payweekField", "04/18/2026"},
                                               {"emptyMilesField", "100"},
                                               {"loadedMilesField", "1,234.50"},
                                               {"linehaulField", "$2,345.67"},
                                               {"fusuField", "$210.40"},
                                               {"carrierPercentField", "25"}}};

/// Fails the test unless every row stands in the files as it was typed.
void isWritten(const Workspace &workspace);

/// Fails the test unless View Payweek shows the week.
void isShown(Desk &desk);

} // namespace EnteredTrip
