
// Measures from point to point, each at the nearest end of a shape if there is one.
function measuring(view, svg, moving, surface, unit) {
  const reach = 10;  // pixels
  const tape = document.createElementNS(svg.namespaceURI, 'g');
  tape.setAttribute('id', 'tape');
  tape.setAttribute('pointer-events', 'none');
  svg.appendChild(tape);
  const button = document.getElementById('measure');
  let isOn = false;
  let points = [];
  let next = null;

  function snapped(clientX, clientY) {
    const point = moving.toSheet({clientX: clientX, clientY: clientY});
    return surface.nearestEnd(point, reach * moving.grain()) || point;
  }

  function lengthText(millimetres) {
    return (millimetres * unit.perMillimetre).toFixed(unit.decimals) + ' ' + unit.name;
  }

  function text() {
    const all = next ? points.concat([next]) : points;
    if (all.length < 2) { return 'First point; go on to the next.'; }
    const lengths = all.slice(1).map(function (point, i) {
      return Math.hypot(point.x - all[i].x, point.y - all[i].y);
    });
    const last = all[all.length - 1];
    const before = all[all.length - 2];
    const sum = lengths.reduce(function (a, b) { return a + b; });
    return (lengths.length > 1 ? 'Length ' + lengthText(sum) + ', the last ' : 'Length ') +
        lengthText(lengths[lengths.length - 1]) + ' (across ' + lengthText(Math.abs(last.x - before.x)) +
        ', up ' + lengthText(Math.abs(last.y - before.y)) + ').';
  }

  function shape(name, attributes) {
    const node = document.createElementNS(svg.namespaceURI, name);
    Object.keys(attributes).forEach(function (key) { node.setAttribute(key, attributes[key]); });
    tape.appendChild(node);
  }

  function draw() {
    tape.replaceChildren();
    const all = next ? points.concat([next]) : points;
    if (all.length === 0) { return; }
    const grain = moving.grain();
    shape('polyline', {
      'points': all.map(function (point) { return point.x + ',' + point.y; }).join(' '),
      'stroke-width': 2 * grain
    });
    all.forEach(function (point) {
      shape('circle', {cx: point.x, cy: point.y, r: 4 * grain, 'stroke-width': grain});
    });
  }

  function addPoint(clientX, clientY) {
    next = null;
    points.push(snapped(clientX, clientY));
    draw();
    say(text());
  }

  function switchOn(isWanted) {
    isOn = isWanted;
    points = [];
    next = null;
    draw();
    button.setAttribute('aria-pressed', String(isOn));
    view.classList.toggle('measuring', isOn);
    say(isOn ? 'Click on points, or press Enter for the middle of the view. Backspace takes the last ' +
        'one back, M or Escape ends.' : '');
  }

  function takeBack() {
    points.pop();
    next = null;
    draw();
    say(text());
  }

  button.addEventListener('click', function () { switchOn(!isOn); });
  moving.onShow(draw);
  view.addEventListener('pointermove', function (event) {
    if (isOn && !moving.isPressed()) {
      next = snapped(event.clientX, event.clientY);
      draw();
      if (points.length > 0) { say(text()); }
    }
  });
  view.addEventListener('pointerleave', function () {
    next = null;
    draw();
  });

  return {isOn: function () { return isOn; }, switchOn: switchOn, addPoint: addPoint, takeBack: takeBack};
}
