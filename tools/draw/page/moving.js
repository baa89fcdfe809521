'use strict';

// The least x and y and the most of what the SVG shapes cover; null without any.
function boundsOf(shapes) {
  return shapes.reduce(function (around, shape) {
    const one = shape.getBBox();
    const edges = [one.x, one.y, one.x + one.width, one.y + one.height];
    return around ? [Math.min(around[0], edges[0]), Math.min(around[1], edges[1]),
                     Math.max(around[2], edges[2]), Math.max(around[3], edges[3])] : edges;
  }, null);
}

// Moves about in the drawing of the view by wheel, pointers, keys and the button for the whole sheet:
// what is shown is the SVG's viewBox. Calls the listeners that "onShow" is given when it changes.
function movingAbout(view, svg) {
  const whole = svg.viewBox.baseVal;
  const sheet = {x: whole.x, y: whole.y, width: whole.width, height: whole.height};
  const listeners = [];
  let box = Object.assign({}, sheet);

  function show(next) {
    box = next;
    svg.setAttribute('viewBox', [box.x, box.y, box.width, box.height].join(' '));
    listeners.forEach(function (listener) { listener(); });
  }

  function showWhole() { show(Object.assign({}, sheet)); }

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
    if (event.ctrlKey || event.altKey || event.metaKey) { return; }
    const step = event.shiftKey ? 0.01 : 0.1;
    const moves = {ArrowLeft: [-step, 0], ArrowRight: [step, 0], ArrowUp: [0, -step], ArrowDown: [0, step]};
    if (event.key === '+') { zoom(middle(), 0.8); }
    else if (event.key === '-') { zoom(middle(), 1.25); }
    else if (event.key === '0') { showWhole(); }
    else if (moves[event.key]) {
      show(Object.assign({}, box, {
        x: box.x + box.width * moves[event.key][0],
        y: box.y + box.height * moves[event.key][1]
      }));
    } else { return; }
    event.preventDefault();
  });
  document.getElementById('whole').addEventListener('click', showWhole);

  // Shows what lies within the bounds, with some room around it.
  function showBounds(around) {
    if (!around) { return; }
    const width = Math.max(around[2] - around[0], sheet.width / 20) * 1.4;
    const height = Math.max(around[3] - around[1], sheet.height / 20) * 1.4;
    show({x: (around[0] + around[2] - width) / 2, y: (around[1] + around[3] - height) / 2,
          width: width, height: height});
  }

  return {
    sheet: sheet,
    box: function () { return box; },
    show: show,
    showWhole: showWhole,
    showBounds: showBounds,
    grain: grain,
    toSheet: toSheet,
    matrix: function () { return svg.getScreenCTM(); },
    onShow: function (listener) { listeners.push(listener); },
    isPressed: function () { return pointers.size > 0; },
    // Whether the last press moved the drawing.
    hasMoved: function () { return hasMoved; }
  };
}
