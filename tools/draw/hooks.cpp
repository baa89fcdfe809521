#include <tools/draw/hooks.h>

#include <algorithm>
#include <cmath>

namespace quorvan::tool {

namespace {

constexpr double kNoAngle = 1e-6;

// The bend and the tip of a hook.
struct Course {
  bool isBent = false;
  PlanePoint center;
  double sweep = 0.0;
  PlanePoint bendEnd;
  PlanePoint tip;
};

Course courseOf(const HookShape& hook) {
  Course course;
  const double angle = std::abs(hook.angle);
  const double side = hook.angle < 0.0 ? -hook.side : hook.side;
  course.isBent = angle > kNoAngle;
  if (!course.isBent) {
    course.bendEnd = hook.end;
    course.tip = hook.end + hook.direction * hook.length;
    return course;
  }
  // A hook shorter than its bend is all bend.
  const double radius = std::min(hook.radius, hook.length / angle);
  course.sweep = side * angle;
  course.center = hook.end + leftOf(hook.direction) * (side * radius);
  course.bendEnd = course.center + turned(hook.end - course.center, course.sweep);
  course.tip =
      course.bendEnd + turned(hook.direction, course.sweep) * (hook.length - radius * angle);
  return course;
}

}  // namespace

void beginWithHook(Path& path, const HookShape& hook) {
  if (!(hook.length > 0.0))
    return path.moveTo(hook.end);
  const Course course = courseOf(hook);
  path.moveTo(course.tip);
  if (!course.isBent)
    return path.lineTo(hook.end);
  path.lineTo(course.bendEnd);
  path.arcTo(course.center, -course.sweep);
}

void endWithHook(Path& path, const HookShape& hook) {
  if (!(hook.length > 0.0))
    return;
  const Course course = courseOf(hook);
  if (course.isBent)
    path.arcTo(course.center, course.sweep);
  path.lineTo(course.tip);
}

}  // namespace quorvan::tool
