// The twins: each calls its function and turns what comes out into a result.
#include <quorvan/export/checked.h>

#include <algorithm>
#include <new>
#include <stdexcept>

#include <quorvan/errors/last_error.h>
#include <quorvan/export/caller_arguments.h>
#include <quorvan/export/export.h>
#include <quorvan/export/filing/filing_state.h>
#include <quorvan/export/series/held_frames.h>

namespace {

using quorvan::areThere;
using quorvan::fail;

enum When { ANY_TIME, IN_FILING };

// An argument that the function cannot take.
struct BadArgument {};

void require(bool condition) {
  if (!condition) {
    throw BadArgument();
  }
}

// HRESULTs of the system errors of these numbers.
constexpr HRESULT kFileNotFound = static_cast<HRESULT>(0x80070002U);
constexpr HRESULT kPathNotFound = static_cast<HRESULT>(0x80070003U);
constexpr HRESULT kSharingViolation = static_cast<HRESULT>(0x80070020U);
constexpr HRESULT kHandleDiskFull = static_cast<HRESULT>(0x80070027U);
constexpr HRESULT kDiskFull = static_cast<HRESULT>(0x80070070U);

QuorvanResult resultOfSaving(HRESULT error) noexcept {
  switch (error) {
    case kFileNotFound:
    case kPathNotFound:
      return QUORVAN_NO_FOLDER;
    case E_ACCESSDENIED:
    case kSharingViolation:
      return QUORVAN_NO_ACCESS;
    case kDiskFull:
    case kHandleDiskFull:
      return QUORVAN_DISK_FULL;
    default:
      return QUORVAN_NOT_SAVED;
  }
}

// Whether an error of the service tells of a file rather than of what stands in a document.
bool tellsOfAFile(HRESULT error) noexcept {
  return resultOfSaving(error) != QUORVAN_NOT_SAVED;
}

// The functions as the twins call them: most as they are.
namespace calls {

using ::exportBarStraight;
using ::exportCircle;
using ::exportDrawingControl;
using ::exportFrameCirc;
using ::exportFrameRect;
using ::exportLBar;
using ::exportLine;
using ::exportPin;
using ::exportPointBar;
using ::exportStirrup;
using ::exportText;
using ::exportUBar;
using ::restartFiling;
using ::stopFiling;

int startFiling(const wchar_t* path) {
  require(path != nullptr && *path != L'\0');
  ::startFiling(path);
  return quorvan::filingOpen ? QUORVAN_DONE : fail(QUORVAN_NOT_OPENED);
}

// Of the steps of ending, a series that cannot be written leaves its frames behind; the saving
// comes when no frames are left.
int endFiling(const wchar_t* zantoVersion, long servicePack, const wchar_t* drawingName,
              int checkSum) {
  try {
    ::endFiling(zantoVersion, servicePack, drawingName, checkSum);
    return QUORVAN_DONE;
  } catch (const std::out_of_range&) {
    return fail(QUORVAN_BAD_SERIES);
  } catch (const _com_error& error) {
    if (error.Error() == E_OUTOFMEMORY) {
      throw;
    }
    const bool hasSeries =
        std::any_of(quorvan::groupedFrames.begin(), quorvan::groupedFrames.end(),
                    [](const quorvan::FrameGroup& group) { return !group.empty(); });
    if (!hasSeries) {
      return fail(resultOfSaving(error.Error()), error.Error());
    }
    return fail(tellsOfAFile(error.Error()) ? QUORVAN_NO_SCRATCH_FILE : QUORVAN_BAD_SERIES,
                error.Error());
  }
}

void exportMesh(const wchar_t* reference, const wchar_t* type, double extensionX, double extensionY,
                double angle, int count, const double* xs, const double* ys, const double* zs) {
  require(areThere(count, {xs, ys, zs}));
  ::exportMesh(reference, type, extensionX, extensionY, angle, count, xs, ys, zs);
}

void exportFilledPolygon(int count, const double* xs, const double* ys, const double* zs,
                         unsigned long color) {
  require(areThere(count, {xs, ys, zs}));
  ::exportFilledPolygon(count, xs, ys, zs, color);
}

void exportFormwork(int count, const double* xs, const double* ys, const double* zs,
                    const double* bxs, const double* bys, const double* bzs) {
  require(areThere(count / 2, {xs, ys, zs, bxs, bys, bzs}));
  ::exportFormwork(count, xs, ys, zs, bxs, bys, bzs);
}

void exportBarPolygon(int count, double* xs, double* ys, double* zs, double hookLength1,
                      double hookLength2, bool side, double hookAngle1, double hookAngle2,
                      const wchar_t* steelGrade, const wchar_t* adherence, long reference,
                      double diameter, bool hidden) {
  require(areThere(count, {xs, ys, zs}));
  ::exportBarPolygon(count, xs, ys, zs, hookLength1, hookLength2, side, hookAngle1, hookAngle2,
                     steelGrade, adherence, reference, diameter, hidden);
}

void pushRepartitionFrameRect(double value1, double value2, double value3, double value4,
                              double value5, double value6, const wchar_t* className,
                              double hookLength1, double hookAngle1, const wchar_t* steelGrade,
                              const wchar_t* adherence, long reference, double diameter,
                              bool hidden, long keyC, int viewPoint, int lastInt) {
  require(className != nullptr && *className != L'\0');
  ::pushRepartitionFrameRect(value1, value2, value3, value4, value5, value6, className, hookLength1,
                             hookAngle1, steelGrade, adherence, reference, diameter, hidden, keyC,
                             viewPoint, lastInt);
}

void getModulePromptsProjectName(const wchar_t** name) {
  require(name != nullptr);
  *name = ::getModulePromptsProjectName();
}

}  // namespace calls

// Runs a call that gives a result or nothing.
template <class Call>
int resultOf(const Call& call) {
  if constexpr (std::is_void_v<decltype(call())>) {
    call();
    return QUORVAN_DONE;
  } else {
    return call();
  }
}

template <class Call>
int run(When when, const Call& call) noexcept {
  if (when == IN_FILING && !quorvan::filingOpen) {
    return fail(QUORVAN_NO_FILING);
  }
  try {
    return resultOf(call);
  } catch (const BadArgument&) {
    return fail(QUORVAN_BAD_ARGUMENT);
  } catch (const _com_error& error) {
    return tellsOfAFile(error.Error()) ? fail(QUORVAN_NO_SCRATCH_FILE, error.Error())
                                       : quorvan::failWithCurrentError();
  } catch (...) {
    return quorvan::failWithCurrentError();
  }
}

}  // namespace

#define QUORVAN_TWIN(name, when, parameters, arguments)      \
  int name##Checked parameters {                             \
    return run(when, [&] { return calls::name arguments; }); \
  }
QUORVAN_FLAT_FUNCTIONS(QUORVAN_TWIN)
#undef QUORVAN_TWIN

int quorvanAbandonFiling() {
  return run(IN_FILING, [] {
    // A filer as it was before the first filing: letting go of the path alone would leave the
    // counts of the drawing to the next one.
    quorvan::theFiler = CKtFiler();
    quorvan::pendingFrames.clear();
    quorvan::groupedFrames.clear();
    quorvan::filingOpen = false;
    quorvan::filingStopped = false;
  });
}
