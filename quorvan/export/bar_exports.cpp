// Bars and links: each is written at once; a hidden one only if the file holds no equal element.
#include <quorvan/elements/frame_circ.h>
#include <quorvan/elements/frame_rect.h>
#include <quorvan/elements/l_bar.h>
#include <quorvan/elements/pin.h>
#include <quorvan/elements/point_bar.h>
#include <quorvan/elements/polygon_bar.h>
#include <quorvan/elements/stirrup.h>
#include <quorvan/elements/straight_bar.h>
#include <quorvan/elements/u_bar.h>
#include <quorvan/export/caller_arguments.h>
#include <quorvan/export/export.h>
#include <quorvan/export/filing/filing_state.h>
#include <quorvan/export/filing/scratch_search.h>

using quorvan::filingStopped;
using quorvan::theFiler;

namespace {

template <class Bar>
void setAttributes(Bar& bar, const wchar_t* steelGrade, const wchar_t* adherence, long reference,
                   double diameter, const bool& hidden) {
  bar.setSteelGrade(steelGrade);
  bar.setAdherence(adherence);
  bar.setReference(reference);
  bar.setDiameter(diameter);
  bar.setHidden(quorvan::flagOf(hidden));
}

template <class Bar>
void writeUnlessHiddenTwice(Bar& bar) {
  const auto isInFile = [&bar] {
    return quorvan::indexInFile([&bar](CKtPatternFiler& pattern) { bar.fileOut(&pattern); }) != -1;
  };
  if (bar.getHidden() && isInFile()) {
    return;
  }
  bar.fileOut(&theFiler);
}

// The bars with two legs and with three take the same arguments.
template <class Bar>
void exportLegs(const CKtPnt3D& point1, const CKtPnt3D& point2, const CKtPnt3D& point3,
                double hookLength1, double hookAngle1, double hookLength2, double hookAngle2,
                const wchar_t* steelGrade, const wchar_t* adherence, long reference,
                double diameter, const bool& hidden) {
  Bar bar;
  bar.setPoint1(point1);
  bar.setPoint2(point2);
  bar.setPoint3(point3);
  bar.setHookLength1(hookLength1);
  bar.setHookAngle1(hookAngle1);
  bar.setHookLength2(hookLength2);
  bar.setHookAngle2(hookAngle2);
  setAttributes(bar, steelGrade, adherence, reference, diameter, hidden);
  writeUnlessHiddenTwice(bar);
}

}  // namespace

void exportBarStraight(double x1, double y1, double z1, double x2, double y2, double z2,
                       double hookLength1, double hookLength2, bool hook1Up, bool hook2Up,
                       double hookAngle1, double hookAngle2, const wchar_t* steelGrade,
                       const wchar_t* adherence, long reference, double diameter, bool hidden) {
  if (filingStopped) {
    return;
  }
  CKtZantoStraightBar bar;
  bar.setPoint1(CKtPnt3D(x1, y1, z1));
  bar.setPoint2(CKtPnt3D(x2, y2, z2));
  bar.setHookLength1(hookLength1);
  bar.setHookLength2(hookLength2);
  bar.setHook1Up(quorvan::flagOf(hook1Up));
  bar.setHook2Up(quorvan::flagOf(hook2Up));
  bar.setHookAngle1(hookAngle1);
  bar.setHookAngle2(hookAngle2);
  setAttributes(bar, steelGrade, adherence, reference, diameter, hidden);
  writeUnlessHiddenTwice(bar);
}

void exportBarPolygon(int count, double* xs, double* ys, double* zs, double hookLength1,
                      double hookLength2, bool side, double hookAngle1, double hookAngle2,
                      const wchar_t* steelGrade, const wchar_t* adherence, long reference,
                      double diameter, bool hidden) {
  if (filingStopped || !quorvan::areThere(count, {xs, ys, zs})) {
    return;
  }
  CKtZantoPolygonBar bar;
  for (int i = 0; i < count; ++i) {
    bar.addPoint(CKtPnt3D(xs[i], ys[i], zs[i]));
  }
  bar.setHookLength1(hookLength1);
  bar.setHookLength2(hookLength2);
  bar.setSide(quorvan::flagOf(side));
  bar.setHookAngle1(hookAngle1);
  bar.setHookAngle2(hookAngle2);
  setAttributes(bar, steelGrade, adherence, reference, diameter, hidden);
  writeUnlessHiddenTwice(bar);
}

