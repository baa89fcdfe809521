/* The flat functions through which a host writes a whole drawing. Usable from plain C.
 *
 * A filing goes: startFiling, then exports and pushes in any order, with stopFiling and
 * restartFiling in between as wanted, then endFiling. The calls share one state in a process: all
 * of them must come from one thread, one filing at a time.
 *
 * Points are three doubles x, y, z in the drawing's length unit. Texts are wide and terminated;
 * null is the empty text; UTF-16 on Windows, UTF-32 elsewhere. Angles, colours and justifications
 * are those of the calling program and are filed unchanged. A `long` is filed with its low 32 bits.
 *
 * A flag counts as set whatever byte but 0 stands in it. An element with a null array, where the
 * count asks for entries, is not filed.
 *
 * Nothing is returned and no result is reported. What can leave a function as a C++ exception:
 * _com_error where the XML document service fails (endFiling: the file cannot be saved, and then
 * the drawing is still held and endFiling can be called again), std::bad_alloc, and
 * std::out_of_range from endFiling for a series of one frame (see pushRepartitionFrameRect). A
 * caller that cannot catch C++ exceptions is ended by them: for those every function has a twin in
 * <quorvan/export/checked.h> that returns a result and lets nothing out.
 */
#pragma once

#include <stdbool.h>
#include <stddef.h>

#include <quorvan/api.h>
#include <quorvan/geometry/module_prompts.h>

