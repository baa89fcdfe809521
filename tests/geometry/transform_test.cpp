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

TEST(Transform, CanBeReplacedByADerivedOne) {
  class Doubling : public CKtMat3D {
   public:
    using CKtMat3D::GetUnTransform;
    [[nodiscard]] double GetUnTransform(double length) const override { return 2 * length; }
  };
  const Doubling doubling;
  const CKtMat3D& transform = doubling;
  EXPECT_EQ(transform.GetUnTransform(3.0), 6.0);
}

}  // namespace
