// For builds that don't count.
#include "StepCount.h"

StepCount::Cost StepCount::now() { return {}; }
