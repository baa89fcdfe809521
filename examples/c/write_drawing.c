/* A host in plain C that loads the library at run time and writes a small drawing: the elevation
 * of a beam with its bottom bar and its links.
 *
 *   write_drawing LIBRARY FILE
 *
 * On Windows LIBRARY is quorvan.dll, elsewhere libquorvan.so. Lengths are in millimetres. */

#include <locale.h>
#include <stdbool.h>
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

/* The flat functions that this host uses, as <quorvan/export/export.h> declares them. */
struct Quorvan {
  void (*startFiling)(const wchar_t* path);
  void (*endFiling)(const wchar_t* version, long servicePack, const wchar_t* drawing, int checkSum);
  void (*exportFormwork)(int count, const double* xs, const double* ys, const double* zs,
                         const double* bulgeXs, const double* bulgeYs, const double* bulgeZs);
  void (*exportText)(const wchar_t* contents, double x, double y, double z, double angle,
                     unsigned long color, int justificationX, int justificationY, double height);
  void (*exportBarStraight)(double x1, double y1, double z1, double x2, double y2, double z2,
                            double hookLength1, double hookLength2, bool hook1Up, bool hook2Up,
                            double hookAngle1, double hookAngle2, const wchar_t* steelGrade,
                            const wchar_t* adherence, long reference, double diameter, bool hidden);
  void (*exportFrameRect)(double x1, double y1, double z1, double x2, double y2, double z2,
                          double x3, double y3, double z3, double hookLength, double hookAngle,
                          const wchar_t* steelGrade, const wchar_t* adherence, long reference,
                          double diameter, bool hidden);
  void (*pushRepartitionFrameRect)(double x1, double y1, double z1, double x2, double y2, double z2,
                                   const wchar_t* className, double hookLength, double hookAngle,
                                   const wchar_t* steelGrade, const wchar_t* adherence,
                                   long reference, double diameter, bool hidden, long key,
                                   int viewPoint, int last);
};

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
  find(library, "startFiling", &q.startFiling);
  find(library, "endFiling", &q.endFiling);
  find(library, "exportFormwork", &q.exportFormwork);
  find(library, "exportText", &q.exportText);
  find(library, "exportBarStraight", &q.exportBarStraight);
  find(library, "exportFrameRect", &q.exportFrameRect);
  find(library, "pushRepartitionFrameRect", &q.pushRepartitionFrameRect);
  return q;
}

static void writeDrawing(const struct Quorvan* q, const wchar_t* path) {
  /* Four sides of 5000 x 500, two points and one bulge for each side, straight. */
  const double xs[] = {0, 5000, 5000, 5000, 5000, 0, 0, 0};
  const double ys[] = {0, 0, 0, 500, 500, 500, 500, 0};
  const double zs[] = {0, 0, 0, 0, 0, 0, 0, 0};
  const double straight[] = {0, 0, 0, 0};
  int link;

  q->startFiling(path);
  q->exportFormwork(8, xs, ys, zs, straight, straight, straight);
  q->exportText(L"Poutre B12 \u2013 1 \u00f8 20", 0, 600, 0, 0, 7, 0, 0, 100);
  q->exportBarStraight(30, 40, 0, 4970, 40, 0, 150, 150, true, true, 90, 90, L"B500B", L"HA", 1, 20,
                       false);
  q->exportFrameRect(200, 30, 0, 200, 470, 0, 200, 470, 240, 80, 135, L"B500B", L"HA", 2, 8, false);
  for (link = 0; link < 24; ++link) {
    const double x = 200 + 200 * link;
    q->pushRepartitionFrameRect(x, 30, 0, x, 470, 0, L"CKtZantoFrameRect", 80, 135, L"B500B", L"HA",
                                2, 8, false, 1, 1, 0);
  }
  q->endFiling(L"2025", 1, L"B12", 42);
}

int main(int argc, char** argv) {
  Library library;
  struct Quorvan quorvan;
  wchar_t path[1024];
  if (argc != 3) {
    fprintf(stderr, "usage: write_drawing LIBRARY FILE\n");
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
  writeDrawing(&quorvan, path);
  closeLibrary(library);
  return 0;
}
