// Tests and benchmarks copy results as the console program does.

#pragma once

#include "../../tools/classify/Results.h"
