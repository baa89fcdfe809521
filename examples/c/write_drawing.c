/* A host in plain C that loads the library at run time and writes a small drawing: the elevation
 * of a beam with its bottom bar and its links.
 *
 *   write_drawing LIBRARY FILE [LINKS]
 *
 * On Windows LIBRARY is quorvan.dll, elsewhere libquorvan.so. Lengths are in millimetres. Whatever
 * goes wrong is told, and what can be saved is saved. */

#include <locale.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <wchar.h>

#ifdef _WIN32
#include <windows.h>
typedef HMODULE Library;
typedef FARPROC Symbol;
#else
#include <dlfcn.h>
typedef void* Library;
typedef void* Symbol;
#endif

/* The flat functions that this host uses, as <quorvan/export/checked.h> declares them. */
struct Quorvan {
  int (*startFiling)(const wchar_t* path);
  int (*stopFiling)(void);
  int (*endFiling)(const wchar_t* version, long servicePack, const wchar_t* drawing, int checkSum);
  int (*exportFormwork)(int count, const double* xs, const double* ys, const double* zs,
                        const double* bulgeXs, const double* bulgeYs, const double* bulgeZs);
  int (*exportText)(const wchar_t* contents, double x, double y, double z, double angle,
                    unsigned long color, int justificationX, int justificationY, double height);
  int (*exportBarStraight)(double x1, double y1, double z1, double x2, double y2, double z2,
                           double hookLength1, double hookLength2, unsigned char hook1Up,
                           unsigned char hook2Up, double hookAngle1, double hookAngle2,
                           const wchar_t* steelGrade, const wchar_t* adherence, long reference,
                           double diameter, unsigned char hidden);
  int (*exportFrameRect)(double x1, double y1, double z1, double x2, double y2, double z2,
                         double x3, double y3, double z3, double hookLength, double hookAngle,
                         const wchar_t* steelGrade, const wchar_t* adherence, long reference,
                         double diameter, unsigned char hidden);
  int (*pushRepartitionFrameRect)(double x1, double y1, double z1, double x2, double y2, double z2,
                                  const wchar_t* className, double hookLength, double hookAngle,
                                  const wchar_t* steelGrade, const wchar_t* adherence,
                                  long reference, double diameter, unsigned char hidden, long key,
                                  int viewPoint, int last);
  const char* (*lastErrorText)(void);
};

/* Results, see <quorvan/errors/error.h>. */
enum { kDone = 0, kBadSeries = 16 };

static Library openLibrary(const char* path) {
#ifdef _WIN32
  return LoadLibraryA(path);
#else
  return dlopen(path, RTLD_NOW);
#endif
}

static void closeLibrary(Library library) {
#ifdef _WIN32
  FreeLibrary(library);
#else
  dlclose(library);
#endif
}

/* Stores the address of the function in the pointer; C has no cast for it. */
static void find(Library library, const char* name, void* function) {
#ifdef _WIN32
  Symbol symbol = GetProcAddress(library, name);
#else
  Symbol symbol = dlsym(library, name);
#endif
  if (symbol == NULL) {
    fprintf(stderr, "the library has no function %s\n", name);
    exit(1);
  }
  memcpy(function, &symbol, sizeof symbol);
}

static struct Quorvan findFunctions(Library library) {
  struct Quorvan q;
  find(library, "startFilingChecked", &q.startFiling);
  find(library, "stopFilingChecked", &q.stopFiling);
  find(library, "endFilingChecked", &q.endFiling);
  find(library, "exportFormworkChecked", &q.exportFormwork);
  find(library, "exportTextChecked", &q.exportText);
  find(library, "exportBarStraightChecked", &q.exportBarStraight);
  find(library, "exportFrameRectChecked", &q.exportFrameRect);
  find(library, "pushRepartitionFrameRectChecked", &q.pushRepartitionFrameRect);
  find(library, "quorvanLastErrorText", &q.lastErrorText);
  return q;
}

/* Files the elements; the result of the first that could not be filed. */
static int fileElements(const struct Quorvan* q, int links) {
  /* Four sides of 5000 x 500, two points a side, one bulge a side: straight. */
  const double xs[] = {0, 5000, 5000, 5000, 5000, 0, 0, 0};
  const double ys[] = {0, 0, 0, 500, 500, 500, 500, 0};
  const double zs[] = {0, 0, 0, 0, 0, 0, 0, 0};
  const double straight[] = {0, 0, 0, 0};
  int result = q->exportFormwork(8, xs, ys, zs, straight, straight, straight);
  int link;
  if (result == kDone) {
    result = q->exportText(L"Poutre B12 \u2013 1 \u00f8 20", 0, 600, 0, 0, 7, 0, 0, 100);
  }
  if (result == kDone) {
    result = q->exportBarStraight(30, 40, 0, 4970, 40, 0, 150, 150, 1, 1, 90, 90, L"B500B", L"HA",
                                  1, 20, 0);
  }
  if (result == kDone) {
    result = q->exportFrameRect(200, 30, 0, 200, 470, 0, 200, 470, 240, 80, 135, L"B500B", L"HA", 2,
                                8, 0);
  }
  for (link = 0; link < links && result == kDone; ++link) {
    const double x = 200 + 200 * link;
    result = q->pushRepartitionFrameRect(x, 30, 0, x, 470, 0, L"CKtZantoFrameRect", 80, 135,
                                         L"B500B", L"HA", 2, 8, 0, 1, 1, 0);
  }
  return result;
}

/* Writes the drawing; the result of what could not be done. */
static int writeDrawing(const struct Quorvan* q, const wchar_t* path, int links) {
  int result = q->startFiling(path);
  if (result != kDone) {
    return result;
  }
  result = fileElements(q, links);
  if (result != kDone) {
    return result;
  }
  result = q->endFiling(L"2025", 1, L"B12", 42);
  if (result == kBadSeries && q->stopFiling() == kDone) {
    /* Saves the drawing without the series. */
    q->endFiling(L"2025", 1, L"B12", 42);
  }
  return result;
}

int main(int argc, char** argv) {
  Library library;
  struct Quorvan quorvan;
  wchar_t path[1024];
  int result;
  if (argc != 3 && argc != 4) {
    fprintf(stderr, "usage: write_drawing LIBRARY FILE [LINKS]\n");
    return 2;
  }
  setlocale(LC_ALL, ""); /* as a CAD program does; the file has decimal points all the same */
  if (mbstowcs(path, argv[2], sizeof path / sizeof *path) >= sizeof path / sizeof *path) {
    fprintf(stderr, "the file's name cannot be used\n");
    return 2;
  }
  library = openLibrary(argv[1]);
  if (library == NULL) {
    fprintf(stderr, "%s cannot be loaded\n", argv[1]);
    return 1;
  }
  quorvan = findFunctions(library);
  result = writeDrawing(&quorvan, path, argc == 4 ? atoi(argv[3]) : 24);
  if (result != kDone) {
    fprintf(stderr, "%s: error %d: %s\n", argv[2], result, quorvan.lastErrorText());
  }
  closeLibrary(library);
  return result == kDone ? 0 : 1;
}
