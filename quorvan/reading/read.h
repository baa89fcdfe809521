/* Reading a drawing from any language: usable from plain C, exported with undecorated names, and
 * nothing is ever thrown or written back.
 *
 *   QuorvanFile* file = NULL;
 *   QuorvanElement* element = NULL;
 *   double diameter = 0;
 *   if (quorvanOpenFile(L"beam.xml", &file) != QUORVAN_DONE) {
 *     fprintf(stderr, "%s (line %d)\n", quorvanLastErrorText(), quorvanLastErrorLine());
 *   }
 *   while (quorvanNextElement(file, NULL, &element) == QUORVAN_DONE) {
 *     if (quorvanReadDouble(quorvanItem(element, "Diameter"), &diameter) == QUORVAN_DONE) { ... }
 *   }
 *   quorvanCloseFile(file);
 *
 * A function that gives an int gives QUORVAN_DONE or a reason, see <quorvan/errors/error.h>; a
 * value that could not be read is left alone. Names and texts are UTF-8 unless a function says
 * wide.
 *
 * Lifetimes: a file lives until it is closed, its elements until they are closed, move on, or the
 * file is closed; items, names and texts live as long as their element stays where it is. The bytes
 * given to quorvanOpenMemory are not needed afterwards.
 *
 * Threads: any number of files at a time. One file, with its elements and items, belongs to one
 * thread at a time; on Windows to the thread that opened it.
 */
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <quorvan/api.h>
#include <quorvan/errors/error.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct QuorvanFile QuorvanFile;
typedef struct QuorvanElement QuorvanElement;
typedef struct QuorvanItem QuorvanItem;

/// What an item holds, and by which function it is read.
typedef enum QuorvanKind {
  QUORVAN_KIND_NONE = 0,   /* nothing that could be read here; also of a null item */
  QUORVAN_KIND_LONG = 1,   /* quorvanReadLong */
  QUORVAN_KIND_COLOR = 2,  /* quorvanReadColor */
  QUORVAN_KIND_DOUBLE = 3, /* quorvanReadDouble */
  QUORVAN_KIND_TEXT = 4,   /* quorvanReadText */
  QUORVAN_KIND_FLAG = 5,   /* quorvanReadFlag */
  QUORVAN_KIND_POINT = 6,  /* quorvanReadPoint */
  QUORVAN_KIND_VECTOR = 7, /* quorvanReadPoint */
  QUORVAN_KIND_POINTS = 8, /* quorvanReadPoints */
  QUORVAN_KIND_SEGMENTS =
      9, /* quorvanReadPoints, two a segment; quorvanReadBulges, one a segment */
  QUORVAN_KIND_DOUBLES = 10, /* quorvanReadDoubles */
  QUORVAN_KIND_LIST = 11     /* a list of a class that is not known: either, as the entries are */
} QuorvanKind;

/* --- files ------------------------------------------------------------------------------------ */

/// Opens the file for reading alone; it is never written. On failure `*file` is null, and the last
/// error says why: QUORVAN_NO_FILE, QUORVAN_NOT_A_FILE, QUORVAN_NO_ACCESS, QUORVAN_NOT_WELL_FORMED
/// and QUORVAN_BAD_ENCODING (with line and column where they are known), QUORVAN_OVER_LIMIT,
/// QUORVAN_OUT_OF_MEMORY, QUORVAN_FAILED where reading failed half-way.
QUORVAN_API int quorvanOpenFile(const wchar_t* path, QuorvanFile** file);

/// The same with a path in UTF-8.
QUORVAN_API int quorvanOpenFileUtf8(const char* path, QuorvanFile** file);

/// The same with the bytes of a file.
QUORVAN_API int quorvanOpenMemory(const void* bytes, size_t size, QuorvanFile** file);

/// Closes the file and whatever was opened of it. Null is nothing to close.
QUORVAN_API void quorvanCloseFile(QuorvanFile* file);

/* --- elements --------------------------------------------------------------------------------- */

/// Goes to the next element in the order of the file: to the first where `*element` is null,
/// otherwise moves `*element` on. With a class name to the next of that class, without one (null)
/// to the next of any, also of classes that are not known. QUORVAN_NO_MORE behind the last;
/// `*element` is then closed and null. After any other failure it is where it was.
///
/// Several elements of a file may be open at a time, each on its own way.
QUORVAN_API int quorvanNextElement(QuorvanFile* file, const char* className,
                                   QuorvanElement** element);

/// Closes the element before the walk is over. Null is nothing to close.
QUORVAN_API void quorvanCloseElement(QuorvanElement* element);

/// The class name. Empty for null, and where memory has run out.
QUORVAN_API const char* quorvanElementClass(const QuorvanElement* element);

