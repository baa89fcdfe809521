// CKtZantoPolygonBar: a bent bar given by its polyline.
#pragma once

#include <utility>
#include <vector>

#include <quorvan/api.h>
#include <quorvan/elements/bar_attributes.h>
#include <quorvan/geometry/point.h>
#include <quorvan/text/cstring.h>

class CKtFiler;

/// A bent bar given by its polyline. A plain value: numbers are 0, flags false, texts and lists
/// empty until they are set.
class QUORVAN_API CKtZantoPolygonBar {
 public:
  CKtZantoPolygonBar() = default;
  CKtZantoPolygonBar(const CKtZantoPolygonBar& other) = default;
  CKtZantoPolygonBar& operator=(const CKtZantoPolygonBar& other) = default;
  virtual ~CKtZantoPolygonBar();

  /// The number of points held.
  long getNoPoints() const { return static_cast<long>(m_points.size()); }

  /// Point `i`, from 0; (0, 0, 0) when out of range.
  CKtPnt3D getPoint(int i) const;

  /// Replaces point `i`; does nothing when it is out of range.
  void setPoint(int i, CKtPnt3D point);

  /// Appends a point.
  void addPoint(CKtPnt3D point) { m_points.push_back(point); }

  /// Removes all points.
  void deletePoints() { m_points.clear(); }

  /// The length of the hook at the first end; 0 for none.
  double getHookLength1() const { return m_hookLength1; }
  void setHookLength1(double length) { m_hookLength1 = length; }

  /// The length of the hook at the last end; 0 for none.
  double getHookLength2() const { return m_hookLength2; }
  void setHookLength2(double length) { m_hookLength2 = length; }

  /// On which side of the polyline the bar lies. The getter gives 1.0 or 0.0: callers of this
  /// interface expect a double.
  double getSide() const { return m_side ? 1.0 : 0.0; }
  void setSide(bool side) { m_side = side; }

  /// The angle of the hook at the first end, in the unit of the producing program.
  double getHookAngle1() const { return m_hookAngle1; }
  void setHookAngle1(double angle) { m_hookAngle1 = angle; }

  /// The angle of the hook at the last end, in the unit of the producing program.
  double getHookAngle2() const { return m_hookAngle2; }
  void setHookAngle2(double angle) { m_hookAngle2 = angle; }

  /// The steel grade, as the producing program names it.
  CString getSteelGrade() const { return m_attributes.steelGrade; }
  void setSteelGrade(CString steelGrade) { m_attributes.steelGrade = std::move(steelGrade); }

  /// The bond class of the steel ("Ha" for ribbed bars, "Dx" for smooth ones in older files).
  CString getAdherence() const { return m_attributes.adherence; }
  void setAdherence(CString adherence) { m_attributes.adherence = std::move(adherence); }

  /// The bar diameter, in the drawing's length unit.
  double getDiameter() const { return m_attributes.diameter; }
  void setDiameter(double diameter) { m_attributes.diameter = diameter; }

  /// The reference number (bar mark); filed with its low 32 bits.
  long getReference() const { return m_attributes.reference; }
  void setReference(long reference) { m_attributes.reference = reference; }

  /// Whether the bar is hidden: known to the drawing but not shown.
  bool getHidden() const { return m_attributes.hidden; }
  void setHidden(bool hidden) { m_attributes.hidden = hidden; }

  /// Writes the element as one class element. Returns 1 when it was opened and every item was
  /// written, else 0; an item that fails does not stop the others. Raises _com_error where the
  /// filer does.
  int fileOut(CKtFiler* filer);

  /// Fills the element from the next class element of its name. Returns 1 when there was one and
  /// every required item was read, else 0. A field whose item is missing keeps its value; a point
  /// that is missing is held as (0, 0, 0). Raises _com_error where the filer does.
  int fileIn(CKtFiler* filer);

 private:
  friend struct CKtZantoPolygonBarItems;

  std::vector<CKtPnt3D> m_points;
  double m_hookLength1 = 0.0;
  double m_hookLength2 = 0.0;
  bool m_side = false;
  double m_hookAngle1 = 0.0;
  double m_hookAngle2 = 0.0;
  quorvan::BarAttributes m_attributes;
};
