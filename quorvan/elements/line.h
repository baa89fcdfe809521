// CKtZantoLine: a line segment of the drawing.
#pragma once

#include <quorvan/api.h>
#include <quorvan/geometry/point.h>

class CKtFiler;

/// A line segment. A plain value: numbers are 0, flags false, texts and lists empty until they are
/// set.
class QUORVAN_API CKtZantoLine {
 public:
  CKtZantoLine() = default;
  CKtZantoLine(const CKtZantoLine& other) = default;
  CKtZantoLine& operator=(const CKtZantoLine& other) = default;
  virtual ~CKtZantoLine();

  /// The start point.
  CKtPnt3D GetStartPoint() const { return m_startPoint; }
  void SetStartPoint(CKtPnt3D startPoint) { m_startPoint = startPoint; }

  /// The end point.
  CKtPnt3D GetEndPoint() const { return m_endPoint; }
  void SetEndPoint(CKtPnt3D endPoint) { m_endPoint = endPoint; }

  /// The colour number of the producing program; 32 bits are filed.
  unsigned long GetColor() const { return m_color; }
  void SetColor(unsigned long color) { m_color = color; }

  /// Writes the element as one class element. Returns 1 when it was opened and every item was
  /// written, else 0; an item that fails does not stop the others. Raises _com_error where the
  /// filer does.
  int fileOut(CKtFiler* filer);

  /// Fills the element from the next class element of its name. Returns 1 when there was one and
  /// every required item was read, else 0. A point whose item is missing keeps its value, a missing
  /// colour becomes 0. Raises _com_error where the filer does.
  int fileIn(CKtFiler* filer);

 private:
  friend struct CKtZantoLineItems;

  CKtPnt3D m_startPoint;
  CKtPnt3D m_endPoint;
  unsigned long m_color = 0;
};
