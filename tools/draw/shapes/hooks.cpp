#include <tools/draw/shapes/hooks.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quorvan::tool {

namespace {

constexpr double kNoAngle = 1e-6;

// The bend and the tip of a hook.
struct Course {
  bool isBent = false;
  PlanePoint begin;
  PlanePoint center;
  double sweep = 0.0;
  PlanePoint bendEnd;
  PlanePoint tip;
};

Course courseOf(const HookShape& hook) {
  Course course;
  course.begin = course.bendEnd = course.tip = hook.end;
  if (!(hook.length > 0.0)) {
    return course;
  }
  const double angle = std::abs(hook.angle);
  const double side = hook.angle < 0.0 ? -hook.side : hook.side;
  course.isBent = angle > kNoAngle;
  if (!course.isBent) {
    course.tip = hook.end + hook.direction * hook.length;
    return course;
  }
  // Beyond a right angle the bend goes on where it touches the end of the bar. A hook shorter than
  // its bend is bent closer.
  const double reach = std::tan(std::min(angle, std::numbers::pi / 2.0) / 2.0);
  const double radius = std::min(hook.radius, std::min(hook.length, hook.room) / reach);
  course.begin = hook.end - hook.direction * (radius * reach);
  course.sweep = side * angle;
  course.center = course.begin + leftOf(hook.direction) * (side * radius);
  course.bendEnd = course.center + turned(course.begin - course.center, course.sweep);
  course.tip =
      course.bendEnd + turned(hook.direction, course.sweep) * (hook.length - radius * reach);
  return course;
}

}  // namespace

PlanePoint hookBegin(const HookShape& hook) {
  return courseOf(hook).begin;
}

void beginWithHook(Path& path, const HookShape& hook) {
  if (!(hook.length > 0.0)) {
    return path.moveTo(hook.end);
  }
  const Course course = courseOf(hook);
  path.moveTo(course.tip);
  if (!course.isBent) {
    return path.lineTo(hook.end);
  }
  path.lineTo(course.bendEnd);
  path.arcTo(course.center, -course.sweep);
}

void endWithHook(Path& path, const HookShape& hook) {
  if (!(hook.length > 0.0)) {
    return;
  }
  const Course course = courseOf(hook);
  if (course.isBent) {
    path.arcTo(course.center, course.sweep);
  }
  path.lineTo(course.tip);
}

}  // namespace quorvan::tool
