
// The drawing as the shapes of an SVG: what lies where, and what stands out.
function svgSurface(svg) {
  const shapesOf = new Map();
  svg.querySelectorAll('[data-e]').forEach(function (shape) {
    const place = Number(shape.dataset.e);
    if (!shapesOf.has(place)) { shapesOf.set(place, []); }
    shapesOf.get(place).push(shape);
  });

  // What is found lies on top as well, where no other bar covers it.
  const above = document.createElementNS(svg.namespaceURI, 'g');
  svg.appendChild(above);

  function shapes(places) {
    return places.flatMap(function (place) { return shapesOf.get(place) || []; });
  }

  function isShown(shape) {
    return !shape.classList.contains('off') && !shape.closest('g[data-layer]').classList.contains('off');
  }

  function clear() {
    above.replaceChildren();
    svg.querySelectorAll('.found').forEach(function (one) {
      one.classList.remove('found', 'filled');
    });
  }

  // The gaps between the dashes of a hidden bar are paper, and stay so.
  const paper = 'rgb(255, 255, 255)';

  function mark(places) {
    shapes(places).forEach(function (shape) {
      const stroke = getComputedStyle(shape).stroke;
      if (stroke === 'none') { shape.classList.add('filled'); }
      if (stroke !== paper) { shape.classList.add('found'); }
      const copy = shape.cloneNode(true);
      copy.removeAttribute('data-e');
      copy.setAttribute('data-of', shape.closest('g[data-layer]').dataset.layer);
      copy.setAttribute('pointer-events', 'none');
      if (!isShown(shape)) { copy.classList.add('off'); }
      above.appendChild(copy);
    });
  }

  // The places of the elements at the point of the window or a little beside it, for lines are thin;
  // the uppermost first.
  function elementsAt(x, y) {
    const found = new Set();
    for (let radius = 0; radius <= 5; radius += 1) {
      for (let turn = 0; turn < (radius === 0 ? 1 : 8); turn += 1) {
        document.elementsFromPoint(x + radius * Math.cos(turn * Math.PI / 4),
                                   y + radius * Math.sin(turn * Math.PI / 4)).forEach(function (under) {
          const shape = svg.contains(under) && under.closest('[data-e]');
          if (shape) { found.add(Number(shape.dataset.e)); }
        });
      }
    }
    return Array.from(found);
  }

  // The ends and corners of what is shown, with the shapes that they belong to.
  let ends = null;
  function endsOf(shape) {
    if (shape.localName === 'circle') {
      return [{x: Number(shape.getAttribute('cx')), y: Number(shape.getAttribute('cy')), shape: shape}];
    }
    // Coordinates are absolute, and those of the end the last of each step.
    return (shape.getAttribute('d').match(/[MLA][^MLAZ]*/g) || []).map(function (part) {
      const numbers = part.slice(1).trim().split(/[ ,]+/).map(Number);
      return {x: numbers[numbers.length - 2], y: numbers[numbers.length - 1], shape: shape};
    });
  }

  // The end nearest to the point of the sheet, within reach; null without any.
  function nearestEnd(point, reach) {
    ends = ends || Array.from(svg.querySelectorAll('path[data-e], circle[data-e]')).flatMap(endsOf);
    let best = null;
    let least = reach;
    ends.forEach(function (end) {
      const away = Math.hypot(end.x - point.x, end.y - point.y);
      if (away < least && isShown(end.shape)) {
        least = away;
        best = {x: end.x, y: end.y};
      }
    });
    return best;
  }

  function switchLayer(name, isOff) {
    svg.querySelectorAll('g[data-layer="' + name + '"], [data-of="' + name + '"]').forEach(function (one) {
      one.classList.toggle('off', isOff);
    });
  }

  function switchHidden(isOff) {
    svg.querySelectorAll('.hidden-bar').forEach(function (shape) { shape.classList.toggle('off', isOff); });
  }

  return {
    layers: Array.from(svg.querySelectorAll('g[data-layer]')).map(function (group) {
      return group.dataset.layer;
    }),
    hasHidden: svg.querySelector('.hidden-bar') !== null,
    places: Array.from(shapesOf.keys()).sort(function (a, b) { return a - b; }),
    boundsOf: function (places) { return boundsOf(shapes(places)); },
    clear: clear,
    mark: mark,
    elementsAt: elementsAt,
    nearestEnd: nearestEnd,
    switchLayer: switchLayer,
    switchHidden: switchHidden
  };
}
