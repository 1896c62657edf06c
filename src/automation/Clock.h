#pragma once
// The present moment as the language's functions give it, in the user's zone.

#include "automation/Date.h"

namespace automation {

/// The date and time, to the second.
Date Now();
/// The date, without time.
Date Today();
/// The time of day alone: a fraction of a day, on day 0.
Date TimeOfDay();

} // namespace automation
