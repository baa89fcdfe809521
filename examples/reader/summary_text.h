// A summary as text for people, in UTF-8.
#pragma once

#include <ostream>

#include "drawing_summary.h"

void print(std::ostream& out, const DrawingSummary& summary);
