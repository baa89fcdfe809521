// CKtZantoRepartition: a distribution of identical bars along a line.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include <quorvan/api.h>
#include <quorvan/geometry/point.h>
#include <quorvan/geometry/vector.h>
#include <quorvan/text/cstring.h>

class CKtFiler;

/// A distribution of identical bars: the base segment, the axis along which the bars are spread,
/// their positions and axis distances, and the element that is repeated. A plain value: numbers are
/// 0, flags false, texts and lists empty until they are set.
class QUORVAN_API CKtZantoRepartition {
 public:
  /// The view that the distribution is seen in, as the producing program numbers it.
  enum eViewPoint : std::int32_t {};

  CKtZantoRepartition() = default;
  CKtZantoRepartition(const CKtZantoRepartition& other) = default;
  CKtZantoRepartition& operator=(const CKtZantoRepartition& other) = default;
  virtual ~CKtZantoRepartition();

  /// The beginning of the base segment.
  CKtPnt3D getPoint1() const { return m_point1; }
  void setPoint1(CKtPnt3D point) { m_point1 = point; }

  /// The end of the base segment.
  CKtPnt3D getPoint2() const { return m_point2; }
  void setPoint2(CKtPnt3D point) { m_point2 = point; }

  /// The bulge of the base segment.
  CKtVect3D getBulge() const { return m_bulge; }
  void setBulge(CKtVect3D bulge) { m_bulge = bulge; }

  /// The direction in which the bars are spread.
  CKtVect3D getAxis() const { return m_axis; }
  void setAxis(CKtVect3D axis) { m_axis = axis; }

  /// The distances of the bars' upper ends from the axis, in the drawing's length unit. The getter
  /// copies them into `distances`, the setter replaces them all, inserting appends one.
  void getAxisDistancesTop(std::vector<double>& distances) const { distances = m_distancesTop; }
  void setAxisDistancesTop(std::vector<double> distances) { m_distancesTop = std::move(distances); }
  void insertDistanceTop(double distance) { m_distancesTop.push_back(distance); }

  /// The distances of the bars' lower ends from the axis, handled in the same way.
  void getAxisDistancesBottom(std::vector<double>& distances) const {
    distances = m_distancesBottom;
  }
  void setAxisDistancesBottom(std::vector<double> distances) {
    m_distancesBottom = std::move(distances);
  }
  void insertDistanceBottom(double distance) { m_distancesBottom.push_back(distance); }

  /// The positions of the bars along the axis, handled in the same way.
  void getPositions(std::vector<double>& positions) const { positions = m_positions; }
  void setPositions(std::vector<double> positions) { m_positions = std::move(positions); }
  void insertPosition(double position) { m_positions.push_back(position); }

  /// The class name of the repeated element, "CKtZantoFrameRect" for instance.
  CString getDefClassName() const { return m_defClassName; }
  void setDefClassName(CString className) { m_defClassName = std::move(className); }

  /// The index of the repeated element among those of its class name; -1 for none.
  int getIndex() const { return m_index; }
  void setIndex(int index) { m_index = index; }

  /// The view; filed unchanged.
  eViewPoint getViewPoint() const { return m_viewPoint; }
  void setViewPoint(eViewPoint viewPoint) { m_viewPoint = viewPoint; }

  /// Whether the distribution is hidden.
  bool getHidden() const { return m_hidden; }
  void setHidden(bool hidden) { m_hidden = hidden; }

  /// Writes the element as one class element. Returns 1 when it was opened and every item was
  /// written, else 0; an item that fails does not stop the others. Raises _com_error where the
  /// filer does.
  int fileOut(CKtFiler* filer);

  /// Fills the element from the next class element of its name. Returns 1 when there was one and
  /// every required item was read, else 0. A field whose item is missing keeps its value; axis,
  /// view and hidden flag may be missing. The lists held before are gone in any case: a missing
  /// list stays empty and does not lower the result, a missing entry repeats the value read before
  /// it (0 at first). Raises _com_error where the filer does.
  int fileIn(CKtFiler* filer);

 private:
  friend struct CKtZantoRepartitionItems;

  CKtPnt3D m_point1;
  CKtPnt3D m_point2;
  CKtVect3D m_bulge;
  CKtVect3D m_axis;
  std::vector<double> m_distancesTop;
  std::vector<double> m_distancesBottom;
  std::vector<double> m_positions;
  CString m_defClassName;
  int m_index = 0;
  eViewPoint m_viewPoint{};
  bool m_hidden = false;
};
