/* The flat functions and their twins: the one list from which the declarations of the twins, the
 * twins themselves, their documentation and their tests are made. Include
 * <quorvan/export/checked.h>.
 */
#pragma once

/* FUNCTION(name, when, parameters of the twin, the same as arguments). `when` is IN_FILING where
 * the twin needs a filing, ANY_TIME elsewhere. */
#define QUORVAN_FLAT_FUNCTIONS(FUNCTION)                                                           \
  FUNCTION(startFiling, ANY_TIME, (const wchar_t* path), (path))                                   \
  FUNCTION(stopFiling, ANY_TIME, (void), ())                                                       \
  FUNCTION(restartFiling, ANY_TIME, (void), ())                                                    \
  FUNCTION(                                                                                        \
      endFiling, IN_FILING,                                                                        \
      (const wchar_t* zantoVersion, long servicePack, const wchar_t* drawingName, int checkSum),   \
      (zantoVersion, servicePack, drawingName, checkSum))                                          \
  FUNCTION(                                                                                        \
      exportDrawingControl, IN_FILING,                                                             \
      (const wchar_t* zantoVersion, long servicePack, long checkSum, const wchar_t* drawingName),  \
      (zantoVersion, servicePack, checkSum, drawingName))                                          \
  FUNCTION(                                                                                        \
      exportLine, IN_FILING,                                                                       \
      (double x1, double y1, double z1, double x2, double y2, double z2, unsigned long color),     \
      (x1, y1, z1, x2, y2, z2, color))                                                             \
  FUNCTION(exportCircle, IN_FILING,                                                                \
           (double x, double y, double z, double radius, unsigned long color),                     \
           (x, y, z, radius, color))                                                               \
  FUNCTION(exportText, IN_FILING,                                                                  \
           (const wchar_t* contents, double x, double y, double z, double angle,                   \
            unsigned long color, int justificationX, int justificationY, double height),           \
           (contents, x, y, z, angle, color, justificationX, justificationY, height))              \
  FUNCTION(exportMesh, IN_FILING,                                                                  \
           (const wchar_t* reference, const wchar_t* type, double extensionX, double extensionY,   \
            double angle, int count, const double* xs, const double* ys, const double* zs),        \
           (reference, type, extensionX, extensionY, angle, count, xs, ys, zs))                    \
  FUNCTION(exportFilledPolygon, IN_FILING,                                                         \
           (int count, const double* xs, const double* ys, const double* zs, unsigned long color), \
           (count, xs, ys, zs, color))                                                             \
  FUNCTION(exportFormwork, IN_FILING,                                                              \
           (int count, const double* xs, const double* ys, const double* zs, const double* bxs,    \
            const double* bys, const double* bzs),                                                 \
           (count, xs, ys, zs, bxs, bys, bzs))                                                     \
  FUNCTION(exportBarStraight, IN_FILING,                                                           \
           (double x1, double y1, double z1, double x2, double y2, double z2, double hookLength1,  \
            double hookLength2, unsigned char hook1Up, unsigned char hook2Up, double hookAngle1,   \
            double hookAngle2, const wchar_t* steelGrade, const wchar_t* adherence,                \
            long reference, double diameter, unsigned char hidden),                                \
           (x1, y1, z1, x2, y2, z2, hookLength1, hookLength2, hook1Up, hook2Up, hookAngle1,        \
            hookAngle2, steelGrade, adherence, reference, diameter, hidden))                       \
  FUNCTION(exportBarPolygon, IN_FILING,                                                            \
           (int count, double* xs, double* ys, double* zs, double hookLength1, double hookLength2, \
            unsigned char side, double hookAngle1, double hookAngle2, const wchar_t* steelGrade,   \
            const wchar_t* adherence, long reference, double diameter, unsigned char hidden),      \
           (count, xs, ys, zs, hookLength1, hookLength2, side, hookAngle1, hookAngle2, steelGrade, \
            adherence, reference, diameter, hidden))                                               \
  FUNCTION(exportLBar, IN_FILING,                                                                  \
           (double x1, double y1, double z1, double x2, double y2, double z2, double x3,           \
            double y3, double z3, double hookLength1, double hookAngle1, double hookLength2,       \
            double hookAngle2, const wchar_t* steelGrade, const wchar_t* adherence,                \
            long reference, double diameter, unsigned char hidden),                                \
           (x1, y1, z1, x2, y2, z2, x3, y3, z3, hookLength1, hookAngle1, hookLength2, hookAngle2,  \
            steelGrade, adherence, reference, diameter, hidden))                                   \
  FUNCTION(exportUBar, IN_FILING,                                                                  \
           (double x1, double y1, double z1, double x2, double y2, double z2, double x3,           \
            double y3, double z3, double hookLength1, double hookAngle1, double hookLength2,       \
            double hookAngle2, const wchar_t* steelGrade, const wchar_t* adherence,                \
            long reference, double diameter, unsigned char hidden),                                \
           (x1, y1, z1, x2, y2, z2, x3, y3, z3, hookLength1, hookAngle1, hookLength2, hookAngle2,  \
            steelGrade, adherence, reference, diameter, hidden))                                   \
  FUNCTION(exportPin, IN_FILING,                                                                   \
           (double x1, double y1, double z1, double x2, double y2, double z2, double hookLength1,  \
            double hookLength2, double hookAngle1, double hookAngle2, const wchar_t* steelGrade,   \
            const wchar_t* adherence, long reference, double diameter, unsigned char hidden),      \
           (x1, y1, z1, x2, y2, z2, hookLength1, hookLength2, hookAngle1, hookAngle2, steelGrade,  \
            adherence, reference, diameter, hidden))                                               \
  FUNCTION(exportPointBar, IN_FILING,                                                              \
           (double x, double y, double z, const wchar_t* steelGrade, const wchar_t* adherence,     \
            long reference, double diameter, unsigned char hidden),                                \
           (x, y, z, steelGrade, adherence, reference, diameter, hidden))                          \
  FUNCTION(exportStirrup, IN_FILING,                                                               \
           (double x1, double y1, double z1, double x2, double y2, double z2, double hookLength1,  \
            double hookAngle1, const wchar_t* steelGrade, const wchar_t* adherence,                \
            long reference, double diameter, unsigned char hidden),                                \
           (x1, y1, z1, x2, y2, z2, hookLength1, hookAngle1, steelGrade, adherence, reference,     \
            diameter, hidden))                                                                     \
  FUNCTION(                                                                                        \
      exportFrameRect, IN_FILING,                                                                  \
      (double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,     \
       double z3, double hookLength1, double hookAngle1, const wchar_t* steelGrade,                \
       const wchar_t* adherence, long reference, double diameter, unsigned char hidden),           \
      (x1, y1, z1, x2, y2, z2, x3, y3, z3, hookLength1, hookAngle1, steelGrade, adherence,         \
       reference, diameter, hidden))                                                               \
  FUNCTION(exportFrameCirc, IN_FILING,                                                             \
           (double centerX, double centerY, double centerZ, double startX, double startY,          \
            double startZ, double frameRadius, double recoverLength, double hookLength1,           \
            double hookAngle1, const wchar_t* steelGrade, const wchar_t* adherence,                \
            long reference, double diameter, unsigned char hidden),                                \
           (centerX, centerY, centerZ, startX, startY, startZ, frameRadius, recoverLength,         \
            hookLength1, hookAngle1, steelGrade, adherence, reference, diameter, hidden))          \
  FUNCTION(pushRepartitionFrameRect, IN_FILING,                                                    \
           (double value1, double value2, double value3, double value4, double value5,             \
            double value6, const wchar_t* className, double hookLength1, double hookAngle1,        \
            const wchar_t* steelGrade, const wchar_t* adherence, long reference, double diameter,  \
            unsigned char hidden, long keyC, int viewPoint, int lastInt),                          \
           (value1, value2, value3, value4, value5, value6, className, hookLength1, hookAngle1,    \
            steelGrade, adherence, reference, diameter, hidden, keyC, viewPoint, lastInt))         \
  FUNCTION(getModulePromptsProjectName, ANY_TIME, (const wchar_t** name), (name))
