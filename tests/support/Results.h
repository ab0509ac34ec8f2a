// Tests and benchmarks take results as the console program does.

#pragma once

#include "../../tools/classify/Results.h"