#ifdef __cplusplus
extern "C" {
#endif

/* --- lifecycle -------------------------------------------------------------------------------- */

/// Opens the file at `path`, or prepares a new one, and switches writing on. Elements are added to
/// those that the file holds. A file that cannot be parsed is replaced when the filing ends. A
/// filing still open is dropped unsaved.
QUORVAN_API void startFiling(const wchar_t* path);

/// Switches writing off: the exports and pushes that follow are dropped.
QUORVAN_API void stopFiling(void);

/// Switches writing on again.
QUORVAN_API void restartFiling(void);

/// Writes the repartitions of the pushed frames and the drawing control record, and saves and
/// closes the file. With writing switched off the file is saved and closed without either.
QUORVAN_API void endFiling(const wchar_t* zantoVersion, long servicePack,
                           const wchar_t* drawingName, int checkSum);

/// Writes a drawing control record at once; endFiling writes one by itself. Mind the order of the
/// arguments, which differs from endFiling's.
QUORVAN_API void exportDrawingControl(const wchar_t* zantoVersion, long servicePack, long checkSum,
                                      const wchar_t* drawingName);

/* --- graphic elements ------------------------------------------------------------------------- */

/// A line from (x1, y1, z1) to (x2, y2, z2).
QUORVAN_API void exportLine(double x1, double y1, double z1, double x2, double y2, double z2,
                            unsigned long color);

/// A circle about (x, y, z).
QUORVAN_API void exportCircle(double x, double y, double z, double radius, unsigned long color);

/// A text at (x, y, z). A character that XML cannot carry is filed as U+FFFD.
QUORVAN_API void exportText(const wchar_t* contents, double x, double y, double z, double angle,
                            unsigned long color, int justificationX, int justificationY,
                            double height);

/// A sheet of welded mesh with an outline of `count` points; a negative count is taken for 0. The
/// arrays hold `count` coordinates each and are only read.
QUORVAN_API void exportMesh(const wchar_t* reference, const wchar_t* type, double extensionX,
                            double extensionY, double angle, int count, const double* xs,
                            const double* ys, const double* zs);

/// A filled polygon of `count` points.
QUORVAN_API void exportFilledPolygon(int count, const double* xs, const double* ys,
                                     const double* zs, unsigned long color);

/// An outline of the concrete: `count` points, two a segment (an odd last one is ignored), and one
/// bulge vector a segment in the arrays `bxs`, `bys`, `bzs`, which hold half as many values.
QUORVAN_API void exportFormwork(int count, const double* xs, const double* ys, const double* zs,
                                const double* bxs, const double* bys, const double* bzs);

/* --- bars and links --------------------------------------------------------------------------- */

/* A bar whose hidden flag is set is written only if the file holds no element with the same values
 * yet; a point bar is always written. The test writes and deletes the file "TempFiler.xml" in the
 * current directory: where that cannot be written, the export raises _com_error and the bar is not
 * filed; the drawing and later exports are not touched by it. */

/// A straight bar with a hook at either end.
QUORVAN_API void exportBarStraight(double x1, double y1, double z1, double x2, double y2, double z2,
                                   double hookLength1, double hookLength2, bool hook1Up,
                                   bool hook2Up, double hookAngle1, double hookAngle2,
                                   const wchar_t* steelGrade, const wchar_t* adherence,
                                   long reference, double diameter, bool hidden);

/// A bent bar given by its polyline of `count` points. The arrays are only read.
QUORVAN_API void exportBarPolygon(int count, double* xs, double* ys, double* zs, double hookLength1,
                                  double hookLength2, bool side, double hookAngle1,
                                  double hookAngle2, const wchar_t* steelGrade,
                                  const wchar_t* adherence, long reference, double diameter,
                                  bool hidden);

/// A bar with two legs. Each hook's angle follows its length.
QUORVAN_API void exportLBar(double x1, double y1, double z1, double x2, double y2, double z2,
                            double x3, double y3, double z3, double hookLength1, double hookAngle1,
                            double hookLength2, double hookAngle2, const wchar_t* steelGrade,
                            const wchar_t* adherence, long reference, double diameter, bool hidden);

/// A bar with three legs. Each hook's angle follows its length.
QUORVAN_API void exportUBar(double x1, double y1, double z1, double x2, double y2, double z2,
                            double x3, double y3, double z3, double hookLength1, double hookAngle1,
                            double hookLength2, double hookAngle2, const wchar_t* steelGrade,
                            const wchar_t* adherence, long reference, double diameter, bool hidden);

/// A pin. Both hook lengths come before the angles.
QUORVAN_API void exportPin(double x1, double y1, double z1, double x2, double y2, double z2,
                           double hookLength1, double hookLength2, double hookAngle1,
                           double hookAngle2, const wchar_t* steelGrade, const wchar_t* adherence,
                           long reference, double diameter, bool hidden);

/// A bar seen end-on. Written at every call, hidden or not.
QUORVAN_API void exportPointBar(double x, double y, double z, const wchar_t* steelGrade,
                                const wchar_t* adherence, long reference, double diameter,
                                bool hidden);

/// A stirrup given by two points.
QUORVAN_API void exportStirrup(double x1, double y1, double z1, double x2, double y2, double z2,
                               double hookLength1, double hookAngle1, const wchar_t* steelGrade,
                               const wchar_t* adherence, long reference, double diameter,
                               bool hidden);

/// A closed rectangular link given by three corners.
QUORVAN_API void exportFrameRect(double x1, double y1, double z1, double x2, double y2, double z2,
                                 double x3, double y3, double z3, double hookLength1,
                                 double hookAngle1, const wchar_t* steelGrade,
                                 const wchar_t* adherence, long reference, double diameter,
                                 bool hidden);

/// A closed circular link: centre, a point on the circle, radius and overlap.
QUORVAN_API void exportFrameCirc(double centerX, double centerY, double centerZ, double startX,
                                 double startY, double startZ, double frameRadius,
                                 double recoverLength, double hookLength1, double hookAngle1,
                                 const wchar_t* steelGrade, const wchar_t* adherence,
                                 long reference, double diameter, bool hidden);

/* --- repartitions ----------------------------------------------------------------------------- */

/// Holds back one frame of a series; endFiling writes each series as one repartition. Frames of
/// equal `reference`, `viewPoint`, `keyC` and `value3` form a series, in the order of the calls;
/// of a series that is partly hidden the hidden frames are dropped. `className` is the class name
/// of the repeated bar, which should have been exported before.
///
/// For "CKtZantoStraightBar" with `viewPoint` 1 the values 1, 2, 3 are top distance, bottom
/// distance and position. Otherwise values 1 to 3 and 4 to 6 are the two end points of the bar,
/// and the series must have at least two frames left: with one, endFiling raises
/// std::out_of_range. Nothing is lost then: stopFiling followed by endFiling saves and closes the
/// file without the remaining repartitions.
///
/// `lastInt` is kept with the frame and not used.
QUORVAN_API void pushRepartitionFrameRect(double value1, double value2, double value3,
                                          double value4, double value5, double value6,
                                          const wchar_t* className, double hookLength1,
                                          double hookAngle1, const wchar_t* steelGrade,
                                          const wchar_t* adherence, long reference, double diameter,
                                          bool hidden, long keyC, int viewPoint, int lastInt);

#ifdef __cplusplus
}
#endif
