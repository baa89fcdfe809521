'use strict';

// Moves about in the drawing of the view by wheel, pointers, keys and the button for the whole sheet.
// Gives what else needs it: to show shapes, and whether the last press moved the drawing.
function movingAbout(view, svg) {
  const whole = svg.viewBox.baseVal;
  const sheet = {x: whole.x, y: whole.y, width: whole.width, height: whole.height};
  let box = Object.assign({}, sheet);

  function show(next) {
    box = next;
    svg.setAttribute('viewBox', [box.x, box.y, box.width, box.height].join(' '));
  }

  // Millimetres of the sheet for one pixel.
  function grain() {
    return Math.max(box.width / view.clientWidth, box.height / view.clientHeight);
  }

  function toSheet(event) {
    const matrix = svg.getScreenCTM().inverse();
    return {x: event.clientX * matrix.a + matrix.e, y: event.clientY * matrix.d + matrix.f};
  }

  function zoom(point, factor) {
    const width = box.width * factor;
    if (width > sheet.width * 4 || width < sheet.width / 5000) { return; }
    show({
      x: point.x - (point.x - box.x) * factor,
      y: point.y - (point.y - box.y) * factor,
      width: width,
      height: box.height * factor
    });
  }

  function middle() {
    return {x: box.x + box.width / 2, y: box.y + box.height / 2};
  }

  view.addEventListener('wheel', function (event) {
    event.preventDefault();
    zoom(toSheet(event), Math.exp(event.deltaY * (event.deltaMode === 1 ? 0.05 : 0.0015)));
  }, {passive: false});

  const pointers = new Map();
  let hasMoved = false;

  view.addEventListener('pointerdown', function (event) {
    pointers.set(event.pointerId, event);
    hasMoved = false;
  });
  view.addEventListener('pointermove', function (event) {
    const before = pointers.get(event.pointerId);
    if (!before) { return; }
    const dx = event.clientX - before.clientX;
    const dy = event.clientY - before.clientY;
    if (!hasMoved && Math.hypot(dx, dy) < 3) { return; }
    hasMoved = true;
    view.setPointerCapture(event.pointerId);
    view.classList.add('dragging');
    if (pointers.size === 2) {
      const other = Array.from(pointers.values()).find(function (one) {
        return one.pointerId !== event.pointerId;
      });
      const old = Math.hypot(before.clientX - other.clientX, before.clientY - other.clientY);
      const now = Math.hypot(event.clientX - other.clientX, event.clientY - other.clientY);
      if (old > 0 && now > 0) { zoom(toSheet(other), old / now); }
    } else {
      show(Object.assign({}, box, {x: box.x - dx * grain(), y: box.y - dy * grain()}));
    }
    pointers.set(event.pointerId, event);
  });
  function release(event) {
    pointers.delete(event.pointerId);
    view.classList.remove('dragging');
  }
  view.addEventListener('pointerup', release);
  view.addEventListener('pointercancel', release);

  view.addEventListener('keydown', function (event) {
    const step = 0.1;
    const moves = {ArrowLeft: [-step, 0], ArrowRight: [step, 0], ArrowUp: [0, -step], ArrowDown: [0, step]};
    if (event.key === '+') { zoom(middle(), 0.8); }
    else if (event.key === '-') { zoom(middle(), 1.25); }
    else if (event.key === '0') { show(Object.assign({}, sheet)); }
    else if (moves[event.key]) {
      show(Object.assign({}, box, {
        x: box.x + box.width * moves[event.key][0],
        y: box.y + box.height * moves[event.key][1]
      }));
    } else { return; }
    event.preventDefault();
  });
  document.getElementById('whole').addEventListener('click', function () {
    show(Object.assign({}, sheet));
  });

  // Shows the shapes with some room around them.
  function showShapes(shapes) {
    let around = null;
    shapes.forEach(function (shape) {
      const one = shape.getBBox();
      const edges = [one.x, one.y, one.x + one.width, one.y + one.height];
      around = around ? [Math.min(around[0], edges[0]), Math.min(around[1], edges[1]),
                         Math.max(around[2], edges[2]), Math.max(around[3], edges[3])] : edges;
    });
    if (!around) { return; }
    const width = Math.max(around[2] - around[0], sheet.width / 20) * 1.4;
    const height = Math.max(around[3] - around[1], sheet.height / 20) * 1.4;
    show({x: (around[0] + around[2] - width) / 2, y: (around[1] + around[3] - height) / 2,
          width: width, height: height});
  }

  return {showShapes: showShapes, hasMoved: function () { return hasMoved; }};
}
