/* The smallest host in plain C: linked with the library, it writes a lintel with its two bars and
 * its stirrups.
 *
 *   cc linked_host.c $(pkg-config --cflags --libs quorvan)
 *   ./a.out                writes lintel.xml into the current folder
 *
 * Lengths are in millimetres, angles in degrees. */

#include <quorvan/export/export.h>

int main(void) {
  /* Four sides of 1600 x 200, two points and one bulge for each side, straight. */
  const double xs[] = {0, 1600, 1600, 1600, 1600, 0, 0, 0};
  const double ys[] = {0, 0, 0, 200, 200, 200, 200, 0};
  const double zeros[] = {0, 0, 0, 0, 0, 0, 0, 0};
  int i;

  startFiling(L"lintel.xml");
  exportFormwork(8, xs, ys, zeros, zeros, zeros, zeros);
  exportText(L"Linteau L1 \u2013 15 \u00d7 20", 0, 260, 0, 0, 7, 0, 0, 50);

  /* The bottom bar with hooks at both ends, and the top bar. */
  exportBarStraight(30, 41, 0, 1570, 41, 0, 100, 100, true, true, 90, 90, L"B500B", L"Ha", 1, 10,
                    false);
  exportBarStraight(30, 159, 0, 1570, 159, 0, 0, 0, false, false, 0, 0, L"B500B", L"Ha", 2, 10,
                    false);

  /* The first stirrup as a bar, the whole series of nine as a repartition. */
  exportStirrup(80, 33, 0, 80, 167, 0, 70, 135, L"B500B", L"Ha", 3, 6, false);
  for (i = 0; i < 9; ++i) {
    const double x = 80 + 180 * i;
    pushRepartitionFrameRect(x, 33, 0, x, 167, 0, L"CKtZantoStirrup", 70, 135, L"B500B", L"Ha", 3,
                             6, false, /* series */ 1, /* view */ 2, 0);
  }
  endFiling(/* version */ L"1.0", /* service pack */ 0, /* drawing */ L"L1", /* check sum */ 0);
  return 0;
}
