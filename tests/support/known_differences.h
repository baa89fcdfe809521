// Wine's XML document service stands in for the one of Windows, and differs from it. Everything
// that the tests have to put up with is listed here, with its reason: tests that fail for it, and
// differences of the saved bytes. What is not listed fails; so does a listed test that passes.
#pragma once

#include <string>

namespace quorvan::test {

/// Whether the documents of this program are those of Wine's service.
bool usesWinesDocuments();

/// The bytes that the document service of Windows, like the embedded one, would have saved; where
/// it is not Wine's service that saves, the bytes themselves.
std::string withoutKnownDifferences(std::string saved);

/// Takes the tests that Wine is listed to crash in out of those to run.
void leaveOutCrashingTests();

/// The exit code after GoogleTest's run, which returned `result`: 0 when exactly the listed tests
/// failed. Prints what deviates.
int judge(int result);

}  // namespace quorvan::test
