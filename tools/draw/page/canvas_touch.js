
// What lies at a place of a picture. A shape is touched where its ink is, or within the reach of it.
function canvasTouch(picture) {
  const step = picture.steps;
  const bodies = picture.bodies;

  function fromSegment(px, py, ax, ay, bx, by) {
    const wayX = bx - ax;
    const wayY = by - ay;
    const length = wayX * wayX + wayY * wayY;
    const share = length > 0 ? Math.max(0, Math.min(1, ((px - ax) * wayX + (py - ay) * wayY) / length)) : 0;
    return Math.hypot(px - ax - share * wayX, py - ay - share * wayY);
  }

  function fromArc(px, py, cx, cy, radius, begin, end, isLeft) {
    const turn = 2 * Math.PI;
    const angle = Math.atan2(py - cy, px - cx);
    const from = isLeft ? end : begin;
    const sweep = ((isLeft ? begin - end : end - begin) % turn + turn) % turn || turn;
    if (((angle - from) % turn + turn) % turn <= sweep) {
      return Math.abs(Math.hypot(px - cx, py - cy) - radius);
    }
    return Math.min(...[begin, end].map(function (one) {
      return Math.hypot(px - cx - radius * Math.cos(one), py - cy - radius * Math.sin(one));
    }));
  }

  // Calls for each piece of a path, in places of the sheet, until a call gives true.
  function eachPiece(i, line, arc) {
    const body = picture.of[i];
    const x = picture.x[i];
    const y = picture.y[i];
    const numbers = bodies.numbers;
    let at = bodies.firstNumber[body];
    let atX = x, atY = y, startX = x, startY = y;
    for (let s = bodies.firstStep[body]; s < bodies.firstStep[body + 1]; s += 1) {
      const kind = bodies.steps[s];
      if (kind === step.close) {
        line(atX, atY, startX, startY);
        continue;
      }
      const last = kind === step.line || kind === step.move ? at : at + 5;
      const toX = x + numbers[last];
      const toY = y + numbers[last + 1];
      if (kind === step.line) { line(atX, atY, toX, toY); }
      else if (kind === step.move) {
        startX = toX;
        startY = toY;
      } else {
        arc(x + numbers[at], y + numbers[at + 1], numbers[at + 2], numbers[at + 3], numbers[at + 4], kind === step.left);
      }
      atX = toX;
      atY = toY;
      at = last + 2;
    }
  }

  // A line of no length is a dot.
  function fromPath(i, px, py) {
    let least = Math.hypot(px - picture.x[i], py - picture.y[i]);
    eachPiece(i, function (ax, ay, bx, by) {
      least = Math.min(least, fromSegment(px, py, ax, ay, bx, by));
    }, function (cx, cy, radius, begin, end, isLeft) {
      least = Math.min(least, fromArc(px, py, cx, cy, radius, begin, end, isLeft));
    });
    return least;
  }

  function isInside(corners, px, py) {
    let inside = false;
    corners.forEach(function (a, k) {
      const b = corners[(k + 1) % corners.length];
      if ((a[1] > py) !== (b[1] > py) && px < a[0] + (b[0] - a[0]) * (py - a[1]) / (b[1] - a[1])) { inside = !inside; }
    });
    return inside;
  }

  function isWithinPath(i, px, py) {
    const corners = [[picture.x[i], picture.y[i]]];
    eachPiece(i, function (ax, ay, bx, by) { corners.push([bx, by]); }, function () {});
    return isInside(corners, px, py);
  }

  function touches(i, px, py, reach) {
    const style = picture.styles[picture.style[i]];
    const isArea = style.isFilled || style.isOnPaper;
    const near = reach + style.width / 2;
    if (picture.kinds[i] === 2) { return isInside(textCorners(picture, i, 0.55 * picture.size[i]), px, py); }
    if (picture.kinds[i] === 1) {
      const away = Math.hypot(px - picture.x[i], py - picture.y[i]) - picture.size[i];
      return isArea ? away <= near : Math.abs(away) <= near;
    }
    return fromPath(i, px, py) <= near || (isArea && isWithinPath(i, px, py));
  }

  function around(point, reach) { return [point.x - reach, point.y - reach, point.x + reach, point.y + reach]; }

  // The places of the elements there, the uppermost first, those right at the point before others.
  function elementsAt(point, reach, isShown) {
    const found = new Set();
    const shapes = shapesWithin(picture, around(point, reach)).reverse();
    [reach / 5, reach].forEach(function (near) {
      shapes.forEach(function (i) {
        if (picture.element[i] >= 0 && isShown(i) && touches(i, point.x, point.y, near)) {
          found.add(picture.element[i]);
        }
      });
    });
    return Array.from(found);
  }

  // The nearest end, corner or centre within reach; null without any.
  function nearestEnd(point, reach, isShown) {
    let best = null;
    let least = reach;
    function look(x, y) {
      const away = Math.hypot(x - point.x, y - point.y);
      if (away < least) {
        least = away;
        best = {x: x, y: y};
      }
    }
    shapesWithin(picture, around(point, reach)).forEach(function (i) {
      if (picture.element[i] < 0 || picture.kinds[i] === 2 || !isShown(i)) { return; }
      look(picture.x[i], picture.y[i]);
      if (picture.kinds[i] === 1) { return; }
      eachPiece(i, function (ax, ay, bx, by) { look(bx, by); }, function (cx, cy, radius, begin, end) {
        look(cx + radius * Math.cos(begin), cy + radius * Math.sin(begin));
        look(cx + radius * Math.cos(end), cy + radius * Math.sin(end));
      });
    });
    return best;
  }

  return {elementsAt: elementsAt, nearestEnd: nearestEnd};
}