/// The number of the class among those that are known, see quorvanClassName; -1 for another class
/// and for null.
QUORVAN_API int quorvanElementClassNumber(const QuorvanElement* element);

/// The attributes "version" and "index"; 0 where they are missing or no number, and for null.
QUORVAN_API int32_t quorvanElementVersion(const QuorvanElement* element);
QUORVAN_API int32_t quorvanElementIndex(const QuorvanElement* element);

/// The place among all elements of the file, from 0.
QUORVAN_API size_t quorvanElementPlace(const QuorvanElement* element);

/* --- items ------------------------------------------------------------------------------------ */

/// How many items the element has. The points of a polygon bar count as one, that of their number,
/// as far as they stand in order behind it.
QUORVAN_API size_t quorvanItemCount(const QuorvanElement* element);

/// The item of that number, from 0 in the order of the file; null beyond the last.
QUORVAN_API const QuorvanItem* quorvanItemAt(const QuorvanElement* element, size_t number);

/// The first item of that name; null without one, which every function below takes and answers with
/// QUORVAN_NO_ITEM.
QUORVAN_API const QuorvanItem* quorvanItem(const QuorvanElement* element, const char* name);

/// The name. Empty for null, and where memory has run out.
QUORVAN_API const char* quorvanItemName(const QuorvanItem* item);

/// A QuorvanKind: what the class says of this item where the file holds it so, otherwise what
/// stands in the file.
QUORVAN_API int quorvanItemKind(const QuorvanItem* item);

/* --- values ----------------------------------------------------------------------------------- */

/* Each gives QUORVAN_NO_ITEM for a null item and QUORVAN_OTHER_KIND where the item holds something
 * else, and leaves the value alone then. Numbers: leading blanks, a sign, digits, a point, an
 * exponent; text that is no number reads as 0. */

/// A whole number; clamped to 32 bits.
QUORVAN_API int quorvanReadLong(const QuorvanItem* item, int32_t* value);

/// A colour: the same without sign.
QUORVAN_API int quorvanReadColor(const QuorvanItem* item, uint32_t* value);

QUORVAN_API int quorvanReadDouble(const QuorvanItem* item, double* value);

/// A flag, 1 or 0: the text "True" in any case is 1, any other 0; where the class files flags as
/// numbers, any but 0 is 1.
QUORVAN_API int quorvanReadFlag(const QuorvanItem* item, int* value);

/// A text, terminated, and its length in bytes, for which null may be given. A bond class that an
/// older file holds as a number is the text of that number: "Ha" for 0, "Dx" for 1, empty for
/// others.
QUORVAN_API int quorvanReadText(const QuorvanItem* item, const char** text, size_t* length);

/// The same as wide text, with its length in wide characters.
QUORVAN_API int quorvanReadWideText(const QuorvanItem* item, const wchar_t** text, size_t* length);

/// A point or vector: three doubles.
QUORVAN_API int quorvanReadPoint(const QuorvanItem* item, double* xyz);

/* Lists. The entries that are in the file, in the order of their numbers, go into the array as far
 * as it has room for; `count` becomes the number of all of them. With a null array they are counted
 * only. QUORVAN_NO_ROOM when there are more than have room; QUORVAN_INCOMPLETE when numbers are
 * missing, an entry is of another kind, or there are not as many as the file announces (a list of
 * more than 32,767 announces a number that wrapped, which does not count as missing). */

/// Points, three doubles each; `room` and `count` are in points.
QUORVAN_API int quorvanReadPoints(const QuorvanItem* item, double* xyz, size_t room, size_t* count);

/// The bulge vectors of segments, three doubles each, one a segment.
QUORVAN_API int quorvanReadBulges(const QuorvanItem* item, double* xyz, size_t room, size_t* count);

QUORVAN_API int quorvanReadDoubles(const QuorvanItem* item, double* values, size_t room,
                                   size_t* count);

/// How many entries the file announces, as it stands there.
QUORVAN_API int quorvanReadSize(const QuorvanItem* item, int32_t* announced);

/* --- the classes that are known --------------------------------------------------------------- */

/// How many classes are known.
QUORVAN_API int quorvanClassCount(void);

/// The class of that number, from 0, and its items in the order of writing; empty, 0 and
/// QUORVAN_KIND_NONE beyond the last. The numbers keep their meaning in later versions.
QUORVAN_API const char* quorvanClassName(int classNumber);
QUORVAN_API int quorvanClassItemCount(int classNumber);
QUORVAN_API const char* quorvanClassItemName(int classNumber, int item);
QUORVAN_API int quorvanClassItemKind(int classNumber, int item);

/// Whether the item may be missing: 1 or 0.
QUORVAN_API int quorvanClassItemIsOptional(int classNumber, int item);

#ifdef __cplusplus
}
#endif
