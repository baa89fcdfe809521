#include <tools/draw/shapes/hooks.h>

namespace quorvan::tool {

namespace {

// The bend and the tip of a hook.
struct HookCourse {
  PlanePoint center;
  double sweep;
  PlanePoint bendEnd;
  PlanePoint tip;
};

HookCourse courseOf(const HookShape& hook) {
  HookCourse course{};
  const PlanePoint begin = hookBegin(hook);
  course.sweep = hook.side * hook.bend.angle;
  course.center = begin + leftOf(hook.direction) * (hook.side * hook.bend.radius);
  course.bendEnd = course.center + turned(begin - course.center, course.sweep);
  course.tip = course.bendEnd + turned(hook.direction, course.sweep) * hook.straight;
  return course;
}

}  // namespace

PlanePoint hookBegin(const HookShape& hook) {
  return hook.end - hook.direction * hook.bend.reach();
}

void beginWithHook(Path& path, const HookShape& hook) {
  const HookCourse course = courseOf(hook);
  path.moveTo(course.tip);
  if (course.sweep != 0.0) {
    path.lineTo(course.bendEnd);
    path.arcTo(course.center, -course.sweep);
  } else {
    path.lineTo(hookBegin(hook));
  }
}

void endWithHook(Path& path, const HookShape& hook) {
  const HookCourse course = courseOf(hook);
  if (course.sweep != 0.0) {
    path.arcTo(course.center, course.sweep);
  }
  path.lineTo(course.tip);
}

}  // namespace quorvan::tool
