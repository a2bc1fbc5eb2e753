#pragma once

#include "settlements/PayweekRecords.h"

/// The payweek as the driver reads it, with grouped dollars of the default locale. Settlement
/// totals and interest stand in it twice: where the week is summed, and where it is carried over.
QString payweekReport(const PayweekFigures &figures);
