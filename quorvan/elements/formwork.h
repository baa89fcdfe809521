// CKtZantoFormwork: an outline of the concrete.
#pragma once

#include <vector>

#include <quorvan/api.h>
#include <quorvan/geometry/point.h>
#include <quorvan/geometry/vector.h>

class CKtFiler;

/// An outline of the concrete made of segments. Segment k, from 0, goes from point 2k to point 2k +
/// 1; bulge k bends it into an arc. The point count is meant to be twice the number of segments;
/// with an odd count the last point is neither filed nor read. A plain value: numbers are 0, flags
/// false, texts and lists empty until they are set.
class QUORVAN_API CKtZantoFormwork {
 public:
  CKtZantoFormwork() = default;
  CKtZantoFormwork(const CKtZantoFormwork& other) = default;
  CKtZantoFormwork& operator=(const CKtZantoFormwork& other) = default;
  virtual ~CKtZantoFormwork();

  /// The point count; setting it does not touch the points.
  unsigned int getNbPoints() const { return m_count; }
  void setNbPoints(unsigned int count) { m_count = count; }

  /// Appends a segment.
  void addElement(CKtPnt3D start, CKtPnt3D end, CKtVect3D bulge);

  /// Point `i`, from 0; `i` must be below the number of points held.
  CKtPnt3D getPointAt(unsigned int i) const { return m_points[i]; }

  /// Replaces point `i`. False, changing nothing, when `i` is not below the point count or not
  /// below the number of points held.
  bool setPointAt(unsigned int i, const CKtPnt3D& point);

  /// Bulge `i`, from 0; `i` must be below the number of bulges held.
  CKtVect3D getBulgeAt(unsigned int i) const { return m_bulges[i]; }

  /// Replaces bulge `i`. False, changing nothing, when `i` is not below half the point count or
  /// not below the number of bulges held.
  bool setBulgeAt(unsigned int i, const CKtVect3D& bulge);

  /// Copies the points into `points`.
  void getPoints(std::vector<CKtPnt3D>& points) const { points = m_points; }

  /// Replaces all points and sets the point count to their number.
  void setPoints(const std::vector<CKtPnt3D>& points);

  /// Copies the bulges into `bulges`.
  void getBulges(std::vector<CKtVect3D>& bulges) const { bulges = m_bulges; }

  /// Replaces all bulges; the point count stays as it is.
  void setBulges(const std::vector<CKtVect3D>& bulges) { m_bulges = bulges; }

  /// Writes the element as one class element. Returns 1 when it was opened and every item was
  /// written, else 0; an item that fails does not stop the others. Raises _com_error where the
  /// filer does.
  int fileOut(CKtFiler* filer);

  /// Fills the element from the next class element of its name. Returns 1 when there was one and
  /// every required item was read, else 0. The points and bulges held before are gone in any case;
  /// one that is missing is left out. Without its list the element keeps its point count, and the
  /// result is 1. Raises _com_error where the filer does.
  int fileIn(CKtFiler* filer);

 private:
  friend struct CKtZantoFormworkItems;

  unsigned int m_count = 0;
  std::vector<CKtPnt3D> m_points;
  std::vector<CKtVect3D> m_bulges;
};
