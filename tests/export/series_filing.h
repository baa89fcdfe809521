// Series of frames pushed by a host, and the repartitions that become of them.
#pragma once

#include <string>
#include <vector>

#include <tests/export/host_filing.h>
#include <quorvan/elements/repartition.h>

namespace quorvan::test {

/// What a frame is pushed with.
struct Frame {
  CKtPnt3D first;
  CKtPnt3D second;
  std::wstring className = L"CKtZantoStraightBar";
  double hookLength1 = 0;
  double hookAngle1 = 0;
  std::wstring steelGrade = L"S";
  std::wstring adherence = L"A";
  long reference = 1;
  double diameter = 8;
  bool hidden = false;
  long keyC = 0;
  int viewPoint = 1;
  int lastInt = 0;
};

void push(const Frame& frame);

/// A stirrup series' frame, or that of straight bars which are not seen in view 1.
Frame stirrupFrame(const CKtPnt3D& first, const CKtPnt3D& second);
Frame barFrame(const CKtPnt3D& first, const CKtPnt3D& second);

/// The repartitions of the drawing, in the order of the file.
std::vector<CKtZantoRepartition> savedRepartitions();

std::vector<double> topOf(const CKtZantoRepartition& repartition);
std::vector<double> bottomOf(const CKtZantoRepartition& repartition);
std::vector<double> positionsOf(const CKtZantoRepartition& repartition);

/// Compares coordinates to the last of seven decimals.
void expectPoint(const CKtPnt3D& point, const CKtPnt3D& expected);
void expectVector(const CKtVect3D& vector, const CKtVect3D& expected);

class SeriesFiling : public HostFiling {
 protected:
  SeriesFiling() { start(); }

  /// Ends the filing and gives its only repartition.
  static CKtZantoRepartition endWithOne();

  /// Ends the filing of these frames, pushed in this order.
  static CKtZantoRepartition repartitionOf(const std::vector<Frame>& frames);
};

}  // namespace quorvan::test
