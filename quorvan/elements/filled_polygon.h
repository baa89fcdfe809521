// CKtFilledPolygon: a filled polygon of the drawing.
#pragma once

#include <vector>

#include <quorvan/api.h>
#include <quorvan/geometry/point.h>

class CKtFiler;

/// A filled polygon. The operations that change the points keep the point count equal to the number
/// of points; after reading an element with missing points the count is the one that the file
/// announced, and may exceed it. A plain value: numbers are 0, flags false, texts and lists empty
/// until they are set.
class QUORVAN_API CKtFilledPolygon {
 public:
  CKtFilledPolygon() = default;
  CKtFilledPolygon(const CKtFilledPolygon& other) = default;
  CKtFilledPolygon& operator=(const CKtFilledPolygon& other) = default;
  virtual ~CKtFilledPolygon();

  /// Appends a point.
  void addPoint(CKtPnt3D point);

  /// Point `i`, from 0; `i` must be below the number of points held.
  CKtPnt3D getPointAt(unsigned int i) const { return m_points[i]; }

  /// Replaces point `i`. False, changing nothing, when `i` is not below the point count (or, after
  /// reading an incomplete element, not below the number of points held).
  bool setPointAt(unsigned int i, const CKtPnt3D& point);

  /// Copies the points into `points`.
  void getPoints(std::vector<CKtPnt3D>& points) const { points = m_points; }

  /// Replaces all points.
  void setPoints(const std::vector<CKtPnt3D>& points);

  /// The point count.
  unsigned int getNbPoints() const { return m_count; }

  /// The colour number of the producing program; 32 bits are filed.
  unsigned long GetColor() const { return m_color; }
  void SetColor(unsigned long color) { m_color = color; }

  /// Writes the element as one class element. Returns 1 when it was opened and every item was
  /// written, else 0; an item that fails does not stop the others. Raises _com_error where the
  /// filer does.
  int fileOut(CKtFiler* filer);

  /// Fills the element from the next class element of its name. Returns 1 when there was one and
  /// every required item was read, else 0. The points held before are gone in any case; a point
  /// that is missing is left out, a missing colour becomes 0. Without its list the element keeps
  /// its point count, and the result is not lowered. Raises _com_error where the filer does.
  int fileIn(CKtFiler* filer);

 private:
  friend struct CKtFilledPolygonItems;

  unsigned int m_count = 0;
  std::vector<CKtPnt3D> m_points;
  unsigned long m_color = 0;
};
