// CKtZantoMesh: a sheet of welded mesh.
#pragma once

#include <utility>
#include <vector>

#include <quorvan/api.h>
#include <quorvan/geometry/point.h>
#include <quorvan/text/cstring.h>

class CKtFiler;

/// A sheet of welded mesh: its type, its laying angle and extensions, and its outline. A plain
/// value: numbers are 0, flags false, texts and lists empty until they are set.
class QUORVAN_API CKtZantoMesh {
 public:
  CKtZantoMesh() = default;
  CKtZantoMesh(const CKtZantoMesh& other) = default;
  CKtZantoMesh& operator=(const CKtZantoMesh& other) = default;
  virtual ~CKtZantoMesh();

  /// The reference; a text, unlike that of the bars.
  CString GetReference() const { return m_reference; }
  void SetReference(CString reference) { m_reference = std::move(reference); }

  /// The mesh type, as the producing program names it.
  CString GetType() const { return m_type; }
  void SetType(CString type) { m_type = std::move(type); }

  /// The laying angle, in the unit of the producing program.
  double GetAngle() const { return m_angle; }
  void SetAngle(double angle) { m_angle = angle; }

  /// The extension along the laying direction, in the drawing's length unit.
  double GetExtX() const { return m_extensionX; }
  void SetExtX(double extension) { m_extensionX = extension; }

  /// The extension across it, in the drawing's length unit.
  double GetExtY() const { return m_extensionY; }
  void SetExtY(double extension) { m_extensionY = extension; }

  /// The outline.
  std::vector<CKtPnt3D> GetPoints() const { return m_points; }
  void SetPoints(std::vector<CKtPnt3D> points) { m_points = std::move(points); }

  /// Point `i` of the outline, from 0. Out of range: the marker point (666, 0, 0).
  CKtPnt3D GetPointAt(int i) const;

  /// Replaces point `i`; does nothing when it is out of range.
  void SetPointAt(int i, CKtPnt3D point);

  /// The number of points held.
  int GetNbPoints() const { return static_cast<int>(m_points.size()); }

  /// Writes the element as one class element. Returns 1 when it was opened and every item was
  /// written, else 0; an item that fails does not stop the others. Raises _com_error where the
  /// filer does.
  int fileOut(CKtFiler* filer);

  /// Fills the element from the next class element of its name. Returns 1 when there was one and
  /// every required item was read, else 0. A field whose item is missing keeps its value. The
  /// points held before are gone in any case; one that is missing is left out, and a missing list
  /// does not lower the result. Raises _com_error where the filer does.
  int fileIn(CKtFiler* filer);

 private:
  friend struct CKtZantoMeshItems;

  CString m_reference;
  CString m_type;
  double m_angle = 0.0;
  double m_extensionX = 0.0;
  double m_extensionY = 0.0;
  std::vector<CKtPnt3D> m_points;
};
