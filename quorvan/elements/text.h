// CKtZantoText: a single line of text.
#pragma once

#include <cstdint>
#include <utility>

#include <quorvan/api.h>
#include <quorvan/geometry/point.h>
#include <quorvan/text/cstring.h>

class CKtFiler;

/// A single line of text. A plain value: numbers are 0, flags false, texts and lists empty until
/// they are set.
class QUORVAN_API CKtZantoText {
 public:
  /// Justification as the producing program numbers it: filed and read back unchanged, whatever
  /// the value.
  enum eJustification : std::int32_t {};

  CKtZantoText() = default;
  CKtZantoText(const CKtZantoText& other) = default;
  CKtZantoText& operator=(const CKtZantoText& other) = default;
  virtual ~CKtZantoText();

  /// The insertion point.
  CKtPnt3D GetLocation() const { return m_location; }
  void SetLocation(CKtPnt3D location) { m_location = location; }

  /// The angle of the base line, in the unit of the producing program.
  double GetAngle() const { return m_angle; }
  void SetAngle(double angle) { m_angle = angle; }

  /// The height of the letters, in the drawing's length unit.
  double GetHeight() const { return m_height; }
  void SetHeight(double height) { m_height = height; }

  /// The horizontal justification about the insertion point.
  eJustification GetJustificationX() const { return m_justificationX; }
  void SetJustificationX(eJustification justification) { m_justificationX = justification; }

  /// The vertical justification about the insertion point.
  eJustification GetJustificationY() const { return m_justificationY; }
  void SetJustificationY(eJustification justification) { m_justificationY = justification; }

  /// The colour number of the producing program; 32 bits are filed.
  unsigned long GetColor() const { return m_color; }
  void SetColor(unsigned long color) { m_color = color; }

  /// The text itself.
  CString GetContents() const { return m_contents; }
  void SetContents(CString contents) { m_contents = std::move(contents); }

  /// Writes the element as one class element. Returns 1 when it was opened and every item was
  /// written, else 0; an item that fails does not stop the others. Raises _com_error where the
  /// filer does.
  int fileOut(CKtFiler* filer);

  /// Fills the element from the next class element of its name. Returns 1 when there was one and
  /// every required item was read, else 0. A field whose item is missing keeps its value, but the
  /// justifications and the colour, which take the number read before them (0 at first). Raises
  /// _com_error where the filer does.
  int fileIn(CKtFiler* filer);

 private:
  friend struct CKtZantoTextItems;

  CKtPnt3D m_location;
  double m_angle = 0.0;
  double m_height = 0.0;
  eJustification m_justificationX{};
  eJustification m_justificationY{};
  unsigned long m_color = 0;
  CString m_contents;
};
