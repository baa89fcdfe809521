// Arguments for the calls of a script.
#pragma once

#include <vector>

#include <tests/differential/random.h>
#include <quorvan/geometry/point.h>
#include <quorvan/geometry/vector.h>
#include <quorvan/text/cstring.h>

namespace quorvan::test {

/// A class name, one of a few, so that elements of one name meet.
CString randomClassName(Random& random);

/// An item name, one of a few, now and then one that XML does not take.
CString randomItemName(Random& random);

/// Text with whatever a drawing may hold, and what it should not.
CString randomText(Random& random);

/// Text as steel grades and adherences are.
CString randomGrade(Random& random);

double randomDouble(Random& random);

long randomLong(Random& random);

CKtPnt3D randomPoint(Random& random);

CKtVect3D randomVector(Random& random);

std::vector<CKtPnt3D> randomPoints(Random& random);

}  // namespace quorvan::test
