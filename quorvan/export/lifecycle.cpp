// Starting, suspending and ending a filing.
#include <quorvan/elements/drawing_control.h>
#include <quorvan/export/export.h>
#include <quorvan/export/filing/filing_state.h>
#include <quorvan/export/filing/scratch_search.h>
#include <quorvan/export/series/repartition_writer.h>

using quorvan::filingOpen;
using quorvan::filingStopped;
using quorvan::theFiler;

void startFiling(const wchar_t* path) {
  filingOpen = theFiler.newFiler(path) != 0;
  filingStopped = false;
}

void stopFiling() {
  filingStopped = true;
}

void restartFiling() {
  filingStopped = false;
}

void exportDrawingControl(const wchar_t* zantoVersion, long servicePack, long checkSum,
                          const wchar_t* drawingName) {
  if (filingStopped) {
    return;
  }
  CKtDrawingControl record;
  record.SetZantoVersion(zantoVersion);
  record.SetServicePack(servicePack);
  record.SetCheckSum(checkSum);
  record.SetDrawingName(drawingName);
  record.fileOut(&theFiler);
}

// Runs whether or not filing is stopped: what is written below looks at the flag itself, so a
// stopped filing is closed without repartitions and header record, and its frames are freed. An
// error in a group leaves that group, the later ones and the open file for the next call.
void endFiling(const wchar_t* zantoVersion, long servicePack, const wchar_t* drawingName,
               int checkSum) {
  quorvan::writeHeldSeries();
  exportDrawingControl(zantoVersion, servicePack, checkSum, drawingName);
  quorvan::clearLeftOverSearch();
  theFiler.closeFiler();
  filingOpen = false;
}
