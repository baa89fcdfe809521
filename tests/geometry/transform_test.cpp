#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <type_traits>

#include <quorvan/geometry/transform.h>

namespace {

static_assert(std::has_virtual_destructor_v<CKtMat>);
static_assert(sizeof(CKtMat) == sizeof(void*));  // no data
static_assert(std::is_base_of_v<CKtMat, CKtMat3D>);

LOGFONTW font(int height, const wchar_t* face) {
  LOGFONTW result{};
  result.lfHeight = height;
  std::char_traits<wchar_t>::copy(result.lfFaceName, face, std::char_traits<wchar_t>::length(face));
  return result;
}

bool same(const LOGFONTW& a, const LOGFONTW& b) {
  return a.lfHeight == b.lfHeight &&
         std::wstring_view(a.lfFaceName) == std::wstring_view(b.lfFaceName);
}

template <class Value>
void expectCoordinates(const Value& value, double x, double y, double z) {
  EXPECT_EQ(value.X(), x);
  EXPECT_EQ(value.Y(), y);
  EXPECT_EQ(value.Z(), z);
}

TEST(Transform, AssignmentReturnsItsLeftSide) {
  CKtMat left;
  const CKtMat right;
  const CKtMat copy(right);
  EXPECT_EQ(&(left = copy), &left);
}

TEST(Transform, LeavesFonts) {
  const CKtMat3D transform;
  const LOGFONTW in = font(12, L"Isocpeur");
  const LOGFONTW before = font(7, L"Romans");
  LOGFONTW changed = in;
  transform.Transform(changed);
  transform.UnTransform(changed);
  EXPECT_TRUE(same(changed, in));
  LOGFONTW out = before;
  transform.Transform(in, out);
  transform.UnTransform(in, out);
  EXPECT_TRUE(same(out, before));
  EXPECT_TRUE(same(transform.GetTransform(in), in));
  EXPECT_TRUE(same(transform.GetUnTransform(in), in));
}

TEST(Transform, LeavesPoints) {
  const CKtMat3D transform;
  const CKtPnt3D in(1, 2, 3);
  CKtPnt3D changed = in;
  transform.UnTransform(changed);
  expectCoordinates(changed, 1, 2, 3);
  CKtPnt3D out(7, 8, 9);
  transform.UnTransform(in, out);
  expectCoordinates(out, 7, 8, 9);
  expectCoordinates(transform.GetUnTransform(in), 1, 2, 3);
}

TEST(Transform, LeavesVectors) {
  const CKtMat3D transform;
  const CKtVect3D in(1, 2, 3);
  CKtVect3D changed = in;
  transform.UnTransform(changed);
  expectCoordinates(changed, 1, 2, 3);
  CKtVect3D out(7, 8, 9);
  transform.UnTransform(in, out);
  expectCoordinates(out, 7, 8, 9);
  expectCoordinates(transform.GetUnTransform(in), 1, 2, 3);
}

TEST(Transform, LeavesLengths) {
  const CKtMat3D transform;
  double length = 2.5;
  transform.UnTransform(length);
  EXPECT_EQ(length, 2.5);
  EXPECT_EQ(transform.GetUnTransform(-1.25), -1.25);
}

// Every member is a virtual one of a constant transform: `override` says so to the compiler.
class Other : public CKtMat3D {
 public:
  void Transform(LOGFONTW& font) const override { font.lfHeight = 1; }
  void Transform(const LOGFONTW& /*in*/, LOGFONTW& out) const override { out.lfHeight = 2; }
  [[nodiscard]] LOGFONTW GetTransform(const LOGFONTW& /*in*/) const override {
    return font(3, L"");
  }
  void UnTransform(CKtPnt3D& point) const override { point.X(4); }
  void UnTransform(const CKtPnt3D& /*in*/, CKtPnt3D& out) const override { out.X(5); }
  [[nodiscard]] CKtPnt3D GetUnTransform(const CKtPnt3D& /*in*/) const override { return {6, 0, 0}; }
  void UnTransform(CKtVect3D& vector) const override { vector.X(7); }
  void UnTransform(const CKtVect3D& /*in*/, CKtVect3D& out) const override { out.X(8); }
  [[nodiscard]] CKtVect3D GetUnTransform(const CKtVect3D& /*in*/) const override {
    return {9, 0, 0};
  }
  void UnTransform(double& length) const override { length = 10; }
  [[nodiscard]] double GetUnTransform(double /*in*/) const override { return 11; }
  void UnTransform(LOGFONTW& font) const override { font.lfHeight = 12; }
  void UnTransform(const LOGFONTW& /*in*/, LOGFONTW& out) const override { out.lfHeight = 13; }
  [[nodiscard]] LOGFONTW GetUnTransform(const LOGFONTW& /*in*/) const override {
    return font(14, L"");
  }
};

TEST(Transform, OfFontsCanBeReplacedByADerivedOne) {
  const Other other;
  const CKtMat3D& transform = other;
  LOGFONTW changed = font(0, L"");
  transform.Transform(changed);
  EXPECT_EQ(changed.lfHeight, 1);
  transform.Transform(font(0, L""), changed);
  EXPECT_EQ(changed.lfHeight, 2);
  EXPECT_EQ(transform.GetTransform(changed).lfHeight, 3);
  transform.UnTransform(changed);
  EXPECT_EQ(changed.lfHeight, 12);
  transform.UnTransform(font(0, L""), changed);
  EXPECT_EQ(changed.lfHeight, 13);
  EXPECT_EQ(transform.GetUnTransform(changed).lfHeight, 14);
}

TEST(Transform, OfCoordinatesAndLengthsCanBeReplacedByADerivedOne) {
  const Other other;
  const CKtMat3D& transform = other;
  CKtPnt3D point;
  transform.UnTransform(point);
  EXPECT_EQ(point.X(), 4);
  transform.UnTransform(CKtPnt3D(), point);
  EXPECT_EQ(point.X(), 5);
  EXPECT_EQ(transform.GetUnTransform(point).X(), 6);
  CKtVect3D vector;
  transform.UnTransform(vector);
  EXPECT_EQ(vector.X(), 7);
  transform.UnTransform(CKtVect3D(), vector);
  EXPECT_EQ(vector.X(), 8);
  EXPECT_EQ(transform.GetUnTransform(vector).X(), 9);
  double length = 0;
  transform.UnTransform(length);
  EXPECT_EQ(length, 10);
  EXPECT_EQ(transform.GetUnTransform(0.0), 11);
}

}  // namespace
