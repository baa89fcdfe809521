// CKtZantoCircle: a circle of the drawing.
#pragma once

#include <quorvan/api.h>
#include <quorvan/geometry/point.h>

class CKtFiler;

/// A circle. A plain value: numbers are 0, flags false, texts and lists empty until they are set.
class QUORVAN_API CKtZantoCircle {
 public:
  CKtZantoCircle() = default;
  CKtZantoCircle(const CKtZantoCircle& other) = default;
  CKtZantoCircle& operator=(const CKtZantoCircle& other) = default;
  virtual ~CKtZantoCircle();

  /// The centre.
  CKtPnt3D GetCenter() const { return m_center; }
  void SetCenter(CKtPnt3D center) { m_center = center; }

  /// The radius, in the drawing's length unit.
  double GetRadius() const { return m_radius; }
  void SetRadius(double radius) { m_radius = radius; }

  /// The colour number of the producing program; 32 bits are filed.
  unsigned long GetColor() const { return m_color; }
  void SetColor(unsigned long color) { m_color = color; }

  /// Writes the element as one class element. Returns 1 when it was opened and every item was
  /// written, else 0; an item that fails does not stop the others. Raises _com_error where the
  /// filer does.
  int fileOut(CKtFiler* filer);

  /// Fills the element from the next class element of its name. Returns 1 when there was one and
  /// every required item was read, else 0. A field whose item is missing keeps its value, but a
  /// missing colour becomes 0. Raises _com_error where the filer does.
  int fileIn(CKtFiler* filer);

 private:
  friend struct CKtZantoCircleItems;

  CKtPnt3D m_center;
  double m_radius = 0.0;
  unsigned long m_color = 0;
};