void exportLBar(double x1, double y1, double z1, double x2, double y2, double z2, double x3,
                double y3, double z3, double hookLength1, double hookAngle1, double hookLength2,
                double hookAngle2, const wchar_t* steelGrade, const wchar_t* adherence,
                long reference, double diameter, bool hidden) {
  if (filingStopped) {
    return;
  }
  exportLegs<CKtZantoLBar>({x1, y1, z1}, {x2, y2, z2}, {x3, y3, z3}, hookLength1, hookAngle1,
                           hookLength2, hookAngle2, steelGrade, adherence, reference, diameter,
                           hidden);
}

void exportUBar(double x1, double y1, double z1, double x2, double y2, double z2, double x3,
                double y3, double z3, double hookLength1, double hookAngle1, double hookLength2,
                double hookAngle2, const wchar_t* steelGrade, const wchar_t* adherence,
                long reference, double diameter, bool hidden) {
  if (filingStopped) {
    return;
  }
  exportLegs<CKtZantoUBar>({x1, y1, z1}, {x2, y2, z2}, {x3, y3, z3}, hookLength1, hookAngle1,
                           hookLength2, hookAngle2, steelGrade, adherence, reference, diameter,
                           hidden);
}

void exportPin(double x1, double y1, double z1, double x2, double y2, double z2, double hookLength1,
               double hookLength2, double hookAngle1, double hookAngle2, const wchar_t* steelGrade,
               const wchar_t* adherence, long reference, double diameter, bool hidden) {
  if (filingStopped) {
    return;
  }
  CKtZantoPin pin;
  pin.setPoint1(CKtPnt3D(x1, y1, z1));
  pin.setPoint2(CKtPnt3D(x2, y2, z2));
  pin.setHookLength1(hookLength1);
  pin.setHookLength2(hookLength2);
  pin.setHookAngle1(hookAngle1);
  pin.setHookAngle2(hookAngle2);
  setAttributes(pin, steelGrade, adherence, reference, diameter, hidden);
  writeUnlessHiddenTwice(pin);
}

// Written each time, hidden or not: bars seen end-on may lie on top of each other.
void exportPointBar(double x, double y, double z, const wchar_t* steelGrade,
                    const wchar_t* adherence, long reference, double diameter, bool hidden) {
  if (filingStopped) {
    return;
  }
  CKtZantoPointBar bar;
  bar.setPoint1(CKtPnt3D(x, y, z));
  setAttributes(bar, steelGrade, adherence, reference, diameter, hidden);
  bar.fileOut(&theFiler);
}

void exportStirrup(double x1, double y1, double z1, double x2, double y2, double z2,
                   double hookLength1, double hookAngle1, const wchar_t* steelGrade,
                   const wchar_t* adherence, long reference, double diameter, bool hidden) {
  if (filingStopped) {
    return;
  }
  CKtZantoStirrup stirrup;
  stirrup.setPoint1(CKtPnt3D(x1, y1, z1));
  stirrup.setPoint2(CKtPnt3D(x2, y2, z2));
  stirrup.setHookLength1(hookLength1);
  stirrup.setHookAngle1(hookAngle1);
  setAttributes(stirrup, steelGrade, adherence, reference, diameter, hidden);
  writeUnlessHiddenTwice(stirrup);
}

void exportFrameRect(double x1, double y1, double z1, double x2, double y2, double z2, double x3,
                     double y3, double z3, double hookLength1, double hookAngle1,
                     const wchar_t* steelGrade, const wchar_t* adherence, long reference,
                     double diameter, bool hidden) {
  if (filingStopped) {
    return;
  }
  CKtZantoFrameRect frame;
  frame.setPoint1(CKtPnt3D(x1, y1, z1));
  frame.setPoint2(CKtPnt3D(x2, y2, z2));
  frame.setPoint3(CKtPnt3D(x3, y3, z3));
  frame.setHookLength1(hookLength1);
  frame.setHookAngle1(hookAngle1);
  setAttributes(frame, steelGrade, adherence, reference, diameter, hidden);
  writeUnlessHiddenTwice(frame);
}

void exportFrameCirc(double centerX, double centerY, double centerZ, double startX, double startY,
                     double startZ, double frameRadius, double recoverLength, double hookLength1,
                     double hookAngle1, const wchar_t* steelGrade, const wchar_t* adherence,
                     long reference, double diameter, bool hidden) {
  if (filingStopped) {
    return;
  }
  CKtZantoFrameCirc frame;
  frame.setCenter(CKtPnt3D(centerX, centerY, centerZ));
  frame.setStartPoint(CKtPnt3D(startX, startY, startZ));
  frame.setFrameRadius(frameRadius);
  frame.setRecoverLength(recoverLength);
  frame.setHookLength1(hookLength1);
  frame.setHookAngle1(hookAngle1);
  setAttributes(frame, steelGrade, adherence, reference, diameter, hidden);
  writeUnlessHiddenTwice(frame);
}
