// CKtMat and CKtMat3D: the transform interface that the geometry types share with their users.
#pragma once

#include <quorvan/api.h>
#include <quorvan/geometry/point.h>
#include <quorvan/geometry/vector.h>
#include <quorvan/platform/log_font.h>

/// Base of the transforms; holds no data.
class QUORVAN_API CKtMat {
 public:
  CKtMat() noexcept;
  /// There is nothing to copy.
  CKtMat(const CKtMat& other) noexcept;
  CKtMat& operator=(const CKtMat& other) noexcept;
  virtual ~CKtMat();
};

/// A transform of fonts, points, vectors and lengths. Every member is the identity here: the forms
/// with one argument change nothing, the Get... forms return a copy of their argument, and the
/// forms with two arguments leave `out` as it is instead of copying `in` into it; a caller that
/// needs a result uses the Get... forms.
class QUORVAN_API CKtMat3D : public CKtMat {
 public:
  /// Fonts, forwards.
  virtual void Transform(LOGFONTW& font) const;
  virtual void Transform(const LOGFONTW& in, LOGFONTW& out) const;
  [[nodiscard]] virtual LOGFONTW GetTransform(const LOGFONTW& font) const;

  /// Points, backwards.
  virtual void UnTransform(CKtPnt3D& point) const;
  virtual void UnTransform(const CKtPnt3D& in, CKtPnt3D& out) const;
  [[nodiscard]] virtual CKtPnt3D GetUnTransform(const CKtPnt3D& point) const;

  /// Vectors, backwards.
  virtual void UnTransform(CKtVect3D& vector) const;
  virtual void UnTransform(const CKtVect3D& in, CKtVect3D& out) const;
  [[nodiscard]] virtual CKtVect3D GetUnTransform(const CKtVect3D& vector) const;

  /// Lengths, backwards.
  virtual void UnTransform(double& length) const;
  [[nodiscard]] virtual double GetUnTransform(double length) const;

  /// Fonts, backwards.
  virtual void UnTransform(LOGFONTW& font) const;
  virtual void UnTransform(const LOGFONTW& in, LOGFONTW& out) const;
  [[nodiscard]] virtual LOGFONTW GetUnTransform(const LOGFONTW& font) const;
};
