// CKtDrawingControl: the record that names the drawing and closes every transfer.
#pragma once

#include <utility>

#include <quorvan/api.h>
#include <quorvan/text/cstring.h>

class CKtFiler;

/// The drawing control record. It computes nothing: the values are those of the producing program.
/// A plain value: numbers are 0, flags false, texts and lists empty until they are set.
class QUORVAN_API CKtDrawingControl {
 public:
  CKtDrawingControl() = default;
  CKtDrawingControl(const CKtDrawingControl& other) = default;
  CKtDrawingControl& operator=(const CKtDrawingControl& other) = default;
  virtual ~CKtDrawingControl();

  /// The check sum that the producing program supplied; filed with its low 32 bits.
  long GetCheckSum() const { return m_checkSum; }
  void SetCheckSum(long checkSum) { m_checkSum = checkSum; }

  /// The drawing's name.
  CString GetDrawingName() const { return m_drawingName; }
  void SetDrawingName(CString drawingName) { m_drawingName = std::move(drawingName); }

  /// The version of the producing program.
  CString GetZantoVersion() const { return m_zantoVersion; }
  void SetZantoVersion(CString zantoVersion) { m_zantoVersion = std::move(zantoVersion); }

  /// The service pack of the producing program; filed with its low 32 bits.
  long GetServicePack() const { return m_servicePack; }
  void SetServicePack(long servicePack) { m_servicePack = servicePack; }

  /// Writes the element as one class element. Returns 1 when it was opened and every item was
  /// written, else 0; an item that fails does not stop the others. Raises _com_error where the
  /// filer does.
  int fileOut(CKtFiler* filer);

  /// Fills the element from the next class element of its name. Returns 1 when there was one and
  /// every required item was read, else 0; a field whose item is missing keeps its value. Raises
  /// _com_error where the filer does.
  int fileIn(CKtFiler* filer);

 private:
  friend struct CKtDrawingControlItems;

  long m_checkSum = 0;
  CString m_drawingName;
  CString m_zantoVersion;
  long m_servicePack = 0;
};
