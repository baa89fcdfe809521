// The graphic elements: each is written at once.
#include <algorithm>
#include <vector>

#include <quorvan/elements/circle.h>
#include <quorvan/elements/filled_polygon.h>
#include <quorvan/elements/formwork.h>
#include <quorvan/elements/line.h>
#include <quorvan/elements/mesh.h>
#include <quorvan/elements/text.h>
#include <quorvan/export/caller_arguments.h>
#include <quorvan/export/export.h>
#include <quorvan/export/filing/filing_state.h>

using quorvan::filingStopped;
using quorvan::theFiler;

void exportLine(double x1, double y1, double z1, double x2, double y2, double z2,
                unsigned long color) {
  if (filingStopped) {
    return;
  }
  CKtZantoLine line;
  line.SetStartPoint(CKtPnt3D(x1, y1, z1));
  line.SetEndPoint(CKtPnt3D(x2, y2, z2));
  line.SetColor(color);
  line.fileOut(&theFiler);
}

void exportCircle(double x, double y, double z, double radius, unsigned long color) {
  if (filingStopped) {
    return;
  }
  CKtZantoCircle circle;
  circle.SetCenter(CKtPnt3D(x, y, z));
  circle.SetRadius(radius);
  circle.SetColor(color);
  circle.fileOut(&theFiler);
}

void exportText(const wchar_t* contents, double x, double y, double z, double angle,
                unsigned long color, int justificationX, int justificationY, double height) {
  if (filingStopped) {
    return;
  }
  CKtZantoText text;
  text.SetContents(contents);
  text.SetLocation(CKtPnt3D(x, y, z));
  text.SetAngle(angle);
  text.SetColor(color);
  text.SetJustificationX(static_cast<CKtZantoText::eJustification>(justificationX));
  text.SetJustificationY(static_cast<CKtZantoText::eJustification>(justificationY));
  text.SetHeight(height);
  text.fileOut(&theFiler);
}

void exportMesh(const wchar_t* reference, const wchar_t* type, double extensionX, double extensionY,
                double angle, int count, const double* xs, const double* ys, const double* zs) {
  if (filingStopped || !quorvan::areThere(count, {xs, ys, zs})) {
    return;
  }
  CKtZantoMesh mesh;
  mesh.SetReference(reference);
  mesh.SetType(type);
  mesh.SetExtX(extensionX);
  mesh.SetExtY(extensionY);
  mesh.SetAngle(angle);
  std::vector<CKtPnt3D> points;
  points.reserve(static_cast<std::size_t>(std::max(count, 0)));
  for (int i = 0; i < count; ++i) {
    points.emplace_back(xs[i], ys[i], zs[i]);
  }
  mesh.SetPoints(std::move(points));
  mesh.fileOut(&theFiler);
}

void exportFilledPolygon(int count, const double* xs, const double* ys, const double* zs,
                         unsigned long color) {
  if (filingStopped || !quorvan::areThere(count, {xs, ys, zs})) {
    return;
  }
  CKtFilledPolygon polygon;
  polygon.SetColor(color);
  for (int i = 0; i < count; ++i) {
    polygon.addPoint(CKtPnt3D(xs[i], ys[i], zs[i]));
  }
  polygon.fileOut(&theFiler);
}

void exportFormwork(int count, const double* xs, const double* ys, const double* zs,
                    const double* bxs, const double* bys, const double* bzs) {
  if (filingStopped || !quorvan::areThere(count / 2, {xs, ys, zs, bxs, bys, bzs})) {
    return;
  }
  CKtZantoFormwork formwork;
  for (int k = 0; k < count / 2; ++k) {
    const int start = 2 * k;
    const int end = start + 1;
    formwork.addElement(CKtPnt3D(xs[start], ys[start], zs[start]),
                        CKtPnt3D(xs[end], ys[end], zs[end]), CKtVect3D(bxs[k], bys[k], bzs[k]));
  }
  formwork.fileOut(&theFiler);
}
