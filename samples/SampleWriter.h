#pragma once

#include "samples/SampleRecords.h"

/// Makes a new trips.db and locations.db in `folder`, which is made too if it is missing, and
/// writes the business into them. If either file is there already nothing is touched. On any
/// failure returns false with the reason in `error` and leaves neither file.
bool writeSampleFiles(const QString &folder, const SampleBusiness &business, QString &error);
