/* What the flat functions that return an int say: a result, and the last error of the calling
 * thread. Usable from plain C.
 *
 * 0 is done; every other number stands for one reason and keeps its meaning in later versions. A
 * function that fails leaves code, text and place of the failure with the thread that called it,
 * until the next failure on that thread; one that succeeds leaves them alone.
 */
#pragma once

#include <stddef.h>

#include <quorvan/api.h>

/* Name, number and text of every result. */
#define QUORVAN_RESULTS(RESULT)                                                                 \
  RESULT(QUORVAN_DONE, 0, "done")                                                               \
  RESULT(QUORVAN_OUT_OF_MEMORY, 1, "memory has run out")                                        \
  RESULT(QUORVAN_BAD_ARGUMENT, 2, "an argument is null or out of range")                        \
  RESULT(QUORVAN_FAILED, 3, "the XML document service has failed")                              \
  RESULT(QUORVAN_NO_FILING, 10, "no filing is open")                                            \
  RESULT(QUORVAN_NOT_OPENED, 11, "the drawing cannot be opened")                                \
  RESULT(QUORVAN_NOT_SAVED, 12, "the file cannot be saved")                                     \
  RESULT(QUORVAN_NO_FOLDER, 13, "the folder of the file is missing")                            \
  RESULT(QUORVAN_NO_ACCESS, 14, "the file is out of reach: no permission, or in use")           \
  RESULT(QUORVAN_DISK_FULL, 15, "the disk is full")                                             \
  RESULT(QUORVAN_BAD_SERIES, 16, "a series has one frame only, or names no class of bars")      \
  RESULT(QUORVAN_NO_SCRATCH_FILE, 17, "TempFiler.xml cannot be written in the current folder")  \
  RESULT(QUORVAN_NO_FILE, 30, "there is no such file")                                          \
  RESULT(QUORVAN_NOT_A_FILE, 31, "the path is that of a folder")                                \
  RESULT(QUORVAN_NOT_WELL_FORMED, 32, "the file is no well-formed document")                    \
  RESULT(QUORVAN_BAD_ENCODING, 33, "the file's encoding is not known, or its bytes do not fit") \
  RESULT(QUORVAN_OVER_LIMIT, 34, "the file goes beyond what a drawing may ask of its reader")   \
  RESULT(QUORVAN_NO_MORE, 40, "there is no further element")                                    \
  RESULT(QUORVAN_NO_ITEM, 41, "the element has no such item")                                   \
  RESULT(QUORVAN_OTHER_KIND, 42, "the item is of another kind")                                 \
  RESULT(QUORVAN_INCOMPLETE, 43, "entries of the list are missing, or of another kind")         \
  RESULT(QUORVAN_NO_ROOM, 44, "the array is too short")

typedef enum QuorvanResult {
#define QUORVAN_RESULT(name, number, text) name = (number),
  QUORVAN_RESULTS(QUORVAN_RESULT)
#undef QUORVAN_RESULT
} QuorvanResult;

#ifdef __cplusplus
extern "C" {
#endif

/// The result of the last call on this thread that failed, QUORVAN_DONE before any has.
QUORVAN_API int quorvanLastError(void);

/// Its text in English, as UTF-8 and as wide text; empty before any call has failed. Belongs to the
/// library and is valid until the next failure on this thread.
QUORVAN_API const char* quorvanLastErrorText(void);
QUORVAN_API const wchar_t* quorvanLastErrorWideText(void);

/// Where in a file the last call on this thread that failed met the fault: line and column from 1,
/// in characters. 0 where it is no fault of a file, or the place is not known.
QUORVAN_API int quorvanLastErrorLine(void);
QUORVAN_API int quorvanLastErrorColumn(void);

#ifdef __cplusplus
}
#endif
