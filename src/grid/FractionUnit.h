#pragma once

#include "times/FractionUnit.h" // the reader of times counts fractions, too
