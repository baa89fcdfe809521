/* A host in plain C: writes a drawing through the flat functions and looks into the file. */

#include <stdio.h>
#include <string.h>
#include <quorvan/export/export.h>

static const char kFile[] = "host.xml";
static const wchar_t kPath[] = L"host.xml";

static int fileHolds(const char* text) {
  char content[4096];
  size_t size;
  FILE* file = fopen(kFile, "rb");
  if (file == NULL) {
    return 0;
  }
  size = fread(content, 1, sizeof content - 1, file);
  fclose(file);
  content[size] = '\0';
  return strstr(content, text) != NULL;
}

int main(void) {
  remove(kFile);
  startFiling(kPath);
  exportLine(0.0, 0.0, 0.0, 5000.0, 0.0, 0.0, 7UL);
  exportText(L"Poutre", 0.0, 100.0, 0.0, 0.0, 7UL, 0, 0, 2.5);
  endFiling(L"2025", 1, L"B12", 42);

  if (!fileHolds("<CKtZantoLine") || !fileHolds("Poutre") || !fileHolds("<CKtDrawingControl")) {
    fputs("the transfer file does not hold the drawing\n", stderr);
    return 1;
  }
  remove(kFile);
  return 0;
}
