// CKtZantoPin: a pin: a straight tie with hooks.
#pragma once

#include <utility>

#include <quorvan/api.h>
#include <quorvan/elements/bar_attributes.h>
#include <quorvan/geometry/point.h>
#include <quorvan/text/cstring.h>

class CKtFiler;

/// A pin. A plain value: numbers are 0, flags false, texts and lists empty until they are set.
class QUORVAN_API CKtZantoPin {
 public:
  CKtZantoPin() = default;
  CKtZantoPin(const CKtZantoPin& other) = default;
  CKtZantoPin& operator=(const CKtZantoPin& other) = default;
  virtual ~CKtZantoPin();

  /// The first end point.
  CKtPnt3D getPoint1() const { return m_point1; }
  void setPoint1(CKtPnt3D point) { m_point1 = point; }

  /// The last end point.
  CKtPnt3D getPoint2() const { return m_point2; }
  void setPoint2(CKtPnt3D point) { m_point2 = point; }

  /// The length of the hook at the first end; 0 for none.
  double getHookLength1() const { return m_hookLength1; }
  void setHookLength1(double length) { m_hookLength1 = length; }

  /// The length of the hook at the last end; 0 for none.
  double getHookLength2() const { return m_hookLength2; }
  void setHookLength2(double length) { m_hookLength2 = length; }

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
  /// every required item was read, else 0; a field whose item is missing keeps its value. Raises
  /// _com_error where the filer does.
  int fileIn(CKtFiler* filer);

 private:
  friend struct CKtZantoPinItems;

  CKtPnt3D m_point1;
  CKtPnt3D m_point2;
  double m_hookLength1 = 0.0;
  double m_hookLength2 = 0.0;
  double m_hookAngle1 = 0.0;
  double m_hookAngle2 = 0.0;
  quorvan::BarAttributes m_attributes;
};
